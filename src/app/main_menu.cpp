#include "app/main_menu.hpp"

#include "app/levels.hpp"
#include "app/session.hpp"
#include "bus/programmer_search.hpp"
#include "bus/receive_assembler.hpp"

namespace filo::app {

using texts::Text;

Text level_name(int level) {
    switch (level) {
        case 1:
            return Text::LEVEL_SMART;
        case 2:
            return Text::LEVEL_PROFESSIONAL;
        default:
            return Text::LEVEL_ADVANCED;
    }
}

Text level_help(int level) {
    switch (level) {
        case 1:
            return Text::HELP_LEVEL_SMART;
        case 2:
            return Text::HELP_LEVEL_PROFESSIONAL;
        default:
            return Text::HELP_LEVEL_ADVANCED;
    }
}

void MainMenu::load() {
    Session& s = session_;
    s.receiver.flags.MONITOR_SOSPESO = "SI";
    if (s.texts.SIGLA_LINGUA.empty()) s.texts.ITALIANO();
    s.AIUTO = true;
    s.MODO_ESPERTO.clear();
    if (s.LIVELLO == 0) s.LIVELLO = 3;
    Label10 = s.texts.text(Text::HELP_PANEL);
    s.project.DATABASE_APERTO.clear();
    if (!s.on_line()) s.STATO_LINEA = s.texts.text(Text::LINE_OFFLINE);
    // A search that brought the program down left its marker: say so, and
    // leave the marker for the next search to remove.
    if (bus::previous_search_failed(s.data_directory()))
        s.message(Text::PORT_SEARCH_CONFLICT, Text::TITLE_FILO);
}

std::string MainMenu::caption(Entry entry) const {
    const auto& t = session_.texts;
    switch (entry) {
        case OpenProject:
            return t.text(Text::MENU_OPEN_PROJECT);
        case NewProject:
            return t.text(Text::MENU_NEW_PROJECT);
        case Connect:
            return connect_caption();
        case Exit:
            return t.text(Text::MENU_EXIT);
    }
    return {};
}

std::string MainMenu::connect_caption() const {
    return session_.texts.text(session_.on_line() ? Text::MENU_DISCONNECT : Text::MENU_CONNECT);
}

void MainMenu::choose_level(int index) {
    if (index < 0 || index > 2) return;
    session_.LIVELLO = index + 1;
}

void MainMenu::choose_language(int index) {
    auto& t = session_.texts;
    switch (index) {
        case 1:
            t.SPAGNOLO();
            break;
        case 2:
            t.FRANCESE();
            break;
        case 3:
            t.TEDESCO();
            break;
        default:
            t.ITALIANO();
            break;  // 0, and the fifth image
    }
    Label8.clear();
    Label10 = t.text(Text::HELP_PANEL);
    session_.STATO_LINEA = session_.on_line() ? t.text(Text::LINE_ONLINE) + session_.PORTA_COM
                                              : t.text(Text::LINE_OFFLINE);
}

void MainMenu::toggle_help() {
    session_.AIUTO = !session_.AIUTO;
}

void MainMenu::hover_entry(Entry entry) {
    if (!session_.AIUTO) return;
    static constexpr Text kHelp[] = {Text::HELP_OPEN_PROJECT, Text::HELP_NEW_PROJECT,
                                     Text::HELP_CONNECTION, Text::HELP_EXIT};
    Label10 = session_.texts.text(kHelp[entry]);
}

void MainMenu::hover_level(int index) {
    if (!session_.AIUTO || index < 0 || index > 2) return;
    Label10 = session_.texts.text(level_help(index + 1));
}

void MainMenu::command_clicked() {
    session_.CONTROLLO_CODICE.clear();
    session_.MODO_ESPERTO.clear();
}

bool MainMenu::open_project(const std::filesystem::path& file) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) {
        session_.message_text(session_.texts.text(Text::PROJECT_MISSING), "");
        return false;
    }
    store::Project& p = session_.project;
    p.NOME_PROGETTO = store::project_name_of(file);
    p.PERCORSO_PROGETTO = file.string();
    // Another file is another database: the project window opens it anew.
    p.DATABASE_APERTO.clear();
    return true;
}

bool MainMenu::connect_clicked() {
    if (session_.on_line()) {
        session_.close_port();
        return false;
    }
    return true;
}

}  // namespace filo::app
