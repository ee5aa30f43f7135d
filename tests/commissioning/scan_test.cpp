#include "commissioning/scan.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "bus/checksum.hpp"
#include "bus/frame_builder.hpp"
#include "bus/line.hpp"
#include "bus/receive_assembler.hpp"
#include "bus/virtual_line.hpp"
#include "support/frames.hpp"

namespace filo::commissioning {
namespace {

// Modules (address, type) and how late they answer the probe.
struct Installation {
    std::vector<std::pair<int, int>> modules;
    double delay = 0.02;
};

bus::VirtualLine::Peer peer_of(const Installation& inst) {
    return testing::installation(inst.modules, inst.delay);
}

class ScanTest : public ::testing::Test {
  protected:
    void install(const Installation& inst) { io.set_peer(peer_of(inst)); }
    // Runs the sweep as the window's timer does, serving the line between
    // ticks; stops after the given number of ticks when asked.
    int run(int stop_after = -1) {
        int next = scan.start();
        int ticks = 0;
        for (;;) {
            io.serve_until(io.clock().now() + next / 1000.0, [] { return false; });
            if (ticks == stop_after) {
                scan.stop();
                return ticks;
            }
            const std::optional<int> n = scan.tick();
            ++ticks;
            if (!n) break;
            next = *n;
            if (ticks > 300) ADD_FAILURE() << "the sweep does not end";
        }
        // What comes after the last tick is still served by the event loop.
        io.serve_until(io.clock().now() + 1.0, [] { return false; });
        return ticks;
    }

    bus::ReceiveAssembler receiver;
    bus::VirtualLine io{receiver};
    bus::Line line{io, receiver};
    InstallationScan scan{line};
};

TEST_F(ScanTest, ProbesEveryAddressFromOneTo255AndClosesProgrammingMode) {
    install({});
    EXPECT_EQ(run(), 256);
    const auto& w = io.writes();
    // Each tick: programming mode, then the probe; the last tick closes it.
    ASSERT_EQ(w.size(), 2u * 255 + 2);
    EXPECT_EQ(w[0], std::string("(1E600000055]") + '\0');
    EXPECT_EQ(w[1], bus::with_checksum("[A0001"
                                       "0000]") +
                        '\0');
    EXPECT_EQ(w[2 * 254 + 1], bus::with_checksum("[A00FF0000]") + '\0');
    EXPECT_EQ(w[w.size() - 2], std::string("(1E600000055]") + '\0');
    EXPECT_EQ(w.back(), std::string("(366000000AA]") + '\0');
    EXPECT_EQ(scan.CONTATORE_SCANSIONE, 256);
    EXPECT_FALSE(scan.running());
    EXPECT_TRUE(scan.List1.empty());
    EXPECT_TRUE(receiver.flags.SCANSIONE_ATTIVA.empty());
    // 0.15 s of pause and 0.2 s to the next tick: about a minute and a half.
    EXPECT_NEAR(io.clock().now(), 0.1 + 255 * 0.35 + 0.15 + 1.0, 0.01);
    // The probe follows the pause, in which nothing is read.
    EXPECT_NEAR(io.write_times()[1] - io.write_times()[0], 0.15, 1e-9);
}

TEST_F(ScanTest, CollectsEachAnsweringModuleOnceInTheOrderOfAnswers) {
    const struct Case {
        const char* name;
        Installation installation;
        std::vector<std::string> found;
    } cases[] = {
        {"two modules", {{{0x12, 0x1F}, {0x80, 0x20}}}, {"00121F", "008020"}},
        {"same address, two types: both listed",
         {{{0x05, 0x1F}, {0x05, 0x4A}}},
         {"00051F", "00054A"}},
        {"first and last address", {{{0x01, 0x11}, {0xFF, 0x12}}}, {"000111", "00FF12"}},
        // Answering during the next tick's pause: it waits in the port and
        // is collected after it.
        {"late answer", {{{0x10, 0x1F}}, 0.3}, {"00101F"}},
    };
    for (const Case& c : cases) {  // a new start clears the list
        install(c.installation);
        run();
        EXPECT_EQ(scan.List1, c.found) << c.name;
    }
}

TEST_F(ScanTest, AStopKeepsWhatWasCollectedAndNothingMoreIsTaken) {
    install({{{0x02, 0x1F}, {0x40, 0x20}}});
    run(10);
    EXPECT_EQ(scan.List1, std::vector<std::string>{"00021F"});
    EXPECT_FALSE(scan.running());
    EXPECT_FALSE(scan.tick().has_value());
    // An answer after the stop adds nothing.
    receiver.feed(bus::identification_answer_frame(0x40, 0x20));
    EXPECT_EQ(scan.List1, std::vector<std::string>{"00021F"});
    // A new start clears the list.
    scan.start();
    EXPECT_TRUE(scan.List1.empty());
}

TEST(ScanCompare, ACodeIsNewUnlessTheProjectHasItsFirstSixCharacters) {
    const std::vector<std::string> project = {"00121F", "008020"};
    EXPECT_EQ(codes_not_in_project({"00121F", "00124A", "00FF12", "008020"}, project),
              (std::vector<std::string>{"00124A", "00FF12"}));
    EXPECT_TRUE(codes_not_in_project({}, project).empty());
    EXPECT_EQ(codes_not_in_project({"00121F"}, {}), std::vector<std::string>{"00121F"});
}

TEST(ScanCollector, ReadsAddressAndTypeFromAnIdentificationAnswer) {
    EXPECT_EQ(answered_code(bus::identification_answer_frame(0x1234, 0x4A)), "12344A");
    EXPECT_FALSE(answered_code(bus::register_answer_frame(0x1234, 0x4A)));
    EXPECT_FALSE(answered_code("(00812"));
}

}  // namespace
}  // namespace filo::commissioning
