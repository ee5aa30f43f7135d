#include "app/project_hub.hpp"

#include <algorithm>
#include <cctype>

#include "app/module_entry.hpp"
#include "app/project_errors.hpp"
#include "app/session.hpp"
#include "bus/module_code.hpp"
#include "commissioning/scan.hpp"
#include "store/powerline.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

namespace {

struct EntryTexts {
    int index;
    Text caption;
    Text help;
};
constexpr EntryTexts kEntries[] = {
    {0, Text::ADD_MODULE, Text::HELP_ADD_MODULE},
    {1, Text::EDIT_MODULE, Text::HELP_EDIT_MODULE},
    {2, Text::LINK_MODULES, Text::HELP_LINK_MODULES},
    {3, Text::UTILITY, Text::SELECT_LEFT_BUTTON},
    {4, Text::PROGRAM_INSTALLATION, Text::HELP_PROGRAM},
    {5, Text::BACK_TO_START, Text::HELP_BACK_TO_START},
    {6, Text::PRINT_COMMANDS, Text::HELP_PRINT_COMMANDS},
    {7, Text::PRINT_COMMANDS_EXTENDED, Text::HELP_PRINT_COMMANDS_EXTENDED},
    {8, Text::PRINT_OUTPUTS, Text::HELP_PRINT_OUTPUTS},
    {9, Text::PRINT_OUTPUTS_EXTENDED, Text::HELP_PRINT_OUTPUTS_EXTENDED},
    {10, Text::PRINT_MODULES, Text::HELP_PRINT_MODULES},
    {11, Text::MENU_CONNECTION, Text::HELP_CONNECTION},
    {12, Text::MENU_SCAN, Text::HELP_SCAN},
    {13, Text::MENU_EXPORT, Text::MENU_EXPORT},
    {15, Text::HUB_WIZARD, Text::HUB_WIZARD},
};

const EntryTexts* find_entry(int index) {
    for (const EntryTexts& e : kEntries)
        if (e.index == index) return &e;
    return nullptr;
}

}  // namespace

std::optional<Text> ProjectHub::entry_caption(int index) {
    const EntryTexts* e = find_entry(index);
    return e ? std::optional<Text>(e->caption) : std::nullopt;
}

std::optional<Text> ProjectHub::entry_help(int index) {
    const EntryTexts* e = find_entry(index);
    return e ? std::optional<Text>(e->help) : std::nullopt;
}

ProjectHub::ProjectHub(Session& session, HubHost host)
    : session_(session), host_(std::move(host)) {}

ProjectHub::~ProjectHub() = default;

const std::string& ProjectHub::CODICE_MODULO() const {
    return session_.modules.CODICE_MODULO;
}

bool ProjectHub::load() {
    Session& s = session_;
    s.PROGETTO_CHIUSO = "NO";
    Frame2 = Frame3 = Frame4 = scan_frame = false;
    s.AIUTO = false;
    Label10 = s.texts.text(Text::SELECT_LEFT_BUTTON);
    Label33 = s.texts.text(Text::MENU_SCAN);
    if (s.project.DATABASE_APERTO != "SI" || !s.project.is_open()) {
        if (!open_project_file(s, s.project.PERCORSO_PROGETTO)) {
            s.PROGETTO_CHIUSO = "SI";
            return false;
        }
    }
    try {
        // Power-line modulators get their command name and link each time.
        store::Powerline(s.project, s.links).POWERLINE();
    } catch (const std::exception& e) {
        s.message(Text::PROJECT_UNREADABLE, Text::TITLE_WARNING, {}, e.what());
    }
    CERCA_MODULI();
    return true;
}

void ProjectHub::CERCA_MODULI() {
    Session& s = session_;
    try {
        lists = s.modules.ELENCO_MODULI();
    } catch (const store::ProjectError& e) {
        tell_project_fault(s, e);
    } catch (const sqlite::SqlError& e) {
        tell_project_fault(s, e);
    }
    caption = s.texts.text(Text::HUB_CAPTION_PREFIX) + s.texts.text(Text::PROJECT_COLON) +
              s.project.NOME_PROGETTO + s.texts.text(Text::HUB_MODULES_PRESENT) +
              std::to_string(s.modules.N_MODULI);
}

void ProjectHub::unload() {
    if (scan_) scan_->stop();
    session_.PROGETTO_CHIUSO = "SI";
}

void ProjectHub::not_yet_available(Text what) {
    session_.message(Text::NOT_YET_AVAILABLE, Text::TITLE_WARNING, {}, session_.texts[what]);
}

bool ProjectHub::ensure_line() {
    if (!session_.on_line() && host_.show_connection) host_.show_connection();
    return session_.on_line();
}

void ProjectHub::menu_click(int index) {
    Frame2 = Frame3 = false;
    // While the scan runs only its own entry answers: it is the way to stop it.
    if (scanning() && index != Scan) return;
    if (index == AddModule || index == EditModule || index == LinkModules || index == Program ||
        index == BackToStart) {
        Frame4 = false;
        if (host_.close_report) host_.close_report();
    }
    const bool has_modules = session_.modules.PROGETTO_VUOTO == "NO";
    switch (index) {
        case AddModule:
            Frame2 = true;
            break;
        case EditModule:
            Frame3 = has_modules;
            break;
        case LinkModules:
            if (host_.show_link_editor)
                host_.show_link_editor();
            else
                not_yet_available(Text::LINK_MODULES);
            break;
        case Utility:
            Frame4 = true;
            break;
        case Program:
            if (!has_modules || !ensure_line()) break;
            if (host_.show_programming) host_.show_programming();
            break;
        case BackToStart:
            unload();
            if (host_.show_main_menu) host_.show_main_menu();
            break;
        case Connection:
            if (host_.show_connection) host_.show_connection();
            break;
        case Scan:
            start_or_stop_scan();
            break;
        case PrintCommands:
        case PrintCommands + 1:
        case PrintCommands + 2:
        case PrintCommands + 3:
        case PrintModules:
            if (host_.show_report) host_.show_report(index - PrintCommands + 1);
            break;
        // Without a window to show (a host that has none) they say so.
        case Export:
            if (host_.show_export)
                host_.show_export();
            else
                not_yet_available(Text::MENU_EXPORT);
            break;
        case Wizard:
            if (!host_.show_clone) {
                not_yet_available(Text::HUB_WIZARD);
                break;
            }
            host_.show_clone();
            CERCA_MODULI();
            break;
        default:
            if (const EntryTexts* e = find_entry(index)) not_yet_available(e->caption);
            break;
    }
}

void ProjectHub::hover(int index) {
    if (!session_.AIUTO) return;
    if (const EntryTexts* e = find_entry(index)) Label10 = session_.texts.text(e->help);
}

void ProjectHub::monitor_click() {
    if (!ensure_line()) return;
    if (host_.show_monitor) host_.show_monitor();
}

std::optional<char> ProjectHub::filter_key(char key, std::size_t current_length) {
    if (key == '\b') return key;
    if (current_length >= 8) return std::nullopt;
    const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(key)));
    if ((upper >= '0' && upper <= '9') || (upper >= 'A' && upper <= 'F')) return upper;
    return std::nullopt;
}

void ProjectHub::Text3_Change(const std::string& text) {
    Text3 = text;
    if (text.size() < 8) return;
    store::ModuleTable& m = session_.modules;
    m.set_codice_modulo(text.substr(0, 6));
    if (session_.CONTROLLO_CODICE == "NO" || bus::check_digits_match(text.substr(0, 8))) {
        Timer2 = true;
        return;
    }
    session_.message(Text::CODE_NOT_CORRECT, Text::TITLE_WARNING);
    Text3.clear();
}

void ProjectHub::Combo1_Click(const std::string& text) {
    if (combo1_held || text.size() < 6) return;
    session_.modules.set_codice_modulo(text.substr(0, 6));
    Timer2 = true;
}

bool ProjectHub::Combo2_Click(std::int64_t item_data) {
    if (item_data == 0) return false;
    // The item data is "1" and the code in hexadecimal: the 1 keeps the
    // code's leading zeros.
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string hex;
    for (std::int64_t v = item_data; v > 0; v /= 16) hex.insert(hex.begin(), kHex[v % 16]);
    if (hex.size() < 7) return false;
    session_.modules.set_codice_modulo(hex.substr(1, 6));
    Timer2 = true;
    return true;
}

void ProjectHub::Timer2_Timer() {
    Timer2 = false;
    store::ModuleTable& m = session_.modules;
    const std::string code = m.CODICE_MODULO, type = m.TIPO_MODULO;
    try {
        m.VERIFICA_MODULO(code);
    } catch (const std::exception&) {
        session_.message(Text::PROJECT_UNREADABLE, Text::TITLE_WARNING);
        return;
    }
    const std::string stored =
        m.STATO_MODULO == store::kNuovoModulo ? "" : m.RIGHE_MODULO.riga(1).codice.substr(4, 2);
    // A module number is taken once, whatever the type; a deleted one is free.
    if (!stored.empty() && stored != type && stored != "FF") {
        session_.message(Text::CODE_IN_USE, Text::TITLE_WARNING);
        Text3.clear();
        return;
    }
    Text3.clear();
    open_module(code, false);
    CERCA_MODULI();
}

void ProjectHub::open_module(const std::string& code, bool wait) {
    switch (open_module_entry(session_, code)) {
        case ModuleEntry::Added:
            session_.message(Text::MODULE_ENTERED_DEFAULT_ROWS, Text::TITLE_WARNING, {}, code);
            break;
        case ModuleEntry::OpenWindow:
            if (host_.show_module) host_.show_module(wait);
            break;
        case ModuleEntry::Refused:
            break;
    }
}

void ProjectHub::Label25_DblClick() {
    Timer7 = true;  // restarted: the next one must come within 2 s
    if (++CONTATORE_DOPPI_CLIC < 5) return;
    session_.MODO_ESPERTO = "SI";
    session_.CONTROLLO_CODICE = "NO";
    Label25 = "******************";
}

void ProjectHub::Timer7_Timer() {
    CONTATORE_DOPPI_CLIC = 0;
    Label25.clear();
    Timer7 = false;
}

bool ProjectHub::scanning() const {
    return scan_ && scan_->running();
}

void ProjectHub::start_or_stop_scan() {
    if (!ensure_line()) return;
    scan_frame = true;
    if (scanning()) {
        scan_->stop();
        Label33 = session_.texts.text(Text::MENU_SCAN);
        compare();
        return;
    }
    if (!scan_) scan_ = std::make_unique<commissioning::InstallationScan>(session_.line);
    Label33 = session_.texts.text(Text::SCAN_STOP);
    scan_status = session_.texts.text(Text::SCAN_RUNNING);
    List1.clear();
    List2.clear();
    scan_progress = 0;
    const int first = scan_->start();
    if (host_.schedule_scan_tick) host_.schedule_scan_tick(first);
}

void ProjectHub::scan_tick() {
    if (!scanning()) return;
    std::optional<int> next;
    try {
        next = scan_->tick();
    } catch (const std::exception& e) {
        // The port went away: the sweep ends with what it has.
        scan_->stop();
        session_.close_port();
        session_.message(Text::PORT_LOST, Text::TITLE_WARNING, {}, e.what());
    }
    List1 = scan_->List1;
    scan_progress =
        std::min(scan_->CONTATORE_SCANSIONE, commissioning::InstallationScan::kLastAddress);
    if (next) {
        if (host_.schedule_scan_tick) host_.schedule_scan_tick(*next);
        return;
    }
    Label33 = session_.texts.text(Text::MENU_SCAN);
    compare();
}

void ProjectHub::compare() {
    Session& s = session_;
    scan_status = s.texts.text(Text::SCAN_DONE);
    List1 = scan_->List1;
    combo1_held = true;
    CERCA_MODULI();
    List2 = commissioning::codes_not_in_project(List1, s.modules.ELENCO_CODICI);
    combo1_held = false;
    // The lists are read while the question is up: the window shows them first.
    if (host_.changed) host_.changed();
    if (!List2.empty() && s.ask(Text::SCAN_OFFER, Text::SCAN_OFFER_TITLE)) {
        for (std::size_t i = 0; i < List2.size(); ++i) {
            const std::string code = List2[i].substr(0, 6);
            s.modules.set_codice_modulo(code);
            s.modules.STATO_MODULO = store::kNuovoModulo;
            open_module(code, true);  // APRI_FORM: the scan waits for the window
            if (i + 1 < List2.size() && s.ask(Text::SCAN_SUSPEND, Text::SCAN_SUSPEND_TITLE)) break;
        }
    }
    // Form_Load again: the window shows the project as it is now.
    load();
}

}  // namespace filo::app
