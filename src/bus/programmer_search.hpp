#pragma once
// Finding the programmer: on each port in turn, the search digits are sent
// and the port whose device echoes them is the programmer's. A marker file
// stands while a search runs, so that a search that brought the program down
// is told at the next start.
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace filo::platform {
class Clock;
class SerialPort;
}  // namespace filo::platform

namespace filo::bus {

using PortOpener = std::function<std::unique_ptr<platform::SerialPort>(const std::string& path)>;

// The marker's name in the data directory, and its one line.
inline constexpr std::string_view kSearchMarker = "CONFIGURAZIONI.TTN";
inline constexpr std::string_view kSearchMarkerLine = "ERRORE1";

// True when a previous search left its marker behind: a device on some port
// upset it. Reading it changes nothing; the next search removes it.
bool previous_search_failed(const std::filesystem::path& data_directory);

class ProgrammerSearch {
  public:
    ProgrammerSearch(const platform::Clock& clock, std::filesystem::path data_directory,
                     PortOpener opener);

    // The port in use, "" when none: the first port, in the order given,
    // whose device echoes the digits. Every port tried is closed again.
    std::string PORTA_COM;

    // CONNETTI: the search over the ports, with its marker.
    std::string CONNETTI(const std::vector<std::string>& ports);
    // The ports skipped because another program holds them, in order.
    std::vector<std::string> busy_ports;
    // Told of each port as it is tried (for a progress display).
    std::function<void(std::size_t index, const std::string& port)> on_port;

  private:
    bool echoes(const std::string& port);

    const platform::Clock& clock_;
    std::filesystem::path marker_;
    PortOpener opener_;
};

}  // namespace filo::bus
