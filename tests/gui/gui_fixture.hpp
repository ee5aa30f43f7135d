#pragma once
// A session over a simulated line, with message boxes that are recorded and
// answered from a script, for the windows and their tool objects.
#include <gtest/gtest.h>

#include <deque>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/port_host.hpp"
#include "app/session.hpp"
#include "bus/receive_assembler.hpp"
#include "bus/virtual_line.hpp"
#include "platform/serial_port.hpp"
#include "support/temp_dir.hpp"

namespace filo::testing {

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

// A programmer's installation behind the virtual line: modules that answer
// the sweep's probes.
bus::VirtualLine::Peer installation(std::vector<std::pair<int, int>> modules);

class SessionTest : public ::testing::Test {
  protected:
    SessionTest();
    // Makes the project <name>.TRN in the data directory and opens it.
    void open_new_project(const std::string& name = "casa");
    // Enters a module with the rows of its type, as the project window does.
    void add_module(const std::string& code);
    std::vector<std::string> shown_texts() const;

    TempDir dir;
    bus::ReceiveAssembler receiver;
    bus::VirtualLine line{receiver};
    FakePortHost port{line};
    RecordingMessages messages;
    app::Session session{dir.path(), port, receiver, messages};
};

}  // namespace filo::testing
