#pragma once
// MODULI without a screen: the boxes of one module and its option pages, the
// buttons Salva, ELIMINA MODULO, OPZIONI, the flag page and ESCI, and the
// tests on the line. It edits the shared record RIGHE_MODULO through the
// module editor, so the window and filo-cli refuse alike; nothing reaches
// the table before Salva but what ELIMINA MODULO does by itself.
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/module_opener.hpp"
#include "app/replacement_page.hpp"
#include "modules/descriptions.hpp"
#include "modules/module_editor.hpp"

namespace filo::app {

class Session;

class ModuleWindow {
  public:
    explicit ModuleWindow(Session& session);
    ~ModuleWindow();

    // Form_Load on CODICE_MODULO of the session's module table: the module
    // as stored when STATO_MODULO is "MODULO_ESISTENTE", else prepared as a
    // new one. PUNTO_EVIDENZIATO (1..8 an input, 9..16 an output) is shown
    // highlighted. False for a type without description: the message was
    // shown and the window closes by itself.
    bool load(int PUNTO_EVIDENZIATO = 0, ModuleOpener opener = ModuleOpener::ProjectWindow);

    struct InputBox {
        bool visible = false;
        std::string caption;  // Frame_ingressi(i)
        std::string Text2;
        std::vector<modules::ListOption> Combo1;
        char kind = 'P';
        bool linked = false;  // Tag "COLLEGATO", Combo1 marked
        bool marked = false;  // Image5: options set
        bool red = false;     // a name in use (ForeColor), or under test (BackColor)
        bool under_test = false;
        bool option_button = true;
    };
    struct OutputBox {
        bool visible = false;
        std::string caption;  // Frame_out(j), "Flag n" for 9..24
        std::string Text1;
        std::vector<char> contacts;  // Combo2; empty: hidden
        char contact = modules::kContactOpen;
        bool linked = false;
        bool marked = false;
        bool option_button = false;  // Image8 shown
        bool red = false;
        bool under_test = false;
    };

    // The controls, by their names.
    std::string Label7, Label8, label22, Text24;
    std::array<InputBox, 9> inputs;     // [1..8]
    std::array<OutputBox, 25> outputs;  // [1..8] outputs, [9..24] flags
    std::uint8_t buttons = 0;           // modules::Button, plus Salva and ESCI always
    bool new_module = false;            // ELIMINA and SOSTITUISCI do nothing (nero)
    bool cards = false;                 // Text9 boxes of a card reader
    std::vector<std::string> Option3;   // receivers of a remote element: never cut short
    int receiver = 0;                   // index into Option3
    bool receiver_choice = false;       // false with a single receiver
    int highlighted = 0;                // the point shown in 0xFFFFC0
    ModuleOpener opener = ModuleOpener::ProjectWindow;

    // Pages over the window; Frame1, Frame2 and the buttons hide meanwhile.
    enum class Page { None, Module, Input, Output, Flags, Replace, Aggregates };
    Page page = Page::None;
    std::string Label11;
    modules::ParameterPage module_page;  // Frame7 for the module
    struct InputPage {
        int input = 0;
        std::vector<modules::ParameterPage::Box> boxes;  // Text4(0..2)
    } input_page;
    struct OutputPage {
        int output = 0;  // USCITA_CORRENTE
        bool functions = false;
        std::array<std::string, 17> Check4_caption;  // [1..8] AND, [9..16] RECIPROCO
        std::array<bool, 17> Check4{};
        bool values = false;
        std::string Text6, Text7;
        bool variator = false;  // Image50 to the paired input's page
        bool emergency = false;
        int Slider1 = 0;
        bool Check1 = false;
    } output_page;

    // Name boxes; false when the name was refused and the box restored.
    bool Text2_Change(int i, const std::string& text);
    bool Text1_Change(int j, const std::string& text);
    void Text24_Change(const std::string& text);
    // The kind chosen in Combo1(i), by letter; the contact in Combo2(j).
    bool Combo1_Click(int i, char letter);
    bool Combo2_Click(int j, char contact);
    void Option3_Click(int n);

    // Image1(n): 1 Salva, 2 ELIMINA MODULO, 3 SOSTITUISCI MODULO, 4 OPZIONI,
    // 5 ASSOCIAZIONI (the page is the window ASSOCIA, on the same record),
    // 7 flags, 8 ESCI.
    void Image1_Click(int n);
    // ASSOCIA closed: the boxes show again.
    void ASSOCIA_closed();
    bool closed() const { return closed_; }

    // The pages.
    void Image5_Click(int i);
    void Image8_Click(int j);
    void Image50_Click();
    void Text4_Change(int n, const std::string& text);
    void Label9_Click();
    void Check4_Click(int n, bool ticked);
    void Text6_Change(const std::string& text);
    void Text7_Change(const std::string& text);
    void Slider1_Change(int value);
    void Label36_Click();
    void Label34_Click();
    // SOSTITUISCI MODULO's page, Frame5: the serial typed, and ANNULLA.
    ReplacementPage replacement;
    void Text3_Change(const std::string& text);
    void Label15_Click();

    // Tests on the line.
    void Text1_DblClick(int j);
    void Text2_DblClick(int i);
    // A card typed on read event i of a reader; true when it was added.
    bool Text9_Change(int i, const std::string& text);

  private:
    void fill();
    void refuse(modules::EditRefusal refusal, std::string_view detail, texts::Text title);
    bool save();
    bool delete_module();
    void close();
    int test_mask() const;

    Session& session_;
    std::unique_ptr<modules::ModuleEditor> editor_;
    bool closed_ = false;
};

}  // namespace filo::app
