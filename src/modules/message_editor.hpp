#pragma once
// Form11 without a screen: the messages of a panel interface (type 1E), edited
// on the shared record RIGHE_MODULO of the module table. It holds what the
// window's controls hold and does what their events do; the window only draws
// it and asks the questions. Nothing reaches the table before Salva, but what
// ELIMINA MODULO does by itself.
#include <string>
#include <string_view>
#include <vector>

namespace filo::store {
class ModuleTable;
class LinkTable;
}  // namespace filo::store
namespace filo::texts {
class LanguageTables;
}

namespace filo::modules {

class MessageEditor {
  public:
    MessageEditor(store::ModuleTable& table, store::LinkTable& links,
                  const texts::LanguageTables& texts);

    // Form_Load and Form_Activate on CODICE_MODULO of the table: the module
    // as stored, or the 99 rows of a new one; then the list of messages.
    void load();
    bool new_module() const;

    // The controls, by their names. RichTextBox1 is the message's text with
    // its codes in line.
    std::string Label16;  // the serial: code and check digits
    std::string Text4;    // name of the module, without the "*"
    bool Check1 = false;  // VISUALIZZA n° MESSAGGI SUL PANNELLO
    std::vector<std::string> Combo1;
    int ListIndex = -1;
    std::string Text1;  // name of the message
    std::string RichTextBox1;
    std::string Text5;    // persistence
    int Combo3 = 0;       // colour
    int Combo4 = 0;       // mode
    bool Check2 = false;  // the idle message, row 98
    bool Check3 = false;  // Ripeti testo
    bool Check4 = false;  // Ripeti nome messaggio e numera
    int RIGA_CORRENTE = 1;
    std::string USCITA_CONSENTITA;

    void AGGIORNA_COMBO();
    // The list is about to drop: the message in hand is stored, and one free
    // place is offered behind the messages that have text, up to row 96.
    void Combo1_DropDown();
    // The list has closed (Timer1): with nothing chosen, the first entry.
    void Combo1_CloseUp();
    void Combo1_Click(int index);
    // Typing: leading blanks go; false (and no change) for a character
    // outside the name set.
    bool Text1_Change(std::string_view text);
    // False for a character outside the description set.
    bool Text4_Change(std::string_view text);
    void Text5_Change(std::string_view typed);
    // Any change of the message's text; the persistence follows its length.
    void RichTextBox1_Change(std::string_view text);
    // A colour chosen with the given selection of the text, in characters;
    // returns where the caret goes.
    std::size_t Combo3_Click(int k, std::size_t selection_start = std::string::npos,
                             std::size_t selection_length = 0);
    void Combo4_Click(int k);
    void Check2_Click(bool ticked);

    void SALVA_MESSAGGIO();
    void CARICA_MESSAGGIO(int k);
    void SALVA_TESTO_MESSAGGIO(int k);
    // Salva: false, with USCITA_CONSENTITA "NO", when the module has no name.
    bool SALVA_INTERFACCIA();
    // ELIMINA MODULO once the installer has said yes: the module and every
    // link to it. A module never saved has nothing to delete.
    void ELIMINA_INTERFACCIA();

  private:
    bool has_row(int k) const;
    std::string entry(int k, bool after_save) const;
    void append_text(std::string_view piece);

    store::ModuleTable& table_;
    store::LinkTable& links_;
    const texts::LanguageTables& texts_;
};

}  // namespace filo::modules
