#include "bus/receive_assembler.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace filo::bus {
namespace {

using Slot = ReceiveAssembler::Consumer;

// Records the frames each consumer saw, as RX_TRAMA / RX_GREZZO.
struct Recorder {
    explicit Recorder(ReceiveAssembler& rx) {
        for (Slot s : {Slot::Sweep, Slot::Monitor, Slot::PointPicking, Slot::TypeAnswer,
                       Slot::ConstantLight})
            rx.set_consumer(s, [this, s](const ReceiveAssembler& r) {
                seen.push_back(std::to_string(static_cast<int>(s)) + ":" + r.RX_TRAMA + "|" +
                               r.RX_GREZZO);
            });
    }
    std::vector<std::string> seen;
};

TEST(ReceiveAssembler, TheAnswerIsSeenAcrossReads) {
    ReceiveAssembler rx;
    rx.arm("7975");
    rx.feed("xxO");
    EXPECT_EQ(rx.ESITO_RX, "NO");
    rx.feed("K");
    EXPECT_EQ(rx.ESITO_RX, "OK");
    rx.arm("7975");  // arming forgets what came before
    EXPECT_EQ(rx.ESITO_RX, "NO");
    rx.feed('K');
    EXPECT_EQ(rx.ESITO_RX, "NO");
    // The record of codes stays short: it restarts past 50 characters.
    rx.feed(std::string(30, 'x'));
    EXPECT_LE(rx.RX_DECIMALE.size(), 50u);
}

TEST(ReceiveAssembler, FramesGoToTheirConsumersInOrderUnderTheirFlags) {
    ReceiveAssembler rx;
    Recorder r(rx);
    rx.feed("(1E600000055]");
    EXPECT_EQ(r.seen, (std::vector<std::string>{"0:(1E600000055]|(1E600000055]",
                                                "1:(1E600000055]|(1E600000055]"}));
    r.seen.clear();
    rx.flags.ACQUISIZIONE_PUNTO = "SI";
    rx.flags.ATTESA_TIPO = "SI";
    rx.flags.LUCE_COSTANTE_ATTIVA = true;
    rx.feed("[");
    rx.feed("A0012");
    rx.feed("0000]");
    ASSERT_EQ(r.seen.size(), 5u);
    EXPECT_EQ(r.seen[4].substr(0, 2), "4:");
    rx.flags.ACQUISIZIONE_PUNTO = "N0";  // the "off" of this flag has a zero
    r.seen.clear();
    rx.feed("(8001201FB]");
    EXPECT_EQ(r.seen.size(), 4u);
}

TEST(ReceiveAssembler, OnlyFrameCharactersAreAssembled) {
    ReceiveAssembler rx;
    rx.set_consumer(Slot::PointPicking, {});
    std::vector<std::string> seen;
    rx.set_consumer(Slot::Sweep, [&seen](const ReceiveAssembler& r) {
        seen.push_back(r.RX_TRAMA + "|" + r.RX_GREZZO);
    });

    rx.feed("K0012]");  // an end mark with no start mark before it
    EXPECT_TRUE(seen.empty());
    rx.feed("(8 0012 01FB]");  // blanks inside read as without them
    rx.feed("(C0012a1>2]");    // a lower-case letter and the list's end mark
    EXPECT_EQ(seen,
              (std::vector<std::string>{"(8001201FB]|(8 0012 01FB]", "(C001212]|(C0012a1>2]"}));
    // The frame stays until the next start mark, so a stray end mark hands it
    // on once more, as it stands.
    rx.feed("x]");
    EXPECT_EQ(seen.back(), "(C001212]]|(C0012a1>2]x]");
}

TEST(ReceiveAssembler, SuspendedReceptionChangesNothing) {
    ReceiveAssembler rx;
    Recorder r(rx);
    rx.arm("7975");
    rx.flags.RX_SOSPESO = "SI";
    rx.feed("OK(1E600000055]");
    EXPECT_EQ(rx.ESITO_RX, "NO");
    EXPECT_TRUE(r.seen.empty());
    EXPECT_EQ(rx.RX_TRAMA, "");
    rx.flags.RX_SOSPESO = "NO";
    rx.feed("OK");
    EXPECT_EQ(rx.ESITO_RX, "OK");
}

}  // namespace
}  // namespace filo::bus
