#pragma once
// The state of a run that the windows share: the texts, the open project,
// the level, the line. One object, built in main and passed to every window.
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "app/port_host.hpp"
#include "bus/line.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/project_files.hpp"
#include "texts/language_tables.hpp"

namespace filo::platform {
class SpeechEngine;
}
namespace filo::bus {
class LineIo;
class ReceiveAssembler;
}  // namespace filo::bus

namespace filo::app {

class Session {
  public:
    Session(std::filesystem::path data_directory, PortHost& port, bus::ReceiveAssembler& receiver,
            Messages& messages);
    ~Session();

    texts::LanguageTables texts;
    store::ProjectFiles files;
    store::Project project;
    store::ModuleTable modules{project};
    store::LinkTable links{project};
    bus::ReceiveAssembler& receiver;
    bus::Line line;
    // The voice of the line monitor; empty when the system has none.
    std::unique_ptr<platform::SpeechEngine> speech;

    // Programming level 1 SMART, 2 PROFESSIONALE, 3 AVANZATO; 0 before the
    // main menu first sets it.
    int LIVELLO = 0;
    bool AIUTO = true;
    bool SCHERMO_INTERO = false;
    // "NO" while the project window is loaded, "SI" after.
    std::string PROGETTO_CHIUSO;
    // "SI" after the gesture of the project window; the main menu clears it.
    std::string MODO_ESPERTO;
    // "NO": typed codes are taken without their check digits.
    std::string CONTROLLO_CODICE;
    // The port in use ("" none), and the caption of the line's state.
    std::string PORTA_COM;
    std::string STATO_LINEA;

    const std::filesystem::path& data_directory() const { return files.directory(); }

    // The one helper behind every message box: texts from the tables, with
    // what the message names put before or after it.
    void message(texts::Text text, texts::Text title, std::string_view before = {},
                 std::string_view after = {});
    void message_text(const std::string& text, const std::string& title);
    bool ask(texts::Text text, texts::Text title);
    bool ask_text(const std::string& text, const std::string& title);

    // Opens the port as the one in use: PORTA_COM and the on-line caption on
    // success; false, with the port closed and PORTA_COM "", when it fails.
    bool use_port(const std::string& path);
    // Set by the last use_port that failed because another program holds the port.
    bool port_busy = false;
    void close_port();
    bool on_line() const { return !PORTA_COM.empty(); }
    PortHost& port() { return port_; }

  private:
    PortHost& port_;
    Messages& messages_;
};

}  // namespace filo::app
