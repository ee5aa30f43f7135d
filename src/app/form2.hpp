#pragma once
// Form2, the new project's view.
#include <QWidget>
#include <array>

#include "app/new_project.hpp"

class QLabel;
class QLineEdit;
class QTimer;
class QToolButton;

namespace filo::app {

class Session;

class Form2 final : public QWidget {
    Q_OBJECT
  public:
    explicit Form2(Session& session, QWidget* parent = nullptr);
    NewProject& tool() { return tool_; }

  signals:
    void project_created();
    void exit_requested();

  private:
    Session& session_;
    NewProject tool_;
    QLineEdit* Text1_ = nullptr;
    std::array<QToolButton*, 3> Image4_{};
    QLabel* Label10_ = nullptr;
    QTimer* Timer1_ = nullptr;
};

}  // namespace filo::app
