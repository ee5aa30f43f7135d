// The diagram of one output: how each link is drawn, and the rows read from a project.
#include <gtest/gtest.h>

#include "diagnostics/output_diagram.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"
#include "texts/language_tables.hpp"

namespace filo::diagnostics {
namespace {

// A link's figures without times or conditions.
LinkFigures plain(const char* on, const char* off, const char* modo) {
    return {on, off, 0, 0, 0, modo, "00000000"};
}

TEST(OutputDiagram, EachLinkIsDrawnOnTheSideItActsOn) {
    struct Case {
        const char* what;
        LinkFigures link;
        DiagramSide side;
        const char* label_on;
        const char* label_off;
    } cases[] = {
        {"on and off", plain("251", "9", "00000000"), DiagramSide::Both, "  ON", "  OFF"},
        {"on only", plain("251", "8", "00000000"), DiagramSide::On, " SOLO ACCENDE", ""},
        {"off only", plain("252", "9", "00000000"), DiagramSide::Off, "", " SOLO SPEGNE"},
        {"inverted, on only", plain("251", "8", "00000100"), DiagramSide::Off, "", " SOLO SPEGNE"},
        {"inverted, off only", plain("252", "200", "00000100"), DiagramSide::On, " SOLO ACCENDE",
         ""},
        {"inverted, both", plain("0", "255", "00000100"), DiagramSide::Both, "  ON", "  OFF"},
        {"neither", plain("252", "8", "00000101"), DiagramSide::None, "", ""},
    };
    for (const Case& c : cases) {
        DiagramRow row;
        DISEGNA_RIGA(c.link, row);
        EXPECT_EQ(row.side, c.side) << c.what;
        EXPECT_EQ(row.label_on, c.label_on) << c.what;
        EXPECT_EQ(row.label_off, c.label_off) << c.what;
        EXPECT_FALSE(row.has_conditions) << c.what;
    }
}

TEST(OutputDiagram, TimesMarksAndConditionsShowOnlyWhereTheyApply) {
    DiagramRow both;
    DISEGNA_RIGA({"251", "9", 300, 5, 12, "10000001", "01000000"}, both);
    EXPECT_EQ(both.t_on, "PER 300 Sec");
    EXPECT_EQ(both.t_asp, "FRA 5 Sec");
    EXPECT_EQ(both.t_rit, "FRA 12 Sec");
    EXPECT_TRUE(both.mark_on && both.mark_off);
    EXPECT_TRUE(both.has_conditions);
    EXPECT_EQ(both.conditions_caption, "  Agisce SOLO SE queste uscite sono ATTIVE");

    DiagramRow on;
    DISEGNA_RIGA({"251", "8", 0, 0, 12, "00000001", "00100000"}, on);
    EXPECT_EQ(on.t_on, "");
    EXPECT_EQ(on.t_rit, "");  // the off side is not drawn
    EXPECT_TRUE(on.mark_on);
    EXPECT_FALSE(on.mark_off);
    EXPECT_EQ(on.conditions_caption, "  Agisce SOLO SE queste uscite sono DISATTIVE");
}

TEST(OutputDiagram, RowsComeFromTheLinksOfTheOutput) {
    testing::TempDir dir;
    store::Project project;
    project.open(testing::make_empty_project(dir.path()));
    store::ModuleTable modules(project);
    testing::add_module(modules, "00121F", 12, "Cucina");
    const struct {
        int campo;
        const char* nick;
    } names[] = {{1, "Tasto porta"}, {2, "Tasto finestra"}, {3, "Tasto letto"}, {9, "Luce"},
                 {10, "Ventola"},    {11, "Pompa"},         {12, "Spenta"}};
    for (const auto& n : names) testing::set_column(project, "00121F", n.campo, "nick", n.nick);
    // Output 1 is tied to output 2 by AND and to output 3 as reciprocal.
    testing::set_column(project, "00121F", 9, "modo",
                        "I0000000"
                        "01000000"
                        "00100000");

    store::LinkTable links(project);
    auto add = [&links](const std::string& rx, const std::string& tx, const char* command,
                        auto&& change) {
        links.LINK_CORRENTE = testing::switching_link(rx, tx, "Luce", command);
        change(links.LINK_CORRENTE);
        links.AGGIUNGI_LINK();
    };
    add("00121F/1", "00121F/1", "Tasto porta", [](store::LinkRow& r) { r.off_ = "9"; });
    add("00121F/1", "00121F/2", "Tasto finestra", [](store::LinkRow& r) {
        r.tempo_on1 = "1";
        r.tempo_on2 = "44";
        r.and_ = "01000000";
        r.modo_ = "100000012";
    });
    add("00121F/1", "00121F/3", "Tasto letto", [](store::LinkRow& r) { r.modo_ = "000001012"; });
    add("00121F/2", "00121F/3", "Tasto letto", [](store::LinkRow&) {});

    texts::LanguageTables texts;
    texts.ITALIANO();
    const std::int64_t luce = find_output(project, "luce");
    ASSERT_NE(luce, 0);
    EXPECT_EQ(find_output(project, " LUCE "), luce);
    EXPECT_EQ(find_output(project, "Tasto porta"), 0);  // an input is no output
    const OutputDiagram d = build_output_diagram(project, texts, luce);
    EXPECT_EQ(d.UTILIZZATORE, "Luce");
    EXPECT_EQ(d.module_label, " Modulo n°  00121F");
    EXPECT_EQ(d.tied[2].name, "Ventola");
    EXPECT_FALSE(d.tied[2].reciprocal);
    EXPECT_EQ(d.tied[3].name, "Pompa");
    EXPECT_TRUE(d.tied[3].reciprocal);
    EXPECT_EQ(d.tied[1].name, "");

    ASSERT_EQ(d.rows.size(), 3U);
    EXPECT_EQ(d.rows[0].command, "Tasto porta");
    EXPECT_EQ(d.rows[0].side, DiagramSide::Both);
    EXPECT_EQ(d.rows[1].side, DiagramSide::On);
    EXPECT_EQ(d.rows[1].t_on, "PER 300 Sec");
    EXPECT_TRUE(d.rows[1].mark_on);
    EXPECT_EQ(d.rows[1].conditions, std::vector<std::string>{"Ventola"});
    EXPECT_EQ(d.rows[1].conditions_caption, "  Agisce SOLO SE queste uscite sono ATTIVE");
    EXPECT_EQ(d.rows[2].side, DiagramSide::Off);
    EXPECT_FALSE(d.rows[2].has_conditions);

    // An output with no links shows the head alone.
    const OutputDiagram spenta =
        build_output_diagram(project, texts, find_output(project, "Spenta"));
    EXPECT_EQ(spenta.UTILIZZATORE, "Spenta");
    EXPECT_TRUE(spenta.rows.empty());
}

}  // namespace
}  // namespace filo::diagnostics
