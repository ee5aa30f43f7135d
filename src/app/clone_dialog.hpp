#pragma once
// MACRO, the clone window's view: a modal dialog over CloneWindow.
#include <QDialog>
#include <memory>
#include <string>
#include <vector>

class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QScrollArea;

namespace filo::app {

class CloneWindow;
class Session;

class MACRO final : public QDialog {
    Q_OBJECT
  public:
    explicit MACRO(Session& session, QWidget* parent = nullptr);
    ~MACRO() override;
    CloneWindow& tool() { return *tool_; }
    // The sample chosen as the file dialog would give it.
    void choose_sample(const std::string& file);
    void refresh();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void rebuild_rows();
    void SCEGLI_CAMPIONE();

    Session& session_;
    std::unique_ptr<CloneWindow> tool_;
    QPushButton* Image1_1_ = nullptr;
    QPushButton* Image1_2_ = nullptr;
    QPushButton* Image1_3_ = nullptr;
    QPushButton* Image1_8_ = nullptr;
    QLabel* Label2_ = nullptr;
    QGroupBox* Frame4_ = nullptr;
    QLineEdit* Text2_ = nullptr;
    QPushButton* Label15_ = nullptr;
    QGroupBox* Frame1_ = nullptr;
    QLabel* Label4_ = nullptr;
    QLineEdit* Text3_ = nullptr;
    QScrollArea* VScroll1_ = nullptr;
    QGridLayout* rows_grid_ = nullptr;
    std::vector<QLineEdit*> Text1_;
    std::vector<QLabel*> row_labels_;
    QListWidget* List1_ = nullptr;
    QGroupBox* Frame7_ = nullptr;
    QLabel* Label7_ = nullptr;
    QLabel* Label10_ = nullptr;
};

}  // namespace filo::app
