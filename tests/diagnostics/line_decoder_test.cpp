// The line monitor's decoder on the frames an installation sends.
#include <gtest/gtest.h>

#include "bus/receive_assembler.hpp"
#include "diagnostics/line_decoder.hpp"
#include "diagnostics/line_monitor.hpp"
#include "diagnostics/module_directory.hpp"
#include "diagnostics/monitor_format.hpp"
#include "texts/language_tables.hpp"

namespace filo::diagnostics {
namespace {

// Module 0012: a pushbutton, a held pushbutton, a switch, three temperature
// probes, a hidden row, and an output whose event is 17 + 1.
ModuleDirectory directory() {
    ModuleDirectory d;
    const struct {
        int campo;
        const char* nick;
        const char* modo;
        const char* riserva;
    } rows[] = {
        {1, "Luce ingresso", "P000", ""}, {2, "Tapparella", "T000", ""}, {3, "Porta", "I000", ""},
        {4, "Sala", "J000", ""},          {5, "Forno", "W000", ""},      {6, "Esterno", "X000", ""},
        {7, "Nascosto", "P000", "K"},     {9, "Lampadario", "I000", ""},
    };
    for (const auto& r : rows)
        d.add("00121F", MonitorRow{r.campo, r.nick, "Soggiorno", r.modo, r.riserva});
    return d;
}

class DecoderTest : public ::testing::Test {
  protected:
    DecoderTest() { texts.ITALIANO(); }
    texts::LanguageTables texts;
    ModuleDirectory names = directory();
    LineDecoder decoder{texts, &names};
};

TEST_F(DecoderTest, EventsAreNamedAgainstTheProject) {
    struct Case {
        const char* frame;
        const char* tipo;
        const char* numero_ingresso;
        const char* descrizione;
        bool said_without_valore = true;
        const char* spoken = nullptr;  // every tick on
    } cases[] = {
        {"(008001201FB]", "BASE", "1", "Luce ingresso. PULSANTE ", true,
         "MITTENTE, 0 0 1 2, Soggiorno. INGRESSO, 1, Luce ingresso. PULSANTE , PREMUTO"},
        {"(00800120109]", "BASE", "1", "Luce ingresso. PULSANTE ", false,
         "MITTENTE, 0 0 1 2, Soggiorno. INGRESSO, 1, Luce ingresso. PULSANTE , RILASCIATO"},
        // A held press: input 2 + 8, announced by the frame's own number.
        {"(008001202FB]", "BASE", "2", "Tapparella. PULSANTE "},
        {"(00800120AFB]", "TENUTO", "10", "Tapparella. TENUTO "},
        {"(008001203FB]", "BASE", "3", "Porta. INTERUTTORE "},
        {"(00800120880]", "BASE", "8", ". "},
        {"(00800120980]", "TENUTO", "9", "Luce ingresso. PULSANTE "},
        {"(00800121080]", "TENUTO", "16", ". "},
        // An event of output 9 (input 17): the description names the output;
        // its release is spoken.
        {"(0080012110A]", "EVENTO", "EVENTO di relé, 1", "EVENTO Lampadario. "},
        {"(00800121109]", "EVENTO", "EVENTO di relé, 1", "EVENTO Lampadario. "},
        // Temperatures: (v - 49) * 0.25, * 0.5, and v - 49.
        {"(0080012048A]", "BASE", "4", "Sala. Sensore di temperatura ambientale 22.25"},
        {"(00800120430]", "BASE", "4", "Sala. Sensore di temperatura ambientale -0.25"},
        {"(00800120531]", "BASE", "5", "Forno. Sensore di temperatura Industriale 0"},
        {"(00800120596]", "BASE", "5", "Forno. Sensore di temperatura Industriale 50.5"},
        {"(00800120645]", "BASE", "6", "Esterno. Sensore di temperatura esteso 20"},
        // A hidden row is not a name.
        {"(008001207FB]", "BASE", "7", ". "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.frame);
        ASSERT_EQ(decoder.decode(c.frame), DecodeOutcome::Shown);
        EXPECT_EQ(decoder.LM_MODULO, "0012");
        EXPECT_EQ(decoder.LM_TIPO, c.tipo);
        EXPECT_EQ(decoder.LM_NOME, "Soggiorno. ");
        EXPECT_EQ(decoder.LM_NUMERO_INGRESSO, c.numero_ingresso);
        EXPECT_EQ(decoder.LM_DESCRIZIONE, c.descrizione);
        if (c.spoken) {
            EXPECT_EQ(decoder.TESTO_PARLATO, c.spoken);
        }
        decoder.ticks.valore = false;
        EXPECT_EQ(decoder.should_speak(), c.said_without_valore);
        decoder.ticks.valore = true;
        EXPECT_TRUE(decoder.should_speak());
    }
}

TEST_F(DecoderTest, TicksChooseThePiecesSpoken) {
    decoder.decode("(008001201FB]");
    struct Case {
        SpeechTicks ticks;
        const char* spoken;
    } cases[] = {
        {{true, false, false, false, false}, "MITTENTE, 0 0 1 2. "},
        {{false, true, false, false, false}, "MITTENTE, , Soggiorno. "},
        {{false, false, true, false, false}, "INGRESSO, 1. "},
        {{false, false, false, true, false}, "INGRESSO, , Luce ingresso. PULSANTE "},
        {{false, false, false, false, true}, ", PREMUTO"},
        {{false, false, false, false, false}, ""},
    };
    for (const Case& c : cases) EXPECT_EQ(decoder.spoken_text(c.ticks), c.spoken);
}

TEST_F(DecoderTest, ProgrammingFramesUnknownModulesAndOtherKinds) {
    // Kind "1" is decoded even while events are held.
    decoder.decoding = false;
    ASSERT_EQ(decoder.decode("(00100120705]"), DecodeOutcome::Shown);
    EXPECT_EQ(decoder.TESTO_PARLATO,
              "PROGRAMMAZIONE. DESTINATARIO, 0012, , Soggiorno. INGRESSO, 7, , USCITA, 5. ");
    EXPECT_EQ(decoder.decode("(008001201FB]"), DecodeOutcome::NotDecoded);
    decoder.decoding = true;

    // A module the project lacks: the fields, no names.
    ASSERT_EQ(decoder.decode("(0080099010A]"), DecodeOutcome::Shown);
    EXPECT_EQ(decoder.LM_INGRESSO, "1");
    EXPECT_EQ(decoder.LM_VALORE, "10");
    EXPECT_EQ(decoder.LM_NOME, "");
    EXPECT_EQ(decoder.LM_DESCRIZIONE, "");
    EXPECT_EQ(decoder.LM_TESTO_VALORE, "VALORE, 10");

    for (const char* other : {"(004001265]", "(00C0012000000]", "(00800120", "(0A00120000]"})
        EXPECT_EQ(decoder.decode(other), DecodeOutcome::NotDecoded) << other;

    // Without a project, kind "1" keeps its own pieces only.
    decoder.use_directory(nullptr);
    ASSERT_EQ(decoder.decode("(00100120705]"), DecodeOutcome::Shown);
    EXPECT_EQ(decoder.LM_NOME, "");
}

TEST_F(DecoderTest, FiltersComeBeforeEverything) {
    struct Case {
        MonitorFilters filters;
        DecodeOutcome outcome;
    } cases[] = {
        {{true, "0012", false, ""}, DecodeOutcome::Shown},
        {{true, "0013", false, ""}, DecodeOutcome::Filtered},
        {{true, "", false, ""}, DecodeOutcome::Filtered},
        {{false, "", true, "3"}, DecodeOutcome::Shown},
        {{false, "", true, "03"}, DecodeOutcome::Shown},
        {{false, "", true, "4"}, DecodeOutcome::Filtered},
        {{false, "", true, ""}, DecodeOutcome::Filtered},
        {{true, "0012", true, "4"}, DecodeOutcome::Filtered},
    };
    for (const Case& c : cases) {
        decoder.filters = c.filters;
        EXPECT_EQ(decoder.decode("(008001203FB]"), c.outcome)
            << c.filters.Text2 << "/" << c.filters.Text4;
    }
}

// What the monitor prints live is what it prints from its own recording.
TEST_F(DecoderTest, ReplayOfARecordingPrintsWhatTheLiveRunPrinted) {
    const std::string line = std::string("(008001201FB]zz(0080012") + "(0080012110A] (00C0012" +
                             "0102>]" + "(008001A\x01" + "04FB]" + "(0040012650]";
    std::vector<std::string> live, recording;
    LineMonitor monitor(decoder);
    int clock = 3600000 * 23 + 59 * 60000 + 59 * 1000 + 990;
    monitor.time_of_day = [&clock] { return clock += 7; };
    monitor.on_frame = [&](std::string_view raw, int t) {
        recording.push_back(recording_line({t, std::string(raw)}));
    };
    monitor.on_entry = [&](const MonitorEntry& e) { live.push_back(tsv_line(e.fields)); };
    bus::ReceiveAssembler receiver;
    receiver.flags.MONITOR_SOSPESO = "NO";
    monitor.attach(receiver);
    receiver.feed(line);
    ASSERT_EQ(live.size(), 5U);
    EXPECT_EQ(live[0],
              "23:59:59.997\t8\t0012\t1\t251\tSoggiorno. \tLuce ingresso. PULSANTE \t"
              "MITTENTE, 0 0 1 2, Soggiorno. INGRESSO, 1, Luce ingresso. PULSANTE , PREMUTO");
    EXPECT_EQ(live[2], "00:00:00.011\tC\t\t\t\t\t(00C00120102>]\t");
    EXPECT_EQ(live[3].substr(12, 8), "\t8\t001A\t");

    std::vector<std::string> replayed;
    monitor.on_frame = nullptr;
    monitor.on_entry = [&](const MonitorEntry& e) { replayed.push_back(tsv_line(e.fields)); };
    for (const std::string& l : recording) {
        const auto frame = parse_recording_line(l);
        ASSERT_TRUE(frame) << l;
        bus::ReceiveAssembler again;
        again.flags.MONITOR_SOSPESO = "NO";
        monitor.time_of_day = [&frame] { return frame->time_ms; };
        monitor.attach(again);
        again.feed(frame->bytes);
    }
    EXPECT_EQ(replayed, live);

    // A suspended monitor decodes nothing.
    receiver.flags.MONITOR_SOSPESO = "SI";
    receiver.feed("(008001201FB]");
    EXPECT_EQ(replayed.size(), live.size());
}

}  // namespace
}  // namespace filo::diagnostics
