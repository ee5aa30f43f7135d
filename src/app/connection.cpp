#include "app/connection.hpp"

#include <algorithm>

#include "app/session.hpp"
#include "platform/clock.hpp"

namespace filo::app {

using texts::Text;

Connection::Connection(Session& session, PortLister lister, bus::PortOpener opener)
    : session_(session), lister_(std::move(lister)), opener_(std::move(opener)) {
    Label1 = session_.STATO_LINEA;
}

void Connection::ELENCO_COM() {
    ComboCOM = lister_ ? lister_() : std::vector<platform::PortInfo>{};
    Label1.clear();
}

bool Connection::choose(const std::string& path) {
    if (path.empty() || !session_.use_port(path)) {
        if (!path.empty() && session_.port_busy)
            session_.message(Text::PORT_BUSY, Text::PORT_ASSIGN_TITLE, {}, path);
        else
            session_.message(Text::PORT_CHECK_SYSTEM, Text::PORT_ASSIGN_TITLE);
        Label1 = session_.STATO_LINEA;
        return false;
    }
    Label1 = session_.STATO_LINEA;
    return true;
}

bool Connection::CONNETTI(const std::vector<std::string>& extra_paths) {
    if (bus::previous_search_failed(session_.data_directory()))
        session_.message(Text::PORT_SEARCH_CONFLICT, Text::TITLE_FILO);
    // The search opens every port itself: the one in use is closed first.
    session_.close_port();
    std::vector<std::string> ports;
    for (const platform::PortInfo& p : lister_ ? lister_() : std::vector<platform::PortInfo>{})
        ports.push_back(p.path);
    for (const std::string& extra : extra_paths)
        if (!extra.empty() && std::find(ports.begin(), ports.end(), extra) == ports.end())
            ports.push_back(extra);
    platform::SteadyClock clock;
    bus::ProgrammerSearch search(clock, session_.data_directory(), opener_);
    search.on_port = [&](std::size_t index, const std::string&) {
        if (on_progress) on_progress(index, ports.size());
    };
    const std::string found = search.CONNETTI(ports);
    if (!search.busy_ports.empty()) {
        std::string busy;
        for (const std::string& p : search.busy_ports) busy += (busy.empty() ? "" : ", ") + p;
        session_.message(Text::PORT_BUSY_SKIPPED, Text::PORT_ASSIGN_TITLE, {}, busy);
    }
    const bool on_line = !found.empty() && session_.use_port(found);
    Label1 = session_.STATO_LINEA;
    return on_line;
}

}  // namespace filo::app
