#include <gtest/gtest.h>

#include "exchange/report_layout.hpp"

namespace filo::exchange {
namespace {

// n link rows; a new command (a new group) every `per_group` rows.
std::vector<ReportRow> link_rows(int n, int per_group) {
    std::vector<ReportRow> rows;
    for (int i = 0; i < n; ++i) {
        const std::string group = std::to_string(i / per_group);
        ReportRow& r = rows.emplace_back();
        r.STAMPA_NICK_TX = "Tasto " + group;
        r.STAMPA_ID_TX = "0001" + group;
        r.STAMPA_NICK_RX = "Luce " + std::to_string(i);
        r.STAMPA_ID_RX = "0002/" + std::to_string(i);
        r.STAMPA_RIGA = "riga " + std::to_string(i);
    }
    return rows;
}

std::vector<int> last_rows(const std::vector<ReportPage>& pages) {
    std::vector<int> out;
    for (const ReportPage& p : pages) out.push_back(p.last_row);
    return out;
}

TEST(ReportLayout, PagesEndAtTheBoundAndNeverEmptyAfterTheLastRow) {
    struct Case {
        const char* name;
        int kind;
        std::vector<ReportRow> rows;
        std::vector<int> last_rows;
        int first_page_lines;
    };
    std::vector<ReportRow> channel_at_end = link_rows(3, 10);
    channel_at_end.push_back({});
    const Case cases[] = {
        // One group: two lines for its frame, then a line a row; the 64th
        // row's line passes 65 and opens page 2.
        {"one group, short", 1, link_rows(63, 1000), {63}, 65},
        {"one group, one row over", 1, link_rows(64, 1000), {63, 64}, 65},
        // A group a row: the bound is tested before the frame's two lines,
        // so the page ends at 66.
        {"a group a row", 1, link_rows(30, 1), {22, 30}, 66},
        // Extended: a line more a row.
        {"one group, extended", 2, link_rows(40, 1000), {32, 40}, 66},
        // By user every output here is a group of its own.
        {"by user, bound 55", 3, link_rows(60, 1000), {19, 38, 57, 60}, 57},
        {"empty report: one page", 1, {}, {0}, 0},
        {"a channel row last ends the report", 1, channel_at_end, {4}, 6},
    };
    for (const Case& c : cases) {
        const auto pages = paginate(*report_kind(c.kind), c.rows);
        EXPECT_EQ(last_rows(pages), c.last_rows) << c.name;
        EXPECT_EQ(pages.front().lines_used, c.first_page_lines) << c.name;
        for (std::size_t p = 1; p < pages.size(); ++p)
            EXPECT_EQ(pages[p].first_row, pages[p - 1].last_row + 1) << c.name;
    }
}

TEST(ReportLayout, GroupsCaptionsAndLinesByKind) {
    std::vector<ReportRow> rows = link_rows(3, 2);
    rows.insert(rows.begin() + 1, ReportRow{});  // a channel row: a line, nothing shown
    const ReportPage by_command = lay_out_page(*report_kind(1), rows, 1);
    ASSERT_EQ(by_command.groups.size(), 2u);
    EXPECT_EQ(by_command.groups[0].caption, "Tasto 0      00010");
    EXPECT_EQ(by_command.groups[0].lines,
              (std::vector<std::string>{"0002/0      Luce 0", "0002/1      Luce 1"}));
    EXPECT_EQ(by_command.groups[1].top_line, 5);

    const ReportPage extended = lay_out_page(*report_kind(4), rows, 1);
    ASSERT_EQ(extended.groups.size(), 3u);  // by user: every output its own group
    EXPECT_EQ(extended.groups[0].caption, "Luce 0      0002/0");
    EXPECT_EQ(extended.groups[0].lines, (std::vector<std::string>{"Tasto 0", "riga 0"}));

    // A page opened by a later row of a group shows the group's caption again.
    const ReportPage second = lay_out_page(*report_kind(1), link_rows(70, 1000), 64);
    ASSERT_EQ(second.groups.size(), 1u);
    EXPECT_EQ(second.groups[0].caption, "Tasto 0      00010");
    EXPECT_EQ(second.groups[0].lines.size(), 7u);

    ReportRow module_row;
    module_row.STAMPA_NICK_TX = "000111    Cucina";
    module_row.STAMPA_RIGA = "      RELE";
    module_row.STAMPA_CODICE = "7 / 8";
    const ReportPage modules = lay_out_page(*report_kind(5), {module_row, module_row}, 1);
    ASSERT_EQ(modules.groups.size(), 1u);
    EXPECT_EQ(modules.groups[0].caption, "000111    Cucina      ");
    EXPECT_EQ(modules.groups[0].codes, (std::vector<std::string>{"7 / 8", "7 / 8"}));
}

}  // namespace
}  // namespace filo::exchange
