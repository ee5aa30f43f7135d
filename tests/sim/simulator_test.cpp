#include "sim/simulator.hpp"

#include <gtest/gtest.h>

#include "bus/frame_builder.hpp"
#include "sim/sim_fixture.hpp"

namespace filo::sim {
namespace {

using bus::Envelope;
using testing::enveloped;
using testing::full;
using testing::installation;
using testing::talk;

TEST(SimulatorTest, EachFrameAndEnvelopeGetsTheAnswerARealProgrammerGives) {
    const std::string ok = "OK";
    const std::string id_0012 = bus::identification_answer_frame(0x0012, 0x1F);
    struct Case {
        const char* what;
        std::string in;
        std::string out;
    } cases[] = {
        {"parameter, full envelope", full("(30012EC05]"), ok},
        {"parameter, tail envelope", enveloped(Envelope::Tail, "(30012EC05]"), ok},
        {"parameter, terminated: on the bus, no OK", enveloped(Envelope::Terminated, "(30012EC05]"),
         ""},
        {"parameter, bare", enveloped(Envelope::Bare, "(30012EC05]"), ""},
        {"keep-alive, tail: the programmer's own", enveloped(Envelope::Tail, "(600000055]"), ok},
        {"close, tail", enveloped(Envelope::Tail, "(6000000AA]"), ok},
        {"sweep probe, terminated", enveloped(Envelope::Terminated, "[A00120000]"), id_0012},
        {"sweep probe of an empty address", enveloped(Envelope::Terminated, "[A00130000]"), ""},
        {"identification of a pressed module: two NULs",
         "00" + bus::with_checksum("[A00120000]") + std::string("\0\0_", 3), id_0012 + ok},
        {"read register, unset reads 00", full("(400126500]"),
         bus::register_answer_frame(0x0012, 0) + ok},
        {"analog query: eight values", full("(B001200]"),
         bus::analog_answer_frame(0x0012, {{}, 8}) + ok},
        {"masks", full("(20012FF0000000000]"), ok},
        {"frame to an address with no module", full("(30099EC05]"), ""},
        {"frame to a silent module", full("(30022EC05]"), ""},
        {"wrong checksum: not put on the bus", "00(00300012EC05]" + std::string("\0_", 2), ""},
        {"unknown layout", full("(3001]"), ""},
        {"search digits", "ATE0\r0123ATE1\r", "0123"},
        {"digits of an address are no search", full("(30123EC05]"), ok},
        {"two frames in one write", full("(30012EC05]") + full("(30012ED06]"), ok + ok},
        {"text frame: bare, its NUL its own", bus::text_frame(0x0012, 1, "1Ciao"), ""},
    };
    for (const auto& c : cases) {
        Simulator s = installation({"00121F", "0123AA"}, {"00221F"});
        EXPECT_EQ(talk(s, c.in), c.out) << c.what;
    }
}

TEST(SimulatorTest, AFrameWrittenAnyHowIsTheSameFrame) {
    const std::string in = full("(30012EC05]") + full("(A00120000]");
    for (std::size_t piece : {1u, 2u, 3u, 5u, 7u}) {
        Simulator s = installation({"00121F"});
        std::string out;
        for (std::size_t i = 0; i < in.size(); i += piece)
            out += talk(s, in.substr(i, piece), static_cast<double>(i));
        EXPECT_EQ(out, "OK" + bus::identification_answer_frame(0x0012, 0x1F) + "OK") << piece;
        EXPECT_EQ(s.bus().size(), 2u);
    }
}

TEST(SimulatorTest, ModulesAtOneAddressAllAnswer) {
    // Two types at one address: the sweep lists both.
    Simulator s = installation({"00121F", "001211"});
    EXPECT_EQ(talk(s, enveloped(Envelope::Terminated, "[A00120000]")),
              bus::identification_answer_frame(0x0012, 0x1F) +
                  bus::identification_answer_frame(0x0012, 0x11));
    // One OK for the frame, however many took it.
    EXPECT_EQ(talk(s, full("(30012EC05]"), 1), "OK");
}

}  // namespace
}  // namespace filo::sim
