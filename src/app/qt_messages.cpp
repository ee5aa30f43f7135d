#include "app/qt_messages.hpp"

#include <QMessageBox>

namespace filo::app {

void QtMessages::show(const std::string& text, const std::string& title) {
    QMessageBox::warning(parent_, QString::fromStdString(title), QString::fromStdString(text));
}

bool QtMessages::ask(const std::string& text, const std::string& title) {
    return QMessageBox::question(parent_, QString::fromStdString(title),
                                 QString::fromStdString(text),
                                 QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace filo::app
