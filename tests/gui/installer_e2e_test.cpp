// What a new installer does first, end to end: the demo project and its
// simulated installation on a real pseudo-terminal, a scan that finds the
// module the project lacks, the module entered in its window, the
// installation programmed.
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <algorithm>

#include "app/demo.hpp"
#include "app/form3.hpp"
#include "app/form4.hpp"
#include "app/mdi_form1.hpp"
#include "app/moduli.hpp"
#include "app/programming_window.hpp"
#include "app/project_hub.hpp"
#include "gui/gui_fixture.hpp"
#include "sim/sim_server.hpp"
#include "sim/simulator.hpp"

namespace filo::testing {
namespace {

using InstallerEndToEnd = DemoInstallationTest;

TEST_F(InstallerEndToEnd, TheScanEntersTheNewModuleAndTheRunProgramsIt) {
    ASSERT_NO_FATAL_FAILURE(connect_installation({app::kDemoSpareModule}));
    ASSERT_NO_FATAL_FAILURE(show_project_window());
    app::ProjectHub& hub = main->form3()->tool();

    // Insert what the scan found; don't suspend after the first.
    messages.answers = {true, false};
    hub.menu_click(app::ProjectHub::Scan);
    ASSERT_TRUE(hub.scanning());
    // The sweep asks one address every 0.2 s; the spare module stands at 0x60,
    // so the scan is stopped once it answered, as an installer may.
    const auto found = [&] {
        return std::find(hub.List1.begin(), hub.List1.end(), app::kDemoSpareModule) !=
               hub.List1.end();
    };
    ASSERT_TRUE(QTest::qWaitFor(found, 120000));
    // The new module opens in the module window, the scan waiting: Salva.
    QTimer saver;
    QObject::connect(&saver, &QTimer::timeout, [&] {
        if (auto* window = main->module_window())
            if (auto* save = window->findChild<QPushButton*>("Image1_1"); save && save->isVisible())
                save->click();
    });
    saver.start(50);
    hub.menu_click(app::ProjectHub::Scan);
    saver.stop();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !hub.scanning(); }, 10000));
    EXPECT_EQ(hub.List2, std::vector<std::string>{app::kDemoSpareModule});
    session.modules.ELENCO_MODULI();
    EXPECT_NE(std::find(session.modules.ELENCO_CODICI.begin(), session.modules.ELENCO_CODICI.end(),
                        app::kDemoSpareModule),
              session.modules.ELENCO_CODICI.end());

    QTest::mouseClick(main->form3()->findChild<QToolButton*>("Image1_4"), Qt::LeftButton);
    auto* form = qobject_cast<app::Form4*>(main->findChild<QStackedWidget*>()->currentWidget());
    ASSERT_NE(form, nullptr);
    const app::ProgrammingWindow& run = form->tool();
    ASSERT_TRUE(QTest::qWaitFor([&] { return run.runs == 1 && !run.in_progress(); }, 60000));
    EXPECT_EQ(run.report().N_ERRORI, 0);
    server->inspect([&](const sim::Simulator& s) {
        for (const sim::SimModule& m : s.modules()) {
            SCOPED_TRACE(m.code);
            EXPECT_EQ(m.resets, 1);  // the new module too: it is in the project now
        }
    });
}

}  // namespace
}  // namespace filo::testing
