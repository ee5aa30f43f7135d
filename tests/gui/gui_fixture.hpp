#pragma once
// A session over a simulated line, with message boxes that are recorded and
// answered from a script, for the windows and their tool objects.
#include <gtest/gtest.h>

#include <QSize>
#include <QWidget>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/port_host.hpp"
#include "app/qt_port_host.hpp"
#include "app/session.hpp"
#include "bus/receive_assembler.hpp"
#include "bus/virtual_line.hpp"
#include "platform/clock.hpp"
#include "platform/serial_port.hpp"
#include "support/frames.hpp"
#include "support/temp_dir.hpp"

namespace filo::sim {
class Simulator;
class SimServer;
struct SimModule;
}  // namespace filo::sim
namespace filo::app {
class MDIForm1;
class ProgrammingWindow;
struct AppServices;
}  // namespace filo::app

namespace filo::testing {

// The child of that objectName, which must be there.
template <typename T = QWidget>
T* child(QWidget* parent, const char* name) {
    T* found = parent->findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
}

struct Shown {
    std::string text;
    std::string title;
    bool operator==(const Shown&) const = default;
};

class RecordingMessages final : public app::Messages {
  public:
    void show(const std::string& text, const std::string& title) override {
        shown.push_back({text, title});
    }
    bool ask(const std::string& text, const std::string& title) override {
        asked.push_back({text, title});
        if (answers.empty()) return false;
        const bool a = answers.front();
        answers.pop_front();
        return a;
    }
    std::vector<Shown> shown;
    std::vector<Shown> asked;
    std::deque<bool> answers;
};

// Ports by path: the known ones open, others fail as a missing device does.
class FakePortHost final : public app::PortHost {
  public:
    explicit FakePortHost(bus::VirtualLine& line) : line_(line) {}
    void open(const std::string& path) override {
        if (!openable.count(path)) throw platform::PortError(path, "no such device");
        is_open = path;
    }
    void close() override { is_open.clear(); }
    bus::LineIo& io() override { return line_; }

    std::set<std::string> openable = {"/dev/ttyUSB0", "/dev/pts/7"};
    std::string is_open;

  private:
    bus::VirtualLine& line_;
};

class SessionTest : public ::testing::Test {
  protected:
    SessionTest();
    // Makes the project <name>.TRN in the data directory and opens it.
    void open_new_project(const std::string& name = "casa");
    // Enters a module with the rows of its type, as the project window does.
    void add_module(const std::string& code);
    std::vector<std::string> shown_texts() const;
    // The rows of the project's table, of one module when a code is given.
    std::int64_t rows(const std::string& table, const std::string& codice = "");

    TempDir dir;
    bus::ReceiveAssembler receiver;
    bus::VirtualLine line{receiver};
    FakePortHost port{line};
    RecordingMessages messages;
    app::Session session{dir.path(), port, receiver, messages};
};

// The main window's services when no modal dialog is to be answered: each
// ends at once with its result.
app::AppServices services_without_dialogs();

// A session on the application's own line: the port read through Qt's event
// loop, for a pseudo-terminal served in this process.
class QtLineTest : public ::testing::Test {
  protected:
    TempDir dir;
    bus::ReceiveAssembler receiver;
    platform::SteadyClock clock;
    app::QtPortHost port{receiver, clock};
    RecordingMessages messages;
    app::Session session{dir.path(), port, receiver, messages};
};

// The demo project, made in the data directory; its simulated installation
// on a real pseudo-terminal and the main window on its project window, as
// the test asks for them.
class DemoInstallationTest : public QtLineTest {
  protected:
    DemoInstallationTest();
    ~DemoInstallationTest() override;
    // Opens the demo project and serves the modules it holds, and those
    // also on the bus, on the port in use.
    void connect_installation(std::vector<std::string> also_on_bus = {});
    // The main window, of the given size if any, on the project window.
    void show_project_window(QSize size = {});
    // The simulated module of that code as it stands now (empty code if none).
    sim::SimModule module_on_bus(const std::string& code);
    // Programming started from the project window, once it has ended.
    const app::ProgrammingWindow& program_from_project_window();

    std::filesystem::path demo_file;
    std::unique_ptr<sim::Simulator> simulator;
    std::unique_ptr<sim::SimServer> server;
    std::unique_ptr<app::MDIForm1> main;
};

}  // namespace filo::testing
