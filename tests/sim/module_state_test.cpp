// What programming leaves in a module, frame by frame.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "bus/card_record.hpp"
#include "bus/frame_builder.hpp"
#include "sim/sim_fixture.hpp"

namespace filo::sim {
namespace {

using testing::full;
using testing::installation;
using testing::talk;

// A link record of 35 characters to the receiver 0012.
std::string link_record(char output) {
    return std::string("001203") + output + "00110000000A00FFFB09000000FF";
}

// The link frame of link_record(output), and a card frame of the list, to
// 0012, without checksum.
std::string link(char output) {
    return "(1" + link_record(output) + "]";
}
std::string card(std::uint8_t list) {
    return bus::card_frame({0x0012, "A1B2C3", list}).erase(1, 2);
}

TEST(ModuleStateTest, WritesAreKeptAsTheModuleKeepsThem) {
    struct Case {
        const char* what;
        std::vector<std::string> frames;  // without checksum, each in the full envelope
        std::map<std::uint8_t, std::uint8_t> registers;
        std::string tipologie;
        std::size_t links;
        std::size_t cards;
        int resets;
    } cases[] = {
        // clang-format off
        {"parameters: the last value of each command",
         {"(30012EC05]", "(30012ED06]", "(30012EC07]"}, {{0xEC, 0x07}, {0xED, 0x06}}, "", 0, 0, 0},
        {"masks", {"(20012FF0102030405]"}, {}, "FF0102030405", 0, 0, 0},
        {"masks written again replace the first",
         {"(20012FF0102030405]", "(20012000000000001]"}, {}, "000000000001", 0, 0, 0},
        {"a link written twice is kept once",
         {link('1'), link('1'), link('2')}, {}, "", 2, 0, 0},
        {"a card written twice is kept once", {card(1), card(1), card(2)}, {}, "", 0, 2, 0},
        {"reset forgets all before it",
         {"(30012EC05]", "(20012FF0102030405]", link('1'), "(30012 6F68]", "(30012ED01]"},
         {{0xED, 0x01}}, "", 0, 0, 1},
        {"reset with the short message off", {"(300126FFF]"}, {}, "", 0, 0, 1},
        // clang-format on
    };
    for (auto& c : cases) {
        Simulator s = installation({"00121F"});
        for (std::string f : c.frames) {
            f.erase(std::remove(f.begin(), f.end(), ' '), f.end());
            EXPECT_EQ(talk(s, full(f)), "OK") << c.what << ": " << f;
        }
        const SimModule& m = *s.module("00121F");
        EXPECT_EQ(m.registers, c.registers) << c.what;
        EXPECT_EQ(m.tipologie, c.tipologie) << c.what;
        EXPECT_EQ(m.links.size(), c.links) << c.what;
        EXPECT_EQ(m.cards.size(), c.cards) << c.what;
        EXPECT_EQ(m.resets, c.resets) << c.what;
    }
}

TEST(ModuleStateTest, LinksGoToTheReceiverNamedInTheRecord) {
    Simulator s = installation({"00121F", "00131F"});
    talk(s, full(link('1')));
    EXPECT_EQ(s.module("00121F")->links, std::vector<std::string>{link_record('1')});
    EXPECT_TRUE(s.module("00131F")->links.empty());
    EXPECT_EQ(s.links(), std::vector<std::string>{link_record('1')});
}

TEST(ModuleStateTest, AReceiverLearnsRemotesByNumberOthersKeepPlainRegisters) {
    Simulator s = installation({"00304A", "00311F"});
    for (const char* f : {"(3003010A1]", "(30030 90B2]", "(3003073C3]", "(30030F3D4]",
                          "(3003011E5]", "(3003110A1]"}) {
        std::string frame = f;
        frame.erase(std::remove(frame.begin(), frame.end(), ' '), frame.end());
        talk(s, full(frame));
    }
    const SimModule& receiver = *s.module("00304A");
    ASSERT_EQ(receiver.remotes.size(), 3u);
    EXPECT_EQ(receiver.remotes.at(1).first, 0xA1);
    EXPECT_EQ(receiver.remotes.at(1).second, 0xB2);
    EXPECT_EQ(receiver.remotes.at(100).first, 0xC3);  // "73" and "F3": remote 100
    EXPECT_EQ(receiver.remotes.at(100).second, 0xD4);
    EXPECT_EQ(receiver.remotes.at(2).first, 0xE5);
    EXPECT_FALSE(receiver.remotes.at(2).second);
    EXPECT_TRUE(s.module("00311F")->remotes.empty());
    EXPECT_EQ(s.module("00311F")->registers.at(0x10), 0xA1);
}

TEST(ModuleStateTest, ASilentModuleKeepsNothing) {
    Simulator s = installation({"00121F"}, {"00221F"});
    talk(s, full("(30022EC05]"));
    EXPECT_TRUE(s.module("00221F")->registers.empty());
    EXPECT_EQ(s.module("00221F")->frames, 0u);
}

}  // namespace
}  // namespace filo::sim
