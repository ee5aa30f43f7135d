#pragma once
// FrmMain's tool object: the SQLite copy of nick and the export of the
// card-reader groups of the open project. State and actions, without Qt.
#include <functional>
#include <string>
#include <vector>

namespace filo::app {

class Session;

class ExportWindow {
  public:
    explicit ExportWindow(Session& session);

    std::string caption;
    std::vector<std::string> List2;  // the debug window's lines
    int List2_selected = -1;
    bool Command1 = true;  // "Start" enabled
    int percent = 0;       // of the conversion, for the progress bar
    bool closed = false;   // the window asked to go

    void Form_Load();
    // "Start": conversion, then export. `yield` is called after each row so
    // that the window repaints.
    void Command1_Click(const std::function<void()>& yield = {});
    // "ESPORTA LETTORE 1A": the export alone.
    void Command3_Click();
    void Command2_Click();

  private:
    void convert(const std::function<void()>& yield);
    void export_cards();

    Session& session_;
};

}  // namespace filo::app
