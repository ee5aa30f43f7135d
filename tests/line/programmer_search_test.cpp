#include "bus/programmer_search.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "bus/virtual_line.hpp"
#include "platform/pty.hpp"
#include "platform/serial_port.hpp"
#include "support/fake_serial_port.hpp"
#include "support/temp_dir.hpp"

namespace filo::bus {
namespace {

using testing::Device;

class SearchTest : public ::testing::Test {
  protected:
    ProgrammerSearch search_over(std::map<std::string, Device> devices) {
        devices_ = std::move(devices);
        return ProgrammerSearch(
            clock_, dir_.path(),
            [this](const std::string& path) -> std::unique_ptr<platform::SerialPort> {
                opened_.push_back(path);
                if (!devices_.count(path) || devices_[path] == Device::Missing)
                    throw platform::PortError(path, "no such device");
                if (devices_[path] == Device::Busy) throw platform::PortBusy(path);
                return std::make_unique<testing::FakeSerialPort>(
                    path, devices_[path],
                    [this](double t) { clock_.advance_to(clock_.now() + t); });
            });
    }
    VirtualClock clock_;
    testing::TempDir dir_;
    std::map<std::string, Device> devices_;
    std::vector<std::string> opened_;
};

TEST_F(SearchTest, TheFirstPortThatEchoesWinsAndEveryPortIsTried) {
    auto search = search_over({{"/dev/ttyS0", Device::Silent},
                               {"/dev/ttyUSB0", Device::Missing},
                               {"/dev/ttyACM0", Device::Busy},
                               {"/dev/ttyUSB1", Device::Programmer},
                               {"/dev/ttyUSB2", Device::Programmer}});
    const std::vector<std::string> ports = {"/dev/ttyS0", "/dev/ttyUSB0", "/dev/ttyACM0",
                                            "/dev/ttyUSB1", "/dev/ttyUSB2"};
    EXPECT_EQ(search.CONNETTI(ports), "/dev/ttyUSB1");
    EXPECT_EQ(opened_, ports);
    EXPECT_EQ(search.busy_ports, std::vector<std::string>{"/dev/ttyACM0"});
    // A silent port costs its 0.1 s; the ports after the programmer are still tried.
    EXPECT_NEAR(clock_.now(), 0.1 + 0.0, 1e-9);
    EXPECT_FALSE(std::filesystem::exists(dir_ / "CONFIGURAZIONI.TTN"));
}

TEST_F(SearchTest, AnyDeviceThatEchoesTheDigitsIsTakenForTheProgrammer) {
    auto search = search_over({{"/dev/ttyACM0", Device::Modem}});
    EXPECT_EQ(search.CONNETTI({"/dev/ttyACM0"}), "/dev/ttyACM0");
    auto none = search_over({{"/dev/ttyS0", Device::Silent}});
    EXPECT_EQ(none.CONNETTI({"/dev/ttyS0", "/dev/nothing"}), "");
    EXPECT_EQ(none.PORTA_COM, "");
}

TEST_F(SearchTest, AMarkerLeftBehindIsToldUntilTheNextSearch) {
    EXPECT_FALSE(previous_search_failed(dir_.path()));  // no file is no error
    std::ofstream(dir_ / "CONFIGURAZIONI.TTN") << "ERRORE1\r\n";
    EXPECT_TRUE(previous_search_failed(dir_.path()));
    EXPECT_TRUE(previous_search_failed(dir_.path()));  // telling it removes nothing
    std::ofstream(dir_ / "CONFIGURAZIONI.TTN") << "qualcos'altro\n";
    EXPECT_FALSE(previous_search_failed(dir_.path()));
    std::ofstream(dir_ / "CONFIGURAZIONI.TTN") << "ERRORE1\n";
    auto search = search_over({{"/dev/ttyUSB0", Device::Programmer}});
    // While the search runs the marker stands.
    bool marker_seen = false;
    search.on_port = [&](std::size_t, const std::string&) {
        marker_seen = previous_search_failed(dir_.path());
    };
    search.CONNETTI({"/dev/ttyUSB0"});
    EXPECT_TRUE(marker_seen);
    EXPECT_FALSE(previous_search_failed(dir_.path()));
}

// The port is this program's alone while it is open.
TEST(SerialPort, AHeldPortIsRefusedAsBusyUntilItIsClosed) {
    platform::PseudoTerminal pty;
    auto held = platform::open_serial_port(pty.slave_path());
    EXPECT_THROW(platform::open_serial_port(pty.slave_path()), platform::PortBusy);
    held.reset();
    EXPECT_NO_THROW(platform::open_serial_port(pty.slave_path()));
}

}  // namespace
}  // namespace filo::bus
