#pragma once
// AVANZATE2, the constant light set-up's view: a modal dialog over Form4.
#include <QDialog>
#include <functional>
#include <memory>
#include <string>

class QFrame;
class QLabel;
class QPushButton;
class QSlider;
class QTimer;
class QWidget;

namespace filo::commissioning {
class ConstantLight;
}

namespace filo::app {

class Session;

class AVANZATE2 final : public QDialog {
    Q_OBJECT
  public:
    // ask_port shows SERIALE, modal; the set-up reads the port in use after it.
    AVANZATE2(Session& session, const std::string& regulator, std::function<void()> ask_port,
              QWidget* parent = nullptr);
    ~AVANZATE2() override;
    commissioning::ConstantLight& tool() { return *tool_; }
    // Form_Load; false, after the message, when the module can't be read.
    bool load();
    void refresh();

  private:
    void Slider1_Change(int value);
    void Label1_Click();
    void place_markers();

    Session& session_;
    std::function<void()> ask_port_;
    std::unique_ptr<commissioning::ConstantLight> tool_;
    QSlider* Slider1_ = nullptr;
    QLabel* Label7_ = nullptr;
    QLabel* Label6_ = nullptr;
    QLabel* Label4_ = nullptr;
    QPushButton* Label1_ = nullptr;
    QWidget* scales_ = nullptr;
    QFrame* Shape2_ = nullptr;  // the sensor's scale
    QFrame* Shape3_ = nullptr;
    QFrame* Shape6_ = nullptr;
    QFrame* Shape6B_ = nullptr;
    QFrame* Shape4_ = nullptr;
    QTimer* Timer2_ = nullptr;
    QTimer* Timer3_ = nullptr;
};

}  // namespace filo::app
