// The report window's tool object and its place in the project window.
#include "app/report_window.hpp"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <deque>

#include "app/form18.hpp"
#include "app/form3.hpp"
#include "app/mdi_form1.hpp"
#include "gui/gui_fixture.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"

namespace filo::testing {
namespace {

using texts::Text;

class ReportWindowTest : public SessionTest {
  protected:
    ReportWindowTest() {
        open_new_project();
        host.print = [this](const exchange::ReportDocument&, std::size_t pages) {
            printed.push_back(pages);
        };
    }
    // Links each on an output of its own: by user a group a link, 19 a page.
    void add_links(int count) {
        sqlite::Transaction t(session.project.database());
        for (int i = 0; i < count; ++i) {
            const std::string rx =
                std::to_string(1000 + made / 8) + "15/" + std::to_string(made % 8 + 1);
            session.links.LINK_CORRENTE =
                switching_link(rx, "000111/1", "Luce " + std::to_string(made), "Tasto");
            session.links.AGGIUNGI_LINK();
            ++made;
        }
        t.commit();
    }
    int made = 0;
    app::ReportHost host;
    std::vector<std::size_t> printed;
};

TEST_F(ReportWindowTest, PagesTurnAndTheButtonsFollow) {
    add_links(50);
    app::ReportWindow w(session, host);
    ASSERT_TRUE(w.STAMPA(3, "2026-11-23"));
    ASSERT_EQ(w.document().pages.size(), 3u);
    EXPECT_EQ(w.NUMERO_REPORT, "3");
    EXPECT_EQ(w.STAMPA_ESTESA, "NO");
    const auto state = [&w] {
        return w.Label4 + "|" + w.Label2 + "-" + w.Label3 + "|" + (w.Command1 ? "<" : "") +
               (w.Command2 ? ">" : "") + "|" + w.STAMPA_FINITA;
    };
    EXPECT_EQ(state(), "Pagina  1|1-19|>|");
    w.Command1_Click();
    EXPECT_EQ(state(), "Pagina  1|1-19|>|");
    w.Command2_Click();
    EXPECT_EQ(state(), "Pagina  2|20-38|<>|");
    w.Command2_Click();
    w.Command2_Click();
    EXPECT_EQ(state(), "Pagina  3|39-50|<|TUTTO");
    w.Command1_Click();
    EXPECT_EQ(state(), "Pagina  2|20-38|<>|");
}

TEST_F(ReportWindowTest, PrintingAsksOnceAfterTheTenthPage) {
    struct Case {
        int links;
        std::deque<bool> answers;
        std::size_t asked;
        std::size_t printed;
    };
    // 190 links by user: exactly 10 pages; 250: 14.
    const Case cases[] = {{190, {}, 0, 10}, {250, {false}, 1, 10}, {250, {true}, 1, 14}};
    for (const Case& c : cases) {
        add_links(c.links - made);
        messages.asked.clear();
        messages.answers = c.answers;
        printed.clear();
        app::ReportWindow w(session, host);
        ASSERT_TRUE(w.STAMPA(3, ""));
        w.Command3_Click();
        EXPECT_EQ(messages.asked.size(), c.asked) << c.links;
        if (c.asked) {
            EXPECT_EQ(messages.asked[0].text, session.texts.text(Text::PRINT_TEN_PAGES_QUEUED));
        }
        EXPECT_EQ(printed, std::vector<std::size_t>{c.printed}) << c.links;
    }
}

TEST_F(ReportWindowTest, TooManyRowsIsToldAndNoReportShows) {
    add_links(3001);
    app::ReportWindow w(session, host);
    EXPECT_FALSE(w.STAMPA(1, ""));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_NE(messages.shown[0].text.find("3001"), std::string::npos);
}

TEST_F(ReportWindowTest, TheEntryOpensTheWindowBesideTheHubAndAMainEntryClosesIt) {
    add_links(50);
    app::MDIForm1 main(session, services_without_dialogs());
    main.show();
    ASSERT_TRUE(main.show_project());
    child<QToolButton>(main.form3(), "Image1_9")->click();
    auto* report = main.findChild<app::Form18*>("Form18");
    ASSERT_NE(report, nullptr);
    EXPECT_TRUE(report->isVisible());
    EXPECT_EQ(report->tool().NUMERO_REPORT, "4");
    auto* page = child<QLabel>(report, "Label4");
    child<QPushButton>(report, "Command2")->click();
    EXPECT_EQ(page->text(), "Pagina  2");
    EXPECT_FALSE(report->grab().isNull());
    child<QToolButton>(main.form3(), "Image1_0")->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return main.findChild<app::Form18*>("Form18") == nullptr; }));
}

}  // namespace
}  // namespace filo::testing
