#include "modules/message_editor.hpp"

#include <algorithm>

#include "bus/module_code.hpp"
#include "common/basic_functions.hpp"
#include "modules/module_editor.hpp"
#include "modules/module_rows.hpp"
#include "modules/panel_messages.hpp"
#include "store/link_repairs.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "texts/language_tables.hpp"

namespace filo::modules {

using texts::Text;

namespace {

std::string strip_leading_blanks(std::string_view s) {
    const std::size_t first = s.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : std::string(s.substr(first));
}

bool is_description_character(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ' ' ||
           c == '.' || c == ',' || c == '-' || c == '_' || c == '/';
}

constexpr std::size_t kModuleNameLength = 30;

}  // namespace

MessageEditor::MessageEditor(store::ModuleTable& table, store::LinkTable& links,
                             const texts::LanguageTables& texts)
    : table_(table), links_(links), texts_(texts) {}

bool MessageEditor::has_row(int k) const {
    return k >= 1 && k <= table_.RIGHE_MODULO.N_RIGHE_MODULO();
}

bool MessageEditor::new_module() const {
    return table_.STATO_MODULO != store::kModuloEsistente;
}

void MessageEditor::load() {
    store::ModuleTable& t = table_;
    const std::string codice = t.CODICE_MODULO;
    Label16 = bus::printed_code(codice);
    t.CANCELLA_IN_SALVATAGGIO.clear();
    t.LEGGI_MODULO(codice);
    t.set_codice_modulo(codice);
    if (t.STATO_MODULO != store::kModuloEsistente) {
        t.STATO_MODULO = std::string(store::kNuovoModulo);
        t.LEGGI_N_PROGRESSIVO();
        PREPARA_OUT_232(t);
    }
    // A module from elsewhere may have fewer rows: places beyond them stay empty.
    const store::ModuleRecord& m = t.RIGHE_MODULO;
    Text4 = m.rows.empty() ? std::string() : m.riga(1).note;
    Check1 = !Text4.empty() && Text4.front() == '*';
    if (Check1) Text4.erase(0, 1);
    Check2 = Check3 = Check4 = false;
    USCITA_CONSENTITA.clear();
    Combo3 = Combo4 = 0;
    AGGIORNA_COMBO();
}

std::string MessageEditor::entry(int k, bool after_save) const {
    // The list's own entries carry two blanks before the number, those put
    // back on storing one: the window has always shown them so.
    return texts_.text(Text::PANEL_MESSAGE_ENTRY) + (after_save ? "" : " ") + std::to_string(k);
}

void MessageEditor::AGGIORNA_COMBO() {
    const store::ModuleRecord& m = table_.RIGHE_MODULO;
    Combo1.clear();
    Text1.clear();
    RichTextBox1_Change("");
    // Entry n stands for row n: named rows are expected at the head.
    for (int k = 1; k <= kLastMessageRow && k <= m.N_RIGHE_MODULO(); ++k)
        if (!m.riga(k).nick.empty()) Combo1.push_back(entry(k, false));
    if (Combo1.empty()) Combo1.push_back(entry(1, false));
    Combo1_Click(0);
}

void MessageEditor::Combo1_DropDown() {
    SALVA_MESSAGGIO();
    const store::ModuleRecord& m = table_.RIGHE_MODULO;
    const int n = static_cast<int>(Combo1.size());
    for (int k = 1; k <= n; ++k)
        if (!has_row(k) || m.riga(k).riserva2.empty()) return;  // a free entry is there
    // Rows 97 and 98 are no places for a message.
    if (n + 1 > std::min(kLastMessageRow, m.N_RIGHE_MODULO())) return;
    Combo1.push_back(texts_.text(Text::PANEL_FREE_ENTRY) + std::to_string(n + 1));
}

void MessageEditor::Combo1_CloseUp() {
    if (ListIndex == -1 && !Combo1.empty()) Combo1_Click(0);
}

void MessageEditor::Combo1_Click(int index) {
    if (index < 0 || index >= static_cast<int>(Combo1.size())) return;
    ListIndex = index;
    RIGA_CORRENTE = index + 1;
    const std::string number = std::to_string(RIGA_CORRENTE);
    const std::size_t d = number.size();
    const std::size_t l = basic::character_count(Text1);
    const std::string nick =
        has_row(RIGA_CORRENTE) ? table_.RIGHE_MODULO.riga(RIGA_CORRENTE).nick : "";
    if (!nick.empty())
        Text1 = nick;
    else if (l < d)
        Text1 = entry(RIGA_CORRENTE, true);
    else if (Check4)
        Text1 = std::string(basic::first_characters(Text1, l - d)) + " " +
                number;  // cut by the digits alone
    else
        Text1 = entry(RIGA_CORRENTE, true);
    CARICA_MESSAGGIO(RIGA_CORRENTE);
}

bool MessageEditor::Text1_Change(std::string_view text) {
    if (!refused_name_character(text, Text1).empty()) return false;
    Text1 = strip_leading_blanks(text);
    return true;
}

bool MessageEditor::Text4_Change(std::string_view text) {
    for (char c : text)
        if (!is_description_character(c)) return false;
    Text4 = basic::first_characters(text, kModuleNameLength);
    return true;
}

void MessageEditor::Text5_Change(std::string_view typed) {
    Text5 = typed_persistence(typed);
}

void MessageEditor::RichTextBox1_Change(std::string_view text) {
    RichTextBox1 = std::string(text);
    Text5 = persistence_for_length(basic::character_count(RichTextBox1), Text5);
}

void MessageEditor::append_text(std::string_view piece) {
    RichTextBox1_Change(RichTextBox1 + std::string(piece));
}

std::size_t MessageEditor::Combo3_Click(int k, std::size_t selection_start,
                                        std::size_t selection_length) {
    if (k < 0 || k >= static_cast<int>(COLORI_MESSAGGIO.size())) return selection_start;
    Combo3 = k;
    if (selection_start == std::string::npos)
        selection_start = basic::character_count(RichTextBox1);
    const ColourInsertion done =
        insert_colour_code(RichTextBox1, selection_start, selection_length, k);
    RichTextBox1_Change(done.text);
    return done.caret;
}

void MessageEditor::Combo4_Click(int k) {
    if (k >= 0 && k < static_cast<int>(MODI_MESSAGGIO.size())) Combo4 = k;
}

void MessageEditor::CARICA_MESSAGGIO(int k) {
    std::string s;
    if (has_row(k)) s = table_.RIGHE_MODULO.riga(k).riserva2 + table_.RIGHE_MODULO.riga(k).riserva3;
    if (s.empty() && Check3) s = "02B" + RichTextBox1;
    RichTextBox1_Change("");
    const MessageRecord record = read_record(s, "");
    const std::string& b = record.text;
    // A new message begins with the code of red.
    if (basic::character_count(b) < 3) append_text(COLORI_MESSAGGIO[0].code);
    // Piece by piece, as the text builds up: the persistence follows each step.
    for (std::size_t p = 0; p < b.size();) {
        std::size_t step = colour_code_at(b, p) >= 0 ? 2 : 1;
        while (p + step < b.size() && basic::is_continuation_byte(b[p + step])) ++step;
        append_text(std::string_view(b).substr(p, step));
        p += step;
    }
    if (s.size() >= 3)
        if (const int mode = mode_index(record.mode); mode >= 0) Combo4 = mode;
}

void MessageEditor::SALVA_TESTO_MESSAGGIO(int k) {
    if (!has_row(k)) return;
    const RecordHalves halves = split_record(RECORD_MESSAGGIO(
        {Text5, MODI_MESSAGGIO[static_cast<std::size_t>(Combo4)].letter, RichTextBox1}));
    store::NickRow& row = table_.RIGHE_MODULO.riga(k);
    row.riserva2 = halves.riserva2;
    row.riserva3 = halves.riserva3;
}

void MessageEditor::SALVA_MESSAGGIO() {
    if (ListIndex < 0 || ListIndex >= static_cast<int>(Combo1.size())) return;
    const int k = ListIndex + 1;
    const bool no_text = basic::character_count(RichTextBox1) < 3;
    // AGGIORNA_VOCE: the entry says whether the place holds a message.
    Combo1[static_cast<std::size_t>(ListIndex)] =
        no_text ? texts_.text(Text::PANEL_FREE_ENTRY) + std::to_string(k) : entry(k, true);
    // SALVA_NOME_MESSAGGIO: a place without text keeps the name it had.
    if (no_text)
        Text1.clear();
    else if (has_row(k))
        table_.RIGHE_MODULO.riga(k).nick = std::string(basic::trim(Text1));
    SALVA_TESTO_MESSAGGIO(k);
}

void MessageEditor::Check2_Click(bool ticked) {
    if (ticked == Check2) return;
    Check2 = ticked;
    Check3 = Check4 = false;
    if (ticked) {
        CARICA_MESSAGGIO(kIdleMessageRow);
        return;
    }
    SALVA_TESTO_MESSAGGIO(kIdleMessageRow);
    RichTextBox1_Change("");
    Combo1_Click(0);
}

bool MessageEditor::SALVA_INTERFACCIA() {
    if (Check2)
        Check2_Click(false);
    else
        SALVA_MESSAGGIO();
    if (Text4.empty()) {
        USCITA_CONSENTITA = "NO";
        return false;
    }
    USCITA_CONSENTITA = "SI";
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    for (int k = 1; k <= kIdleMessageRow && k <= m.N_RIGHE_MODULO(); ++k)
        m.riga(k).note = (Check1 ? "*" : "") + Text4;
    table_.CANCELLA_IN_SALVATAGGIO.clear();
    if (table_.STATO_MODULO == store::kModuloEsistente) {
        table_.MODIFICA_MODULO();
    } else {
        table_.AGGIUNGI_MODULO();
        table_.STATO_MODULO = std::string(store::kModuloEsistente);
    }
    return true;
}

void MessageEditor::ELIMINA_INTERFACCIA() {
    if (new_module()) return;
    store::LinkRepairs repairs(table_.project(), links_);
    store::delete_module_and_links(table_, repairs);
    table_.STATO_MODULO = std::string(store::kNuovoModulo);
}

}  // namespace filo::modules
