#pragma once
#include <QPointer>
#include <QWidget>

#include "app/port_host.hpp"

namespace filo::app {

// The message boxes of the desktop: plain, one OK or Yes/No.
class QtMessages final : public Messages {
  public:
    void set_parent(QWidget* parent) { parent_ = parent; }
    void show(const std::string& text, const std::string& title) override;
    bool ask(const std::string& text, const std::string& title) override;

  private:
    QPointer<QWidget> parent_;
};

}  // namespace filo::app
