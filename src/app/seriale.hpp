#pragma once
// SERIALE, the connection window's view: a modal dialog.
#include <QDialog>

#include "app/connection.hpp"

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace filo::app {

class Session;

class SERIALE final : public QDialog {
    Q_OBJECT
  public:
    SERIALE(Session& session, Connection::PortLister lister, bus::PortOpener opener,
            QWidget* parent = nullptr);
    Connection& tool() { return tool_; }
    void refresh_ports();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void chosen(const std::string& path);

    Session& session_;
    Connection tool_;
    QPushButton* Command4_ = nullptr;
    QPushButton* Command1_ = nullptr;
    QPushButton* Command2_ = nullptr;
    QPushButton* Label3_0_ = nullptr;
    QComboBox* ComboCOM_ = nullptr;
    QLineEdit* Text1_ = nullptr;
    QProgressBar* ProgressBar6_ = nullptr;
    QLabel* Label1_ = nullptr;
};

}  // namespace filo::app
