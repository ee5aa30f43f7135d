#pragma once
// The demo's button panel: the installer presses and releases an input of a
// simulated module, and the installation acts as if someone had.
#include <QDialog>

class QComboBox;
class QLabel;
class QSpinBox;

namespace filo::app {

class Demo;
class Session;

class DemoPanel final : public QDialog {
    Q_OBJECT
  public:
    DemoPanel(Session& session, Demo& demo, QWidget* parent = nullptr);

  private:
    void send(const char* verb);

    Demo& demo_;
    QComboBox* modules_ = nullptr;
    QSpinBox* input_ = nullptr;
    QLabel* error_ = nullptr;
};

}  // namespace filo::app
