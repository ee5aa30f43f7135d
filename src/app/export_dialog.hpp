#pragma once
// FrmMain, the export window's view: a modal dialog over ExportWindow.
#include <QDialog>

#include "app/export_window.hpp"

class QListWidget;
class QProgressBar;
class QPushButton;

namespace filo::app {

class FrmMain final : public QDialog {
    Q_OBJECT
  public:
    explicit FrmMain(Session& session, QWidget* parent = nullptr);
    ExportWindow& tool() { return tool_; }
    void refresh();

  private:
    ExportWindow tool_;
    QPushButton* Command1_ = nullptr;
    QPushButton* Command2_ = nullptr;
    QPushButton* Command3_ = nullptr;
    QListWidget* List2_ = nullptr;
    QProgressBar* ProgressBar1_ = nullptr;
};

}  // namespace filo::app
