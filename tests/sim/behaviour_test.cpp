// The installation at work, in virtual time: presses run the stored links,
// timed links switch back, relays tell their events, the photo-sensor
// regulates, the line carries characters at its speed.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "bus/frame_builder.hpp"
#include "bus/frame_parser.hpp"
#include "bus/link_record.hpp"
#include "sim/dump.hpp"
#include "sim/sim_fixture.hpp"

namespace filo::sim {
namespace {

using testing::full;
using testing::installation;
using testing::output_until;
using testing::talk;

// Input 1 of 0011 drives relay 1 of 0012.
bus::LinkRecord plain_link() {
    bus::LinkRecord r;
    r.receiver = 0x0012;
    r.numero_ingresso = 1;
    r.numero_uscita = 1;
    r.transmitter = 0x0011;
    r.on_ = 251;
    r.off_ = 9;
    return r;
}

void program(Simulator& s, const bus::LinkRecord& r, double at = 0) {
    const std::string frame = bus::link_frame(r);
    s.receive(bus::wrap(bus::Envelope::Full, frame), at);
}

std::string relays(const Simulator& s, const char* code = "00121F") {
    return nlohmann::json::parse(dump_json(s))["modules"][code]["state"]["relays"];
}

TEST(BehaviourTest, APressRunsTheLinkInTheReadingOfItsMode) {
    const char* P = "press 00111F 1";
    const char* R = "release 00111F 1";
    struct Step {
        double at;
        const char* control;  // "" only looks
        char relay1;          // then, at that time
    };
    struct Case {
        const char* what;
        void (*shape)(bus::LinkRecord&);
        std::vector<Step> steps;
    } cases[] = {
        // clang-format off
        {"on at the press, off at the release", [](bus::LinkRecord&) {},
         {{0, P, '1'}, {1, R, '0'}}},
        {"step by step: each press changes it, releases nothing",
         [](bus::LinkRecord& r) { r.modo_ = 0x01; },
         {{0, P, '1'}, {1, R, '1'}, {2, P, '0'}}},
        {"only switches on", [](bus::LinkRecord& r) { r.off_ = 8; },
         {{0, P, '1'}, {1, R, '1'}}},
        {"timed on: back off after 2 s", [](bus::LinkRecord& r) { r.tempo_on2 = 2; },
         {{0, P, '1'}, {0.5, R, '0'}}},
        {"timed on without release", [](bus::LinkRecord& r) { r.off_ = 8, r.tempo_on2 = 2; },
         {{0, P, '1'}, {1.9, "", '1'}, {2.1, "", '0'}}},
        {"a press while timing does not restart the time",
         [](bus::LinkRecord& r) { r.off_ = 8, r.tempo_on2 = 2; },
         {{0, P, '1'}, {1.5, P, '1'}, {2.1, "", '0'}}},
        {"retriggered: the time starts again at each press",
         [](bus::LinkRecord& r) { r.off_ = 8, r.tempo_on2 = 2, r.modo_ = 0x02; },
         {{0, P, '1'}, {1.5, P, '1'}, {3.4, "", '1'}, {3.6, "", '0'}}},
        {"tenths of a second",
         [](bus::LinkRecord& r) { r.off_ = 8, r.tempo_on2 = 15, r.settimana = 0x20; },
         {{0, P, '1'}, {1.4, "", '1'}, {1.6, "", '0'}}},
        {"delayed on", [](bus::LinkRecord& r) { r.off_ = 8, r.tempo_off2 = 1; },
         {{0, P, '0'}, {0.9, "", '0'}, {1.1, "", '1'}}},
        {"delay before switching off", [](bus::LinkRecord& r) { r.giorno = 0x80, r.minuto = 3; },
         {{0, P, '1'}, {1, R, '1'}, {3.9, "", '1'}, {4.1, "", '0'}}},
        {"a press within the delay keeps it on",
         [](bus::LinkRecord& r) { r.giorno = 0x80, r.minuto = 3; },
         {{0, P, '1'}, {1, R, '1'}, {2, P, '1'}, {4.1, "", '1'}}},
        {"inverted input", [](bus::LinkRecord& r) { r.modo_ = 0x04; },
         {{0, P, '0'}, {1, R, '1'}}},
        {"another input runs nothing", [](bus::LinkRecord&) {}, {{0, "press 00111F 2", '0'}}},
        {"AND condition on relay 2 not met",
         [](bus::LinkRecord& r) { r.and_ = 0x02, r.modo_ = 0x80; },
         {{0, P, '0'}}},
        {"AND condition: relay 2 off, as asked", [](bus::LinkRecord& r) { r.and_ = 0x02; },
         {{0, P, '1'}}},
        // clang-format on
    };
    for (const auto& c : cases) {
        Simulator s = installation({"00111F", "00121F"});
        bus::LinkRecord r = plain_link();
        c.shape(r);
        program(s, r);
        for (const Step& step : c.steps) {
            if (*step.control) {
                EXPECT_EQ(s.control(step.control, step.at), "") << c.what;
            }
            output_until(s, step.at, step.at);
            EXPECT_EQ(relays(s)[0], step.relay1) << c.what << " at " << step.at;
        }
    }
}

TEST(BehaviourTest, RelaysTellTheirEventsWhenProgrammedToAndOthersFollowThem) {
    Simulator s = installation({"00111F", "00121F", "00131F"});
    bus::LinkRecord tells = plain_link();
    tells.modo_ = 0x18;  // both event bits
    program(s, tells);
    bus::LinkRecord follows = plain_link();  // relay 2 of 0013 follows relay 1 of 0012
    follows.receiver = 0x0013, follows.transmitter = 0x0012, follows.numero_ingresso = 17;
    follows.numero_uscita = 2;
    program(s, follows);
    output_until(s, 0, 1);
    EXPECT_EQ(s.control("press 00111F 1", 1), "");
    EXPECT_EQ(output_until(s, 1, 2),
              bus::input_event_frame(0x0011, 1, 251) + bus::input_event_frame(0x0012, 17, 251));
    EXPECT_EQ(relays(s, "00131F"), "01000000");
    // Relay 1 of 0013 changes under a plain link: no event of its own.
    bus::LinkRecord quiet = plain_link();
    quiet.receiver = 0x0013, quiet.numero_ingresso = 2;
    program(s, quiet, 2);
    output_until(s, 2, 3);
    EXPECT_EQ(s.control("press 00111F 2", 3), "");
    EXPECT_EQ(output_until(s, 3, 4), bus::input_event_frame(0x0011, 2, 251));
    EXPECT_EQ(relays(s, "00131F"), "11000000");
}

TEST(BehaviourTest, QueriesReadTheLiveStateAndTheTestMaskDrivesTheRelays) {
    Simulator s = installation({"00111F", "00121F"});
    program(s, plain_link());
    bus::LinkRecord flag = plain_link();
    flag.numero_ingresso = 2, flag.numero_uscita = 10;  // flag 2
    program(s, flag);
    output_until(s, 0, 1);
    s.control("press 00111F 1", 1);
    s.control("press 00111F 2", 1);
    s.control("hold 00111F 2", 1);
    output_until(s, 1, 2);
    struct Case {
        const char* query;
        std::uint16_t address;
        std::uint8_t value;
    } cases[] = {
        {"(400126500]", 0x0012, 0x01}, {"(40012A100]", 0x0012, 0x02}, {"(40012A200]", 0x0012, 0x00},
        {"(400116100]", 0x0011, 0x03}, {"(400116200]", 0x0011, 0x02},
    };
    for (const auto& c : cases)
        EXPECT_EQ(talk(s, full(c.query), 2), bus::register_answer_frame(c.address, c.value) + "OK")
            << c.query;
    // The output test: the mask sent bare turns the relays it names.
    s.receive(bus::wrap(bus::Envelope::Bare, bus::parameter_frame(0x0012, 0x67, 0x81)), 3);
    EXPECT_EQ(talk(s, full("(400126500]"), 3), bus::register_answer_frame(0x0012, 0x80) + "OK");
    EXPECT_EQ(relays(s), "00000001");
    // A simulated input from the PC acts as a press; the PC is not told back.
    s.receive(bus::input_event_frame(0x0011, 1, 9), 4);
    EXPECT_EQ(output_until(s, 4, 5), "");
    EXPECT_EQ(relays(s), "10000001");
    const auto state = nlohmann::json::parse(dump_json(s))["modules"]["00111F"]["state"];
    EXPECT_EQ(state["inputs"], "01000000");
    s.control("release 00111F 2", 5);  // letting go ends the hold
    output_until(s, 5, 5);
    EXPECT_EQ(talk(s, full("(400116200]"), 5), bus::register_answer_frame(0x0011, 0) + "OK");
    EXPECT_EQ(state["flags"], "0000000000000000");
}

TEST(BehaviourTest, ThePhotoSensorRegulatesTowardsItsSetPointWithinItsLamps) {
    struct Case {
        int set_point;
        int daylight;
        int final_command;  // -1: any, as long as the reading is close
    } cases[] = {
        {200, 60, -1},   // reachable: the reading settles near the set point
        {255, 60, 255},  // the lamps cannot give it: full power
        {20, 60, 40},    // daylight alone is over it: down to the lowest power
    };
    for (const auto& c : cases) {
        Simulator s = installation({"00A019"});
        s.control("daylight 00A019 " + std::to_string(c.daylight), 0);
        s.receive(full("(300A01128]"), 0);  // lowest power 40
        s.receive(full("(300A06501]"), 0);  // set-up mode
        s.receive(
            bus::wrap(bus::Envelope::Tail,
                      bus::parameter_frame(0x00A0, 0x13, static_cast<std::uint8_t>(c.set_point))),
            0);
        const std::string out = output_until(s, 0, 10);
        EXPECT_FALSE(s.next_output()) << "settled, nothing more due: " << c.set_point;
        const auto answer = talk(s, full("(B00A000]"), 10);
        const bus::Frame frame = bus::parse_frame(answer.substr(0, answer.find(']') + 1));
        const int reading = frame.analog.values[0], command = frame.analog.values[1];
        if (c.final_command >= 0)
            EXPECT_EQ(command, c.final_command) << c.set_point;
        else
            EXPECT_NEAR(reading, c.set_point, 2);
        // The last command went on the bus as an event of output 1.
        EXPECT_NE(out.rfind(bus::input_event_frame(0x00A0, 17, static_cast<std::uint8_t>(command))),
                  std::string::npos)
            << c.set_point;
    }
}

TEST(BehaviourTest, TheLineCarriesCharactersAtItsSpeed) {
    Faults line;
    line.baud = 19200;
    Simulator s = installation({"00121F"}, {}, line);
    const std::string in = full("(30012EC05]");  // 17 characters, then "OK"
    s.receive(in, 1);
    ASSERT_TRUE(s.next_output());
    EXPECT_NEAR(*s.next_output(), 1 + (in.size() + 2) * 10.0 / 19200, 1e-9);
    EXPECT_EQ(s.take_output(*s.next_output() - 1e-6), "");
    EXPECT_EQ(s.take_output(*s.next_output()), "OK");
}

TEST(BehaviourTest, TrafficPressesAndReleasesLinkedInputsOnly) {
    Simulator s = installation({"00111F", "00121F"});
    program(s, plain_link());
    output_until(s, 0, 1);
    s.set_traffic(50, 1);
    const std::string out = output_until(s, 1, 2.99);
    const std::string press = bus::input_event_frame(0x0011, 1, 251);
    const std::string release = bus::input_event_frame(0x0011, 1, 9);
    EXPECT_EQ(out.size(), 100 * press.size());  // 50 a second, each an event of input 1
    EXPECT_EQ(out.substr(0, 2 * press.size()), press + release);
    s.set_traffic(0, 3);
    output_until(s, 3, 4);
    EXPECT_FALSE(s.next_output());
}

}  // namespace
}  // namespace filo::sim
