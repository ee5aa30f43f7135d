// The simulator served on a real pseudo-terminal.
#include "sim/sim_server.hpp"

#include <gtest/gtest.h>

#include "bus/frame_builder.hpp"
#include "platform/serial_port.hpp"
#include "sim/sim_fixture.hpp"

namespace filo::sim {
namespace {

// Reads from the port until `expected` characters came or a second passed.
std::string read_for(platform::SerialPort& port, std::size_t expected) {
    std::string got;
    for (int i = 0; i < 20 && got.size() < expected; ++i) port.read(got, 0.05);
    return got;
}

TEST(SimServerTest, APortOpenedOnThePathTalksToTheSimulator) {
    Simulator simulator = testing::installation({"00121F"});
    SimServer server(simulator);
    EXPECT_EQ(server.path(), "");
    server.start();
    ASSERT_FALSE(server.path().empty());
    {
        auto port = platform::open_serial_port(server.path());
        port->write("ATE0\r0123ATE1\r");
        EXPECT_EQ(read_for(*port, 4), "0123");
        port->write(testing::full("(A00120000]"));
        const std::string answer = bus::identification_answer_frame(0x0012, 0x1F) + "OK";
        EXPECT_EQ(read_for(*port, answer.size()), answer);
        // A control line from another thread reaches the PC at once.
        EXPECT_EQ(server.control("press 00121F 2"), "");
        const std::string press = bus::input_event_frame(0x0012, 2, 251);
        EXPECT_EQ(read_for(*port, press.size()), press);
    }
    // A second client after the first closed.
    auto again = platform::open_serial_port(server.path());
    again->write(testing::full("(30012EC05]"));
    EXPECT_EQ(read_for(*again, 2), "OK");
    std::size_t frames = 0;
    server.inspect([&](const Simulator& s) { frames = s.bus().size(); });
    EXPECT_EQ(frames, 2u);
    server.stop();
    server.stop();
}

}  // namespace
}  // namespace filo::sim
