#pragma once
// The sweep of the installation: every bus address from 1 to 255 is asked
// what module stands there, one probe a tick of the caller's timer, and the
// answers are collected as codes. Between ticks the caller's event loop
// runs, and the collector takes the answers from the receive assembly.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace filo::bus {
class Line;
}

namespace filo::commissioning {

// An identification answer as the collector takes it: a finished frame of
// exactly 13 characters with kind "8" and command "FF" gives its address
// and its value (the module's type) as a 6-character code.
std::optional<std::string> answered_code(std::string_view frame);

// The codes found that the project lacks: a code counts as known when some
// code of the project equals its first 6 characters.
std::vector<std::string> codes_not_in_project(const std::vector<std::string>& found,
                                              const std::vector<std::string>& project_codes);

class InstallationScan {
  public:
    // The first tick comes this long after the start; later ticks come
    // after the interval each tick returns.
    static constexpr int kFirstTickMs = 100;
    static constexpr int kProbeIntervalMs = 200;
    static constexpr int kLastAddress = 255;

    // Installs the collector on the line's receive assembly.
    explicit InstallationScan(bus::Line& line);
    ~InstallationScan();
    InstallationScan(const InstallationScan&) = delete;
    InstallationScan& operator=(const InstallationScan&) = delete;

    // The last address probed: 0 at the start, 256 when the sweep is done.
    int CONTATORE_SCANSIONE = 0;
    // The codes found, each once, in the order they came.
    std::vector<std::string> List1;

    // Clears what was found and turns the collector on. Returns the time in
    // milliseconds to the first tick.
    int start();
    // One probe. Returns the time to the next tick, or nothing when the
    // last address has been asked: the collector is then off and the bus
    // has been told that programming mode is over.
    std::optional<int> tick();
    // Stops between two ticks; what was collected stays.
    void stop();
    bool running() const { return running_; }

  private:
    void collect();

    bus::Line& line_;
    bool running_ = false;
};

}  // namespace filo::commissioning
