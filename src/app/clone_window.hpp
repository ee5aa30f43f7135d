#pragma once
// MACRO's tool object: a sample project cloned into the open project. The
// state of the window's controls and its actions, without Qt.
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "exchange/clone_job.hpp"
#include "exchange/clone_sample.hpp"

namespace filo::app {

class Session;

class CloneWindow {
  public:
    explicit CloneWindow(Session& session);
    ~CloneWindow();

    // One row of the list: Label6(i), Label1(i), Label3(i), Text1(i).
    struct Row {
        std::string Label6;
        std::string Label1;
        std::string Label3;
        std::string Text1;
        bool green = false;  // the code passed every check
    };
    std::vector<Row> rows;

    // Buttons: Image1(1) "IMPORTA PROGETTO", Image1(2) "CLONA",
    // Image1(3) "IMPOSTA NOME", Image1(8) "E X I T".
    bool Image1_2 = false;
    bool Image1_3 = false;
    bool Frame1 = false;  // the rows
    bool Frame4 = false;  // the group name
    bool Frame7 = false;  // progress
    bool VScroll1 = false;
    std::string Label2;  // the sample chosen
    std::string Label4;
    std::string Label7;
    std::string Label10;
    std::string Label15;
    std::string Text2;
    std::string Text3;

    void Form_Load();
    // SCEGLI_CAMPIONE once the dialog has given a file ("" : none chosen).
    void SCEGLI_CAMPIONE(const std::string& file);
    void Text2_Change(const std::string& text);
    void Label15_Click();
    void Image1_3_Click();
    // Text1_KeyPress: the key as the box takes it, or 0 to drop it.
    static char Text1_KeyPress(char key, std::size_t current_length);
    // Text1_Change of row i (from 0).
    void Text1_Change(int i, const std::string& text);
    void Text1_GotFocus(int i);
    void Text3_Change(const std::string& text);
    // ESEGUI_CLONE; `progress` repaints Frame7 at once.
    void ESEGUI_CLONE(const std::function<void()>& progress = {});

    int N_RIGHE_CLONE() const { return static_cast<int>(rows.size()); }
    // The row that gets the focus after a code passed; -1 for none.
    int next_focus = -1;

  private:
    void CONTROLLA_CODICI();
    void tell(const exchange::CloneMessage& m);

    Session& session_;
    exchange::CloneSample sample_;
    std::unique_ptr<exchange::CloneJob> job_;
};

}  // namespace filo::app
