#pragma once
// The demo: a small project in the data directory and a simulated
// installation of the same modules (and one more, for the scan to find),
// served on a pseudo-terminal inside this process and connected as the
// programmer's port.
#include <memory>
#include <string>
#include <vector>

namespace filo::sim {
class Simulator;
class SimServer;
}  // namespace filo::sim

namespace filo::app {

class Session;

// The demo project's name, and the modules it holds.
inline constexpr const char* kDemoProject = "DEMO";
const std::vector<std::string>& demo_project_modules();
// The module that stands on the demo's bus but not in its project.
inline constexpr const char* kDemoSpareModule = "006015";
// The demo's line runs at the programmer's speed, bit/s.
inline constexpr int kDemoLineSpeed = 19200;

// Makes the demo project in the data directory unless it is there; its
// modules get their rows and the names of a small house. Throws on a fault.
void make_demo_project(Session& session);

class Demo {
  public:
    explicit Demo(Session& session);
    ~Demo();
    Demo(const Demo&) = delete;
    Demo& operator=(const Demo&) = delete;

    // Opens the demo project (made when missing), starts the simulated
    // installation and connects to it. False, after the message, when
    // something failed; what worked stays (an open project off line).
    bool start();
    // The simulated port's path, "" before start().
    std::string port_path() const;
    // The codes of the simulated modules, empty before start().
    std::vector<std::string> module_codes() const;
    // A control line of the simulator ("press 00121F 3"): "" when done,
    // else why not.
    std::string control(const std::string& line);

  private:
    Session& session_;
    std::unique_ptr<sim::Simulator> simulator_;
    std::unique_ptr<sim::SimServer> server_;
};

}  // namespace filo::app
