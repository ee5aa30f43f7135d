#pragma once
// Form9, the link editor's view.
#include <QWidget>
#include <array>
#include <memory>

#include "app/link_editor_window.hpp"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QToolButton;

namespace filo::app {

class Form9 final : public QWidget {
    Q_OBJECT
  public:
    Form9(Session& session, LinkEditorHost host, QWidget* parent = nullptr);
    ~Form9() override;
    LinkEditorWindow& tool() { return *tool_; }
    void load();
    // Draws the tool's state.
    void refresh();

  private:
    QLineEdit* time_box(QGridLayout* grid, int row, int column, const char* name,
                        LinkEditorWindow::Time time, LinkEditorWindow::Part part);
    void fill_list(QListWidget* list, const std::vector<store::ListEntry>& entries);

    Session& session_;
    std::unique_ptr<LinkEditorWindow> tool_;
    bool filling_ = false;  // SOPPRIMI_CLICK while the view sets its controls
    QComboBox* Combo_COMANDI_ = nullptr;
    QComboBox* Combo_UTILIZZATORI_ = nullptr;
    QLineEdit *Text18_ = nullptr, *Text8_ = nullptr, *Text17_ = nullptr, *Text16_ = nullptr;
    QCheckBox* Check3_ = nullptr;
    QPushButton *Label26_0_ = nullptr, *Label26_1_ = nullptr;
    QLabel *Label6_ = nullptr, *Label5_ = nullptr, *Label9_ = nullptr, *Label22_ = nullptr;
    QLabel *Label15_ = nullptr, *Label19_ = nullptr, *Label25_ = nullptr, *Label18_ = nullptr;
    QListWidget *LISTA_COMANDATI_ = nullptr, *LISTA_COMANDANTI_ = nullptr, *List1_ = nullptr;
    std::array<QPushButton*, 10> Option1_{};
    QGroupBox *Frame9_ = nullptr, *Frame1_ = nullptr, *Frame7_ = nullptr, *Frame10_ = nullptr;
    QGroupBox *Frame11_ = nullptr, *Frame12_ = nullptr, *Frame6_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    std::array<QLineEdit*, 3> tenths_{};
    std::array<QRadioButton*, 3> Option2_{};
    QLineEdit *Text22_ = nullptr, *Text23_ = nullptr;
    std::array<QToolButton*, 16> Image6_{};
    QLabel *Label21_ = nullptr, *Label23_ = nullptr;
    QPushButton *Label29_0_ = nullptr, *Image4_1_ = nullptr, *Image4_2_ = nullptr;
};

}  // namespace filo::app
