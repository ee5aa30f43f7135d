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

TEST_F(LineTest, AFrameGoesOutInTheFullEnvelopeWithItsChecksum) {
    io.set_peer(answers_ok());
    line.STRINGA_TX = "(30012ED10]";
    EXPECT_TRUE(line.INVIA_STRINGA(0));
    ASSERT_EQ(io.writes().size(), 1u);
    const std::string& w = io.writes()[0];
    EXPECT_EQ(w.substr(0, 2), "00");
    EXPECT_EQ(w.substr(w.size() - 2), std::string("\0_", 2));
    EXPECT_TRUE(checksum_ok(w.substr(2, w.size() - 4)));
    EXPECT_EQ(attempts, std::vector<std::string>{"1OK"});
}

TEST_F(LineTest, ASilentModuleGetsTheFrameExactlyTwice) {
    line.STRINGA_TX = "(30012ED10]";
    const double start = io.clock().now();
    EXPECT_FALSE(line.INVIA_STRINGA(50));
    ASSERT_EQ(io.writes().size(), 2u);
    EXPECT_EQ(io.writes()[0], io.writes()[1]);
    EXPECT_EQ(attempts, (std::vector<std::string>{"1NO", "2NO"}));
    EXPECT_TRUE(line.RISPOSTA_FALLITA);
    // Two windows of 0.1 s + t.
    EXPECT_NEAR(io.clock().now() - start, 2 * 0.15, 1e-9);
}

TEST_F(LineTest, AnAnswerTooLateForTheFirstWindowLandsInTheRepeat) {
    answer_write(1, 0.12);  // the first window closes at 0.1 s
    line.STRINGA_TX = "(30012ED10]";
    EXPECT_TRUE(line.INVIA_STRINGA(0));
    EXPECT_EQ(io.writes().size(), 2u);
    EXPECT_EQ(attempts, (std::vector<std::string>{"1NO", "2OK"}));
    EXPECT_FALSE(line.RISPOSTA_FALLITA);
    // Just inside the window is in time.
    attempts.clear();
    answer_write(1, 0.099);
    EXPECT_TRUE(line.INVIA_STRINGA(0));
    EXPECT_EQ(attempts, std::vector<std::string>{"1OK"});
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
