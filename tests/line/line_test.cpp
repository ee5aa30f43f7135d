#include "bus/line.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bus/checksum.hpp"
#include "bus/receive_assembler.hpp"
#include "bus/virtual_line.hpp"

namespace filo::bus {
namespace {

class LineTest : public ::testing::Test {
  protected:
    LineTest() {
        line.on_answer = [this](int attempt, bool answered) {
            attempts.push_back(std::to_string(attempt) + (answered ? "OK" : "NO"));
        };
    }
    // The programmer answers "OK" to the n-th write (from 1) after delay seconds.
    void answer_write(std::size_t n, double delay) {
        io.set_peer([n, delay, count = std::size_t{0}](VirtualLine& l, std::string_view) mutable {
            if (++count == n) l.reply("OK", delay);
        });
    }
    ReceiveAssembler receiver;
    VirtualLine io{receiver};
    Line line{io, receiver};
    std::vector<std::string> attempts;
};

// The frame goes out in the full envelope with its checksum; without an
// answer in its window (0.1 s + t) it goes exactly once more.
TEST_F(LineTest, AFrameWithoutAnswerInItsWindowGoesOnceMore) {
    const struct {
        const char* what;
        double delay;  // of the OK to the first write; < 0: none
        int wait;      // t, in ms
        std::vector<std::string> attempts;
    } cases[] = {
        {"at once", 0, 0, {"1OK"}},
        {"just inside the window", 0.099, 0, {"1OK"}},
        {"too late for the first window", 0.12, 0, {"1NO", "2OK"}},
        {"a silent module", -1, 50, {"1NO", "2NO"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        attempts.clear();
        io.set_peer(nullptr);
        if (c.delay >= 0) answer_write(1, c.delay);
        const auto before = io.writes().size();
        const double start = io.clock().now();
        line.STRINGA_TX = "(30012ED10]";
        const bool answered = c.attempts.back().ends_with("OK");
        EXPECT_EQ(line.INVIA_STRINGA(c.wait), answered);
        EXPECT_EQ(line.RISPOSTA_FALLITA, !answered);
        EXPECT_EQ(attempts, c.attempts);
        ASSERT_EQ(io.writes().size() - before, c.attempts.size());
        const std::string& w = io.writes()[before];
        EXPECT_EQ(io.writes().back(), w);
        EXPECT_EQ(w.substr(0, 2), "00");
        EXPECT_EQ(w.substr(w.size() - 2), std::string("\0_", 2));
        EXPECT_TRUE(checksum_ok(w.substr(2, w.size() - 4)));
        if (!answered) EXPECT_NEAR(io.clock().now() - start, 2 * 0.15, 1e-9);
    }
}

TEST_F(LineTest, AnOkThatCameBeforeTheFrameIsNotItsAnswer) {
    // The programmer's answer to the opening of programming mode waits in
    // the port through the pause behind it.
    io.set_peer(answers_ok());
    line.ATTIVA_PROGRAMMAZIONE();
    io.set_peer(nullptr);  // the module addressed next stays silent
    line.STRINGA_TX = "(30012ED10]";
    EXPECT_FALSE(line.INVIA_STRINGA(0));
    EXPECT_EQ(attempts, (std::vector<std::string>{"1NO", "2NO"}));
}

TEST_F(LineTest, KeepAliveAfterFiveSecondsOfSending) {
    io.set_peer(answers_ok());
    line.ULTIMA_ATTIVAZIONE = io.clock().now();
    io.virtual_clock().advance_to(4.9);
    line.STRINGA_TX = "(30012ED10]";
    line.INVIA_STRINGA(0);
    EXPECT_EQ(io.writes().size(), 1u);
    io.virtual_clock().advance_to(5.2);
    line.STRINGA_TX = "(30012ED10]";
    line.INVIA_STRINGA(0);
    ASSERT_EQ(io.writes().size(), 3u);
    EXPECT_EQ(io.writes()[2], std::string("(1E600000055]\0_", 15));
    EXPECT_DOUBLE_EQ(*line.ULTIMA_ATTIVAZIONE, io.clock().now());
}

TEST_F(LineTest, PauseReceivesNothingAndWaitingDoes) {
    io.reply("OK", 0.01);
    receiver.arm("7975");
    line.PAUSA(50);
    EXPECT_EQ(receiver.ESITO_RX, "NO");  // waiting in the port, not lost
    EXPECT_NEAR(io.clock().now(), 0.05, 1e-9);
    line.ATTESA(0.5);
    EXPECT_EQ(receiver.ESITO_RX, "OK");
    EXPECT_NEAR(io.clock().now(), 0.1, 1e-9);
}

TEST_F(LineTest, ProgrammingModeOpensOnceAndClosesThreeTimes) {
    line.ATTIVA_PROGRAMMAZIONE();
    line.CHIUDI_PROGRAMMAZIONE();
    const std::string close("(366000000AA]\0_", 15);
    EXPECT_EQ(io.writes(),
              (std::vector<std::string>{std::string("(1E600000055]\0_", 15), close, close, close}));
    EXPECT_EQ(io.write_times(), (std::vector<double>{0, 0.02, 0.04, 0.06}));
}

TEST_F(LineTest, TestFramesGoBareWithoutWaiting) {
    line.PROVA_USCITE("00121F", 0x05);
    line.PROVA_INGRESSO("00121F", 3, 251);
    ASSERT_EQ(io.writes().size(), 2u);
    EXPECT_EQ(io.writes()[0].substr(3),
              "3001267"
              "05]");
    EXPECT_TRUE(checksum_ok(io.writes()[0]));
    EXPECT_EQ(io.writes()[1].substr(3), "8001203FB]");
    EXPECT_EQ(io.clock().now(), 0);
}

}  // namespace
}  // namespace filo::bus
