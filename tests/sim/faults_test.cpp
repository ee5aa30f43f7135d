// Faults of the line: late, lost, noisy and split answers, the same for the
// same seed.
#include <gtest/gtest.h>

#include "bus/frame_builder.hpp"
#include "bus/receive_assembler.hpp"
#include "sim/sim_fixture.hpp"

namespace filo::sim {
namespace {

using testing::full;
using testing::installation;
using testing::output_until;

const std::string kQuery = full("(A00120000]");
const std::string kAnswer = bus::identification_answer_frame(0x0012, 0x1F);

TEST(FaultsTest, LateAnswersComeAfterTheirDelayAndNotBefore) {
    Faults f;
    f.late = 0.15;
    Simulator s = installation({"00121F"}, {}, f);
    s.receive(kQuery, 1.0);
    EXPECT_EQ(output_until(s, 1.0, 1.149), "");
    EXPECT_EQ(output_until(s, 1.15, 1.15), kAnswer + "OK");
    // The search's echo comes from the programmer, not the bus: never late.
    s.receive("0123", 2.0);
    EXPECT_EQ(s.take_output(2.0), "0123");
}

TEST(FaultsTest, LostOksTakeOnlyTheOk) {
    Faults f;
    f.drop_ok = 1;
    Simulator s = installation({"00121F"}, {}, f);
    s.receive(kQuery + full("(30012EC05]"), 0);
    EXPECT_EQ(output_until(s, 0, 1), kAnswer);
    EXPECT_EQ(s.module("00121F")->registers.at(0xEC), 0x05);  // the frame still arrived
}

TEST(FaultsTest, NoiseAndSplitLeaveFramesAndOksReadable) {
    struct Case {
        double noise;
        bool split;
    } cases[] = {{1, false}, {0, true}, {1, true}, {0.3, true}};
    for (const auto& c : cases) {
        Faults f;
        f.noise = c.noise;
        f.split = c.split;
        f.seed = 7;
        Simulator s = installation({"00121F"}, {}, f);
        bus::ReceiveAssembler pc;
        std::vector<std::string> frames;
        pc.set_consumer(bus::ReceiveAssembler::Consumer::Sweep,
                        [&](const bus::ReceiveAssembler& r) { frames.push_back(r.RX_TRAMA); });
        int oks = 0, writes = 0;
        for (int i = 0; i < 20; ++i) {
            const double t = i;
            pc.arm("7975");
            s.receive(kQuery, t);
            // What reaches the PC, write by write, as the port delivers it.
            for (auto next = s.next_output(); next && *next < t + 1; next = s.next_output()) {
                pc.feed(s.take_output(*next));
                ++writes;
            }
            oks += pc.ESITO_RX == "OK";
        }
        EXPECT_EQ(oks, 20) << c.noise << c.split;
        EXPECT_EQ(frames, std::vector<std::string>(20, kAnswer)) << c.noise << c.split;
        if (c.split) {
            EXPECT_GT(writes, 20 * 5) << "pieces of at most 4 characters";
        }
    }
}

TEST(FaultsTest, TheSameSeedGivesTheSameFaults) {
    auto run = [](std::uint32_t seed) {
        Faults f;
        f.noise = 0.5;
        f.drop_ok = 0.5;
        f.split = true;
        f.seed = seed;
        Simulator s = installation({"00121F"}, {}, f);
        std::vector<std::string> writes;
        for (int i = 0; i < 30; ++i) {
            s.receive(kQuery, i);
            for (auto next = s.next_output(); next; next = s.next_output())
                writes.push_back(s.take_output(*next));
        }
        return writes;
    };
    EXPECT_EQ(run(3), run(3));
    EXPECT_NE(run(3), run(4));
}

TEST(FaultsTest, APieceInProgressHoldsBackTheNextMessage) {
    Faults f;
    f.split = true;
    Simulator s = installation({"00121F"}, {}, f);
    s.receive(kQuery + kQuery, 0);
    // Both answers are due at once; they leave one after the other, whole.
    EXPECT_EQ(output_until(s, 0, 1), kAnswer + "OK" + kAnswer + "OK");
}

}  // namespace
}  // namespace filo::sim
