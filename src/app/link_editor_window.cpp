#include "app/link_editor_window.hpp"

#include <algorithm>

#include "app/module_entry.hpp"
#include "app/session.hpp"
#include "bus/checksum.hpp"
#include "bus/envelope.hpp"
#include "bus/frame.hpp"
#include "bus/receive_assembler.hpp"
#include "commissioning/scan.hpp"
#include "common/basic_functions.hpp"
#include "store/link_queries.hpp"
#include "store/point_lists.hpp"

namespace filo::app {
namespace {

using texts::Text;
using Check = links::LinkEditor::Check;
using Save = links::LinkEditor::Save;

// The 96 message bits as the message list reads them: message n at 97 - n.
std::string message_string(const links::MessageBits& bits) {
    std::string s(96, '0');
    for (std::size_t n = 1; n <= 96; ++n)
        if (bits.test(n - 1)) s[96 - n] = '1';
    return s;
}

}  // namespace

LinkEditorWindow::LinkEditorWindow(Session& session, LinkEditorHost host)
    : session_(session),
      host_(std::move(host)),
      lists_(std::make_unique<store::PointLists>(session.project, session.texts)),
      queries_(std::make_unique<store::LinkQueries>(session.project, session.links, session.texts)),
      editor_(std::make_unique<links::LinkEditor>(session.modules, session.links, *queries_,
                                                  session.texts)) {
    session_.receiver.set_consumer(bus::ReceiveAssembler::Consumer::PointPicking,
                                   [this](const bus::ReceiveAssembler& rx) {
                                       point_picked(rx.RX_TRAMA);
                                       if (host_.changed) host_.changed();
                                   });
    session_.receiver.set_consumer(bus::ReceiveAssembler::Consumer::TypeAnswer,
                                   [this](const bus::ReceiveAssembler& rx) {
                                       type_answer(rx.RX_TRAMA);
                                       if (host_.changed) host_.changed();
                                   });
}

LinkEditorWindow::~LinkEditorWindow() {
    session_.receiver.set_consumer(bus::ReceiveAssembler::Consumer::PointPicking, {});
    session_.receiver.set_consumer(bus::ReceiveAssembler::Consumer::TypeAnswer, {});
    session_.receiver.flags.ACQUISIZIONE_PUNTO = "N0";
    session_.receiver.flags.ATTESA_TIPO.clear();
}

void LinkEditorWindow::point_picked(const std::string& RX_TRAMA) {
    // One press is all that is taken: the box unticks, the flag stays up.
    Check3 = false;
    const auto input = static_cast<int>(basic::val(basic::mid(RX_TRAMA, 9, 2)));
    if (input < 1 || input > 8) return;
    const std::string address(basic::mid(RX_TRAMA, 5, 4));
    store::ModuleTable& m = session_.modules;
    m.LEGGI_INFORMAZIONE(address, std::to_string(input));
    if (m.STATO_MODULO != store::kModuloEsistente) {
        // A module the project lacks: ask its type, and enter it on the answer.
        if (address == "0000" || !session_.on_line()) return;
        picked_input_ = input;
        awaited_address_ = address;
        session_.line.write(
            bus::wrap(bus::Envelope::Terminated, std::string(bus::kOpenProgramming)));
        session_.receiver.flags.ATTESA_TIPO = "SI";
        session_.line.write(
            bus::wrap(bus::Envelope::Terminated, bus::with_checksum("[A" + address + "0000]")));
        return;
    }
    Label_picked = m.INFO_CODICE + "/" + std::to_string(input);
    select_picked(address, input, true);
}

void LinkEditorWindow::type_answer(const std::string& RX_TRAMA) {
    const std::optional<std::string> code = commissioning::answered_code(RX_TRAMA);
    if (!code || code->substr(0, 4) != awaited_address_) return;
    session_.receiver.flags.ATTESA_TIPO.clear();
    enter_new_module(session_, *code);
    Label_picked = "Codice  " + *code + "/" + std::to_string(picked_input_);
    // The installer names the point in the module's window first.
    if (host_.open_module) host_.open_module(*code, picked_input_);
    CARICA_COMBO();
    select_picked(awaited_address_, picked_input_, false);
}

void LinkEditorWindow::select_picked(const std::string& address, int input, bool may_open) {
    store::ModuleTable& m = session_.modules;
    m.LEGGI_INFORMAZIONE(address, std::to_string(input));
    if (m.STATO_MODULO != store::kModuloEsistente) return;
    if (m.INFO_NICK.empty()) {
        if (!may_open) return;
        if (host_.open_module) host_.open_module(m.INFO_CODICE, input);
        m.LEGGI_INFORMAZIONE(address, std::to_string(input));
        if (m.STATO_MODULO != store::kModuloEsistente || m.INFO_NICK.empty()) return;
    }
    const int found = find_entry(Combo_COMANDI, m.INFO_NICK);
    command_index = -1;
    if (found >= 0) Combo_COMANDI_Click(found);
}

void LinkEditorWindow::load() {
    const texts::LanguageTables& t = session_.texts;
    lists_->STATO_GRUPPO = "VUOTO";
    caption = t.text(Text::LINK_WINDOW_CAPTION) + t.text(Text::PROJECT_COLON) +
              session_.project.NOME_PROGETTO + t.text(Text::LINK_MODULES_PRESENT) +
              std::to_string(session_.modules.N_MODULI);
    Label25 = session_.on_line() ? t.text(Text::LINE_ONLINE) + session_.PORTA_COM
                                 : t.text(Text::LINE_OFFLINE);
    editor_->clear_command();
    editor_->clear_user();
    command_index = user_index = -1;
    LISTA_COMANDATI.clear();
    LISTA_COMANDANTI.clear();
    Label6 = Label5 = Label9 = Label22 = Label19 = Label26_0 = Label26_1 = "";
    ISTRUZIONE = t.text(Text::LINK_FIRST_STEP);
    reset_mode_area();
    CARICA_COMBO();
}

void LinkEditorWindow::CARICA_COMBO() {
    lists_->CARICA_COMBO(std::clamp(session_.LIVELLO, 1, 3));
    Combo_COMANDI = lists_->Combo_COMANDI;
    Combo_UTILIZZATORI = lists_->Combo_UTILIZZATORI;
}

bool LinkEditorWindow::name_filters_shown() const {
    return session_.LIVELLO >= 2;
}

void LinkEditorWindow::Text18_Change(const std::string& text) {
    lists_->filters.codice_comandi = text;
    if (text.empty() || text.size() >= 6) CARICA_COMBO();
}
void LinkEditorWindow::Text17_Change(const std::string& text) {
    lists_->filters.codice_utilizzatori = text;
    if (text.empty() || text.size() >= 6) CARICA_COMBO();
}
void LinkEditorWindow::Text8_Change(const std::string& text) {
    lists_->filters.nome_comandi = text;
    CARICA_COMBO();
}
void LinkEditorWindow::Text16_Change(const std::string& text) {
    lists_->filters.nome_utilizzatori = text;
    CARICA_COMBO();
}

void LinkEditorWindow::fill_commanded() {
    LISTA_COMANDATI.clear();
    const std::string& key = editor_->command.identificativoTX;
    if (key.empty()) return;
    session_.links.LEGGI_LINK();
    for (const store::LinkRow& r : session_.links.TABELLA_LINK)
        if (r.identificativoTX == key) LISTA_COMANDATI.push_back({r.nick_ricevente, r.ID});
}

void LinkEditorWindow::Combo_COMANDI_Click(int index) {
    if (index < 0 || index >= static_cast<int>(Combo_COMANDI.size())) return;
    const store::ListEntry& e = Combo_COMANDI[static_cast<std::size_t>(index)];
    List1.clear();
    Label26_0.clear();
    command_index = index;
    if (!editor_->select_command(e.item_data, e.text)) {
        command_index = -1;
        Label6 = Label9 = "";
        LISTA_COMANDATI.clear();
        after_selection();
        return;
    }
    const std::string& key = editor_->command.identificativoTX;
    Label26_0 = key == "/" ? "" : key;
    Label6 = session_.texts.text(Text::ALSO_COMMANDS) + editor_->COMANDO;
    fill_commanded();
    after_selection();
}

void LinkEditorWindow::Combo_UTILIZZATORI_Click(int index) {
    if (index < 0 || index >= static_cast<int>(Combo_UTILIZZATORI.size())) return;
    const store::ListEntry& e = Combo_UTILIZZATORI[static_cast<std::size_t>(index)];
    Label26_1.clear();
    if (e.item_data == 0) {  // the groups of outputs have their own window
        session_.message(Text::NOT_YET_AVAILABLE, Text::TITLE_WARNING, {}, e.text);
        user_index = -1;
        return;
    }
    user_index = index;
    if (!editor_->select_user(e.item_data, e.text)) {
        user_index = -1;
        Label5 = Label9 = "";
        LISTA_COMANDANTI.clear();
        after_selection();
        return;
    }
    Label26_1 = editor_->user.identificativoRX;
    LISTA_COMANDANTI.clear();
    if (editor_->UTILIZZATORE != "MESSAGGI") {
        Label5 = session_.texts.text(Text::ALSO_COMMANDED_BY) + editor_->UTILIZZATORE;
        session_.links.LINK_CORRENTE.identificativoRX = editor_->user.identificativoRX;
        LISTA_COMANDANTI = queries_->LEGGI_ASSOCIATI_A_UTILIZZATORE();
    }
    after_selection();
}

void LinkEditorWindow::after_selection() {
    const texts::LanguageTables& t = session_.texts;
    links::LinkEditor& e = *editor_;
    switch (e.check()) {
        case Check::NeedsUser:
            ISTRUZIONE = t.text(Text::LINK_SELECT_OUTPUT_TOO);
            reset_mode_area();
            return;
        case Check::NeedsCommand:
            ISTRUZIONE = t.text(Text::LINK_SELECT_COMMAND_TOO);
            reset_mode_area();
            return;
        case Check::Refused:
            session_.message_text("", t.text(Text::OPERATION_NOT_ALLOWED));
            if (e.COMANDO.empty()) {
                command_index = -1;
                Label6 = Label9 = Label26_0 = "";
                LISTA_COMANDATI.clear();
            } else {
                user_index = -1;
                Label5 = Label9 = Label26_1 = "";
                LISTA_COMANDANTI.clear();
            }
            reset_mode_area();
            return;
        case Check::Silent:
            reset_mode_area();
            return;
        case Check::Modes:
            break;
    }
    reset_mode_area();
    ISTRUZIONE = "    \n" + t.text(Text::LINK_SELECT_MODE_FIRST);
    Label9 = t.text(Text::LINK_HOW_SHOULD) + e.COMANDO + t.text(Text::LINK_COMMANDS_WORD) +
             e.UTILIZZATORE;
    for (int i = 1; i <= links::kModeCount; ++i) {
        ModeButton& b = Option1[static_cast<std::size_t>(i)];
        b.visible = e.offer.offers(i);
        b.caption = e.offer.caption[static_cast<std::size_t>(i)];
        b.green = b.visible && i == e.stored_mode;
    }
    if (List1_shown()) {
        const store::MessageList m =
            lists_->ELENCO_MESSAGGI(e.message_module, message_string(e.messages));
        List1 = m.entries;
    }
}

void LinkEditorWindow::reset_mode_area() {
    DA_CONFERMARE = "NO";
    Frame6 = false;
    for (ModeButton& b : Option1) b = {};
    Label22.clear();
    Label19.clear();
}

bool LinkEditorWindow::leave_unconfirmed() {
    if (DA_CONFERMARE == "SI" &&
        !session_.ask(Text::LINK_NOT_CONFIRMED, Text::TITLE_ATTENTION_SPACED))
        return false;
    Frame6 = false;
    for (ModeButton& b : Option1) b.green = false;
    DA_CONFERMARE = "NO";
    return true;
}

void LinkEditorWindow::Option1_Click(int index) {
    links::LinkEditor& e = *editor_;
    const texts::LanguageTables& t = session_.texts;
    if (!e.select_mode(index)) return;
    ISTRUZIONE = t.text(Text::LINK_READY_TO_SAVE);
    for (int i = 1; i <= links::kModeCount; ++i)
        Option1[static_cast<std::size_t>(i)].green = i == index;
    Label22 = e.COMANDO + t.text(Text::LINK_COMMANDS_SUMMARY) + e.UTILIZZATORE + "\n" +
              t.text(Text::LINK_MODE_LABEL) + Option1[static_cast<std::size_t>(index)].caption;
    Label19.clear();
    DA_CONFERMARE = "NO";
    if (e.STESSO_MODO == "SI" && e.UTILIZZATORE != "MESSAGGI") {
        const std::string& m = e.stored.modo_;
        auto at = [](const std::string& s, std::size_t i) { return basic::mid(s, i, 1) == "1"; };
        if (e.stored.and_.find('1') != std::string::npos || at(e.stored.settimana, 1) || at(m, 1) ||
            at(m, 4) || at(m, 5))
            Label19 = t.text(Text::OPTIONS_SELECTED);
        if (e.thresholds_differ() && session_.ask(Text::LINK_THRESHOLDS_DIFFER, Text::TITLE_NOTICE))
            e.keep_previous_thresholds();
    }
    if (e.needs_advanced_options()) {
        Label29_Click();
        return;
    }
    if (e.mode.PASSO_PASSO == "1" && e.UTILIZZATORE == "USA GRUPPO")
        session_.message(Text::STEP_NOT_ADVISED_FOR_GROUPS, Text::TITLE_NOTICE);
    if (e.ready()) DA_CONFERMARE = "SI";
}

links::TimeBoxes LinkEditorWindow::boxes() const {
    return editor_->boxes();
}

std::string LinkEditorWindow::time_box_change(Time time, Part part, const std::string& text) {
    std::string digits;
    for (char c : text)
        if (c >= '0' && c <= '9') digits += c;
    if (digits.size() > 2) digits.clear();
    int value = digits.empty() ? 0 : std::stoi(digits);
    const int limit = part == Part::Hours ? 17 : part == Part::Tenths ? 9 : 59;
    if (value > limit) {
        value = limit;
        digits = std::to_string(limit);
    }
    links::LinkEditor& e = *editor_;
    links::TimeEntry& entry = time == Time::On        ? e.time_on
                              : time == Time::DelayOn ? e.delay_on
                                                      : e.delay_off;
    (part == Part::Hours     ? entry.hours
     : part == Part::Minutes ? entry.minutes
     : part == Part::Seconds ? entry.seconds
                             : entry.tenths) = value;
    return digits;
}

bool LinkEditorWindow::tenths_shown(Time time) const {
    const links::LinkEditor& e = *editor_;
    const links::TimeEntry& entry = time == Time::On        ? e.time_on
                                    : time == Time::DelayOn ? e.delay_on
                                                            : e.delay_off;
    return boxes().tenths &&
           links::tenths_offered(basic::mid(e.user.identificativoRX, 5, 2), entry);
}

bool LinkEditorWindow::List1_shown() const {
    return editor_->UTILIZZATORE == "MESSAGGI";
}

void LinkEditorWindow::List1_select(int index, bool selected) {
    if (index < 0 || index >= static_cast<int>(List1.size())) return;
    const auto n = static_cast<std::size_t>(List1[static_cast<std::size_t>(index)].item_data);
    if (n >= 1 && n <= 96) editor_->messages.set(n - 1, selected);
}

void LinkEditorWindow::Image4_1_Click() {
    if (DA_CONFERMARE != "SI") return;
    links::LinkEditor& e = *editor_;
    Save result = e.COLLEGA(false);
    if (result == Save::Exists && session_.ask(Text::LINK_EXISTS_UPDATE, Text::OVERWRITE))
        result = e.COLLEGA(true);
    switch (result) {
        case Save::SetsValue:
            session_.message(Text::COMMAND_ALREADY_SETS_VALUE, Text::INCONSISTENCY_TITLE);
            break;
        case Save::NoMessages:
            session_.message(Text::LINK_NO_MESSAGE_SELECTED, Text::TITLE_ATTENTION_SPACED);
            return;  // nothing stored, the link still waits
        case Save::NeedsAdvanced:
            session_.message(Text::NO_SETTER_SELECTED_OPTIONS, Text::INCONSISTENCY_TITLE);
            return;
        default:
            break;
    }
    RICARICO_OGGETTI();
}

int LinkEditorWindow::find_entry(const std::vector<store::ListEntry>& list,
                                 const std::string& text) const {
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list[i].text == text && list[i].item_data != store::kGroupHeaderItemData)
            return static_cast<int>(i);
    return -1;
}

void LinkEditorWindow::RICARICO_OGGETTI() {
    // The installer's place and filters stay: both points are chosen again.
    const std::string command = editor_->COMANDO;
    const std::string user = editor_->UTILIZZATORE == "MESSAGGI" ? "" : editor_->UTILIZZATORE;
    const int user_row = user_index;
    CARICA_COMBO();
    if (!user.empty()) {
        Combo_UTILIZZATORI_Click(find_entry(Combo_UTILIZZATORI, user));
    } else if (user_row >= 0 && editor_->UTILIZZATORE == "MESSAGGI") {
        Combo_UTILIZZATORI_Click(user_row);
    }
    if (!command.empty()) Combo_COMANDI_Click(find_entry(Combo_COMANDI, command));
    reset_mode_area();
    ISTRUZIONE = session_.texts.text(Text::LINK_FIRST_STEP);
    Label9.clear();
}

std::string LinkEditorWindow::link_text(std::int64_t id) {
    session_.links.CERCA_LINK_PER_ID(id, std::max(2, session_.LIVELLO));
    return session_.links.ESITO_LINK == store::kEsitoEsisteGia ? session_.links.TESTO_LINK : "";
}

void LinkEditorWindow::list_double_click(std::int64_t id) {
    reset_mode_area();
    Label9.clear();
    Frame6 = true;
    Label21 = link_text(id);
    Label23 = std::to_string(id);
    ISTRUZIONE = session_.texts.text(Text::HELP_LINK_ACTIONS);
}

void LinkEditorWindow::LISTA_COMANDANTI_Click(int index) {
    if (index < 0 || index >= static_cast<int>(LISTA_COMANDANTI.size())) return;
    const int found =
        find_entry(Combo_COMANDI, LISTA_COMANDANTI[static_cast<std::size_t>(index)].text);
    if (found >= 0) {
        Combo_COMANDI_Click(found);
        return;
    }
    editor_->clear_command();
    command_index = -1;
    Label9.clear();
    LISTA_COMANDATI.clear();
    reset_mode_area();
}

void LinkEditorWindow::LISTA_COMANDATI_Click(int index) {
    if (index < 0 || index >= static_cast<int>(LISTA_COMANDATI.size())) return;
    const int found =
        find_entry(Combo_UTILIZZATORI, LISTA_COMANDATI[static_cast<std::size_t>(index)].text);
    if (found >= 0) {
        Combo_UTILIZZATORI_Click(found);
        return;
    }
    editor_->clear_user();
    user_index = -1;
    Label9.clear();
    reset_mode_area();
}

void LinkEditorWindow::Label24_Click(int index) {
    if (index == 0) {
        if (session_.ask(Text::DELETE_LINK_CONFIRM, Text::TITLE_WARNING)) {
            editor_->CANCELLA(static_cast<std::int64_t>(basic::val(Label23)));
            LISTA_COMANDATI.clear();
            LISTA_COMANDANTI.clear();
        }
        Frame6 = false;
        RICARICO_OGGETTI();
        return;
    }
    Frame6 = false;
    ISTRUZIONE = session_.texts.text(Text::LINK_FIRST_STEP);
}

void LinkEditorWindow::Label29_Click() {
    // The advanced options have a window of their own, yet to come.
    session_.message(Text::NOT_YET_AVAILABLE, Text::TITLE_WARNING, {},
                     session_.texts[Text::ADVANCED_OPTIONS_TITLE]);
}

void LinkEditorWindow::Label26_Click(int index) {
    const std::string& key = index == 0 ? Label26_0 : Label26_1;
    const std::size_t slash = key.find('/');
    if (key.empty() || slash == std::string::npos || !host_.open_module) return;
    const int number = static_cast<int>(basic::val(key.substr(slash + 1)));
    host_.open_module(key.substr(0, 6), index == 1 ? number + 8 : number);
}

void LinkEditorWindow::module_closed() {
    CARICA_COMBO();
    RICARICO_OGGETTI();
    Check3_Click(false);
}

void LinkEditorWindow::Check3_Click(bool ticked) {
    session_.receiver.flags.ACQUISIZIONE_PUNTO = ticked ? "SI" : "N0";
    Check3 = ticked && session_.on_line();
    if (!session_.on_line()) {
        Label25 = session_.texts.text(Text::LINE_OFFLINE);
        session_.receiver.flags.ACQUISIZIONE_PUNTO = "N0";
    }
}

void LinkEditorWindow::Image4_2_Click() {
    session_.receiver.flags.ACQUISIZIONE_PUNTO = "N0";
    if (host_.show_hub) host_.show_hub();
}

}  // namespace filo::app
