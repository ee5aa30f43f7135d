#pragma once
// SERIALE: the programmer's port, chosen from the system's list (or typed
// as a path, such as a pseudo-terminal) or found by the automatic search.
#include <functional>
#include <string>
#include <vector>

#include "bus/programmer_search.hpp"
#include "platform/serial_port.hpp"

namespace filo::app {

class Session;

class Connection {
  public:
    using PortLister = std::function<std::vector<platform::PortInfo>()>;

    Connection(Session& session, PortLister lister, bus::PortOpener opener);

    // ELENCO_COM: the ports of the system, by caption and path.
    void ELENCO_COM();
    std::vector<platform::PortInfo> ComboCOM;

    // ComboCOM_Click, or a path typed: true when the port is open and in
    // use (the window hides); false after the message, the port at 0.
    bool choose(const std::string& path);

    // CONNETTI: the automatic search over the listed ports and any path the
    // user added. True when the programmer was found and its port opened.
    bool CONNETTI(const std::vector<std::string>& extra_paths = {});
    // Told of each port as the search tries it.
    std::function<void(std::size_t index, std::size_t count)> on_progress;

    // Label1: the line's state.
    std::string Label1;

  private:
    Session& session_;
    PortLister lister_;
    bus::PortOpener opener_;
};

}  // namespace filo::app
