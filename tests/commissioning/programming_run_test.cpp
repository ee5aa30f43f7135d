// The programming run in virtual time, against a programmer that answers as
// each test needs.
#include "commissioning/programming_run.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "bus/frame.hpp"
#include "bus/line.hpp"
#include "bus/receive_assembler.hpp"
#include "bus/virtual_line.hpp"
#include "commissioning/module_image_fixture.hpp"
#include "commissioning/run_report.hpp"
#include "links/link_record.hpp"
#include "modules/aggregate_editor.hpp"
#include "store/link_table.hpp"
#include "support/frames.hpp"
#include "texts/language_tables.hpp"

namespace filo::commissioning {
namespace {

using testing::add_module;
using testing::frame_of;

constexpr char kTextStart = '\x16';

bool is_line_control(const std::string& frame) {
    return frame == "(600000055]" || frame == "(6000000AA]";
}

class ProgrammingRunTest : public testing::ModuleImageTest {
  protected:
    ProgrammingRunTest() {
        io.set_peer(bus::answers_ok());
        report.on_line = [this](const std::string& l) { lines.push_back(l); };
    }

    // Every frame written, in order, without the opening and closing of
    // programming mode.
    std::vector<std::string> frames() const {
        std::vector<std::string> out;
        for (const std::string& w : io.writes()) {
            std::string f = frame_of(w);
            if (!is_line_control(f)) out.push_back(std::move(f));
        }
        return out;
    }
    long count(const std::string& frame) const {
        const auto all = frames();
        return std::count(all.begin(), all.end(), frame);
    }
    long closings() const {
        return std::count_if(io.writes().begin(), io.writes().end(),
                             [](const std::string& w) { return frame_of(w) == "(6000000AA]"; });
    }
    // The programmer stays silent to frames for this address.
    void silent(const std::string& address) {
        io.set_peer([address](bus::VirtualLine& l, std::string_view w) {
            const std::string f = frame_of(std::string(w));
            if (f.compare(2, address.size(), address) != 0 && w.find('_') != std::string_view::npos)
                l.reply("OK");
        });
    }
    void add_link(const std::string& rx, const std::string& tx, const std::string& nick_tx) {
        store::LinkTable links(project);
        links.LINK_CORRENTE = testing::switching_link(rx, tx, "Luce", nick_tx);
        links.AGGIUNGI_LINK();
    }
    std::string record_of_link(int n) {
        store::LinkTable links(project);
        links.LEGGI_LINK();
        links::LinkImage image;
        EXPECT_TRUE(links::LEGGIprossimoLINK(links, n, image));
        return image.RECORD_LINK;
    }

    bus::ReceiveAssembler receiver;
    bus::VirtualLine io{receiver};
    bus::Line line{io, receiver};
    RunReport report;
    ProgrammingRun run{project, line, report};
    std::vector<std::string> lines;
};

TEST_F(ProgrammingRunTest, EachPhaseSendsWhatDiffersFromTheModulesOwnValues) {
    const std::string a = add("11", 16);
    // Relays 1 and 2 inverted; relay 2 reciprocal with relay 1 and in AND with it.
    set(a, 9, "modo", "II" + std::string(22, '0'));
    set(a, 10, "modo", modo("0I000000", "10000000", "10000000"));
    set(a, 1, "riserva3", module_row("007000020010010030"));  // P1 = 7, the rest defaults
    set_letters(a, "MMMMTMMM");
    set(a, 5, "riserva2", "010002060" + std::string(41, '0'));
    set(a, 10, "riserva2", "251009" + std::string(44, '0'));
    set(a, 9, "note", "*Pannello");
    const std::string untouched = add("14", 16);

    run.PROGRAMMA_IMPIANTO();

    const std::string x = a.substr(0, 4);
    const std::string y = untouched.substr(0, 4);
    const std::vector<std::string> expected = {
        "(3" + x + "6F68]",         "(3" + y + "6F68]",  // reset
        "(3" + x + "6703]",                              // inverted relays
        "(3" + x + "E901]",                              // reciprocal of relay 2
        "(3" + x + "F101]",                              // AND of relay 2
        "(2" + x + "000000000010]",                      // input kinds
        "(3" + x + "EC07]",                              // P1
        "(3" + x + "740A]",         "(3" + x + "7C02]", "(3" + x + "D43C]",  // input 5
        "(3" + x + "01FB]",         "(3" + x + "0909]",                      // relay 2 events
        "(3" + x + "0101]",                                                  // active messages
    };
    // The untouched module's kinds are what a new module has of its own: not sent.
    EXPECT_EQ(frames(), expected);
    EXPECT_EQ(report.N_ERRORI, 0);
    EXPECT_FALSE(run.in_progress());
    EXPECT_EQ(closings(), 3);
}

TEST_F(ProgrammingRunTest, TheResetSparesTheSystemsOwnAddresses) {
    for (const char* codice : {"FFF011", "FFF111", "FFF211", "FFF311", "FFFE11", "00AA11"})
        add_module(table, codice, 16, "Modulo");
    run.MESSAGGIO_BREVE = 0;
    run.PROGRAMMA_IMPIANTO();
    std::set<std::string> resets;
    for (const std::string& f : frames())
        if (f.size() == 11 && f.compare(6, 2, "6F") == 0) resets.insert(f);
    EXPECT_EQ(resets, (std::set<std::string>{"(3FFF06FFF]", "(300AA6FFF]"}));
}

TEST_F(ProgrammingRunTest, ReceiversLearnTheirRemotesByTheirNumberInTheProject) {
    const std::string receiver = "00104A";
    add_module(table, receiver, 9, "Ricevitore");
    add_module(table, "A1B228", 1, "Di un altro");
    add_module(table, "C3D434", 1, "Suo");
    add_module(table, "E5F635", 1, "Senza ricevitore");
    sql("UPDATE nick SET riserva4 = '00204A' WHERE codice = 'A1B228'");
    sql("UPDATE nick SET riserva4 = '00104A' WHERE codice = 'C3D434'");
    sql("UPDATE nick SET riserva4 = '' WHERE codice = 'E5F635'");
    run.PROGRAMMA_IMPIANTO();
    // The second remote of the project (C3D4): commands "11" and "91".
    EXPECT_EQ(count("(3001011C3]"), 1);
    EXPECT_EQ(count("(3001091D4]"), 1);
    for (const std::string& f : frames()) {
        EXPECT_EQ(f.find("A1]"), std::string::npos) << f;
        EXPECT_EQ(f.find("E5]"), std::string::npos) << f;
    }
}

TEST_F(ProgrammingRunTest, PanelTextsGoOutInThePanelsCharacterSetWithoutAnswer) {
    const std::string panel = add("1E", 12, "OUT_SERIALE");
    sql("UPDATE nick SET riserva2 = '', riserva3 = ''");
    set(panel, 10, "riserva2", "05Relè Ω");  // output 2: records 3 and 4
    set(panel, 10, "riserva3", "Già");
    io.set_peer(nullptr);  // nobody answers: texts await nothing

    run.PROGRAMMA_IMPIANTO();

    std::vector<std::string> texts;
    std::vector<double> times;
    for (std::size_t i = 0; i < io.writes().size(); ++i)
        if (io.writes()[i][0] == kTextStart) {
            texts.push_back(io.writes()[i]);
            times.push_back(io.write_times()[i]);
        }
    ASSERT_EQ(texts.size(), 2u);
    const std::string address = panel.substr(0, 4);
    EXPECT_EQ(texts[0].substr(3),
              "1" + address + "03" + "5Rel\xE8 ?" + "\x17" + std::string(1, '\0'));
    EXPECT_EQ(texts[1].substr(3), "1" + address + "04" + "Gi\xE0" + "\x17" + std::string(1, '\0'));
    EXPECT_GE(times[1] - times[0], 0.5);
    // The texts add no lines to the report.
    for (const std::string& l : lines) EXPECT_EQ(l.find(" Testi "), std::string::npos) << l;
}

TEST_F(ProgrammingRunTest, CardsGoOutListByListEachUpToItsEnd) {
    const std::string reader = add("1A", 9);
    sql("UPDATE nick SET dati_aggiuntivi1 = ''");
    set(reader, 1, "dati_aggiuntivi1", "AAAA11BBBB22");
    // A blank entry is a card like any other; only the end of the text ends a list.
    set(reader, 3, "dati_aggiuntivi1", "CCCC33" + std::string(6, ' ') + "DDDD44");
    run.PROGRAMMA_IMPIANTO();
    std::vector<std::string> cards;
    for (const std::string& f : frames())
        if (f.rfind("(7", 0) == 0) cards.push_back(f);
    const std::string r = reader.substr(0, 4);
    const std::string zeros(20, '0');
    EXPECT_EQ(cards, (std::vector<std::string>{
                         "(7" + r + "110AAAA01" + zeros + "]", "(7" + r + "220BBBB01" + zeros + "]",
                         "(7" + r + "330CCCC03" + zeros + "]", "(7" + r + "  0    03" + zeros + "]",
                         "(7" + r + "440DDDD03" + zeros + "]"}));
}

TEST_F(ProgrammingRunTest, LinksGoOutInTableOrderThenTheGatewayPresets) {
    add("11", 16);
    add_link("000111/1", "000219/1", "Sensore");
    add_link("000111/2", "000219/1", "Sensore");
    add_link("000111/3", "FFFE00/5", "NET_GATE");
    std::vector<RunProgress> seen;
    run.on_progress = [&](const RunProgress& p) {
        if (p.phase == 15) seen.push_back(p);
    };
    run.PROGRAMMA_IMPIANTO();

    const std::vector<std::string> all = frames();
    std::vector<std::string> tail(all.end() - 4, all.end());
    EXPECT_EQ(tail, (std::vector<std::string>{"(1" + record_of_link(1) + "]",
                                              "(1" + record_of_link(2) + "]",
                                              "(1" + record_of_link(3) + "]", "(8FFFE0581]"}));
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen.back().link, 3);
    EXPECT_EQ(seen.back().links, 3);
    // The photosensor driving two links is offered once for constant light.
    ASSERT_EQ(run.REGOLATORI.size(), 1u);
    EXPECT_EQ(run.REGOLATORI[0].nick, "Sensore");
    EXPECT_EQ(run.REGOLATORI[0].item_data, 0x1000219);
}

TEST_F(ProgrammingRunTest, WithoutLinksTheLinkBarIsNeverTouched) {
    add("11", 16);
    int link_updates = 0;
    run.on_progress = [&](const RunProgress& p) { link_updates += p.links != 0; };
    run.PROGRAMMA_IMPIANTO();
    EXPECT_EQ(link_updates, 0);
    EXPECT_EQ(closings(), 3);
}

TEST_F(ProgrammingRunTest, ASilentModuleFailsEachFrameTwiceAndTheQuestionComesOnce) {
    const std::string mute = add("11", 16);
    for (int campo = 9; campo <= 16; ++campo) set(mute, campo, "modo", "II" + std::string(22, '0'));
    add("14", 16);
    silent(mute.substr(0, 4));
    int questions = 0;
    report.ask_to_stop = [&] {
        ++questions;
        return false;
    };
    run.PROGRAMMA_IMPIANTO();
    // Reset and inversion: two frames of the silent module, each tried twice.
    EXPECT_EQ(report.N_ERRORI, 2);
    EXPECT_EQ(questions, 0);
    EXPECT_EQ(lines[0], "Modulo n° " + mute + " reset NO");
    EXPECT_EQ(lines[1], "Modulo n° " + mute + " reset NO / /");
    EXPECT_NE(report.TEXT2.find("Modulo n° " + mute + " invertiti NO"), std::string::npos);
    EXPECT_EQ(closings(), 3);
}

// The sets of TUTTI and ALMENO1 as ASSOCIA leaves them, through the image to
// the frames of the run: a module of three sets and a simple one.
TEST_F(ProgrammingRunTest, AggregateSetsGoOutAsGroupBytes) {
    const std::string full = add("15", 32);
    const std::string simple = add("48", 16);
    set(full, 9, "nick", "Luce ");
    set(full, 10, "nick", "Cappa ");
    set(full, 17, "nick", "Notte ");
    set(simple, 10, "nick", "Due ");
    texts::LanguageTables texts;
    table.LEGGI_MODULO(full);
    table.set_codice_modulo(full);
    {
        modules::AggregateEditor e(table, texts);
        ASSERT_TRUE(e.Check2_Click(1, true));   // a: relay 1 on
        ASSERT_TRUE(e.Check2_Click(33, true));  // a: flag 9 off
        ASSERT_TRUE(e.Check3_Click(10, true));  // a: switches relay 2 off
        e.Option3_Click(0);                     // a: OR
        e.Text5_Change("Notte");
        e.Option5_Click(3);
        ASSERT_TRUE(e.Check2_Click(26, true));  // c: relay 2 off, no name, AND
        e.Label35_Click();
    }
    table.MODIFICA_MODULO();
    table.LEGGI_MODULO(simple);
    table.set_codice_modulo(simple);
    {
        modules::AggregateEditor e(table, texts);
        ASSERT_TRUE(e.Check1_Click(2, true));
        ASSERT_TRUE(e.Label37_Click());
    }
    table.MODIFICA_MODULO();

    // Only the bytes of the image that are not zero go out: RIGHE_GRUPPO (a
    // named and OR, c neither), GRUPPO(1), (5), (8) of a, (20) of c, and
    // MASCHERA_GRUPPI of the simple module.
    run.PROGRAMMA_IMPIANTO();
    std::vector<std::string> sent;
    for (const std::string& f : frames()) {
        const std::string command = f.substr(6, 2);
        if (f.starts_with("(3") &&
            (command == "50" || command == "A0" || command[0] == '8' || command[0] == '9'))
            sent.push_back(f);
    }
    const std::string x = full.substr(0, 4), y = simple.substr(0, 4);
    EXPECT_EQ(sent, (std::vector<std::string>{"(3" + x + "A003]", "(3" + x + "8001]",
                                              "(3" + x + "8401]", "(3" + x + "8702]",
                                              "(3" + x + "9302]", "(3" + y + "5002]"}));
}

}  // namespace
}  // namespace filo::commissioning
