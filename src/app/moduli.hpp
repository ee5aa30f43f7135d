#pragma once
// MODULI, the module window's view: it draws ModuleWindow and forwards the
// installer's clicks and typing to it.
#include <QWidget>
#include <array>
#include <memory>
#include <vector>

#include "app/module_opener.hpp"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QToolButton;
class QVBoxLayout;

namespace filo::app {

class Session;
class ModuleWindow;

class MODULI final : public QWidget {
    Q_OBJECT
  public:
    explicit MODULI(Session& session, QWidget* parent = nullptr);
    ~MODULI() override;
    ModuleWindow& tool() { return *tool_; }
    // Form_Load on CODICE_MODULO of the session; false when the type has no
    // window (the message was shown, closed() follows at once).
    bool load(int PUNTO_EVIDENZIATO = 0, ModuleOpener opener = ModuleOpener::ProjectWindow);
    void refresh();

  protected:
    // A double click on a name tests the point on the line.
    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    // Timer1 / the buttons: the window goes, its opener shows again.
    void closed();

  private:
    void build_boxes(QVBoxLayout* outer);
    void build_pages(QVBoxLayout* outer);
    // Frame5, the replacement page (moduli_replacement.cpp).
    void build_replacement_page(QVBoxLayout* outer);
    void refresh_replacement_page();
    void after_action();
    void open_associa();

    Session& session_;
    std::unique_ptr<ModuleWindow> tool_;
    bool filling_ = false;
    QLabel* Label7_ = nullptr;
    QLabel* Label8_ = nullptr;
    QLabel* label22_ = nullptr;
    QLineEdit* Text24_ = nullptr;
    QGroupBox* Frame1_ = nullptr;
    QGroupBox* Frame2_ = nullptr;
    QGroupBox* Frame3_ = nullptr;
    QGroupBox* Frame6_ = nullptr;
    QGroupBox* Frame7_ = nullptr;
    QGroupBox* Frame12_ = nullptr;
    QGroupBox* Frame8_ = nullptr;
    QWidget* Frame_bottoni_ = nullptr;
    std::array<QGroupBox*, 9> Frame_ingressi_{};
    std::array<QLineEdit*, 9> Text2_{};
    std::array<QComboBox*, 9> Combo1_{};
    std::array<QToolButton*, 9> Image5_{};
    std::array<QLineEdit*, 9> Text9_{};
    std::array<QGroupBox*, 9> Frame_out_{};
    std::array<QLineEdit*, 25> Text1_{};
    std::array<QComboBox*, 9> Combo2_{};
    std::array<QToolButton*, 9> Image8_{};
    std::array<QPushButton*, 9> Image1_{};
    QVBoxLayout* receivers_ = nullptr;
    std::vector<QRadioButton*> Option3_;
    QLabel* Label11_ = nullptr;
    std::array<QLabel*, 6> Label4_{};
    std::array<QLineEdit*, 6> Text4_{};
    QRadioButton* Option1_ = nullptr;
    QRadioButton* Option2_ = nullptr;
    QRadioButton* Option4_ = nullptr;
    std::array<QCheckBox*, 17> Check4_{};
    QWidget* values_ = nullptr;
    QLineEdit* Text6_ = nullptr;
    QLineEdit* Text7_ = nullptr;
    QPushButton* Image50_ = nullptr;
    QWidget* emergency_ = nullptr;
    QSlider* Slider1_ = nullptr;
    QLabel* Text8_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    QGroupBox* Frame5_ = nullptr;
    QLineEdit* Text3_ = nullptr;
    QWidget* ASSOCIA_ = nullptr;  // while open
};

}  // namespace filo::app
