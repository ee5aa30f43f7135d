#include "gui/gui_fixture.hpp"

#include <QDialog>
#include <QStackedWidget>
#include <QTest>
#include <QToolButton>
#include <stdexcept>

#include "app/demo.hpp"
#include "app/form3.hpp"
#include "app/form4.hpp"
#include "app/mdi_form1.hpp"
#include "app/module_entry.hpp"
#include "app/programming_window.hpp"
#include "app/project_errors.hpp"
#include "sim/installation.hpp"
#include "sim/sim_server.hpp"
#include "sim/simulator.hpp"
#include "store/sqlite.hpp"

namespace filo::testing {

SessionTest::SessionTest() {
    session.LIVELLO = 3;
}

void SessionTest::open_new_project(const std::string& name) {
    session.files.ensure_empty_project();
    const auto file = session.files.project_path(name);
    session.files.create_project(file);
    ASSERT_TRUE(app::open_project_file(session, file));
}

void SessionTest::add_module(const std::string& code) {
    ASSERT_EQ(app::enter_new_module(session, code), app::ModuleEntry::Added) << code;
}

std::vector<std::string> SessionTest::shown_texts() const {
    std::vector<std::string> texts;
    for (const Shown& s : messages.shown) texts.push_back(s.text);
    return texts;
}

std::int64_t SessionTest::rows(const std::string& table, const std::string& codice) {
    auto q = session.project.database().prepare("SELECT COUNT(*) FROM " + table +
                                                (codice.empty() ? "" : " WHERE codice = ?1"));
    if (!codice.empty()) q.bind(1, codice);
    q.step();
    return q.integer(0);
}

app::AppServices services_without_dialogs() {
    app::AppServices services;
    services.exec_dialog = [](QDialog& dialog) { return dialog.result(); };
    return services;
}

DemoInstallationTest::DemoInstallationTest() {
    session.LIVELLO = 3;
    app::make_demo_project(session);
    demo_file = session.files.project_path(app::kDemoProject);
}

DemoInstallationTest::~DemoInstallationTest() = default;

void DemoInstallationTest::connect_installation(std::vector<std::string> also_on_bus) {
    ASSERT_TRUE(app::open_project_file(session, demo_file));
    std::vector<std::string> on_bus = sim::bus_codes_of_project(demo_file);
    on_bus.insert(on_bus.end(), also_on_bus.begin(), also_on_bus.end());
    simulator = std::make_unique<sim::Simulator>(sim::make_installation(on_bus, {}), sim::Faults{});
    server = std::make_unique<sim::SimServer>(*simulator);
    server->start();
    ASSERT_TRUE(session.use_port(server->path()));
}

void DemoInstallationTest::show_project_window(QSize size) {
    main = std::make_unique<app::MDIForm1>(session, services_without_dialogs());
    if (size.isValid()) main->resize(size);
    main->show();
    ASSERT_TRUE(main->show_project());
}

sim::SimModule DemoInstallationTest::module_on_bus(const std::string& code) {
    sim::SimModule found;
    server->inspect([&](const sim::Simulator& s) {
        for (const sim::SimModule& m : s.modules())
            if (m.code == code) found = m;
    });
    return found;
}

const app::ProgrammingWindow& DemoInstallationTest::program_from_project_window() {
    QTest::mouseClick(main->form3()->findChild<QToolButton*>("Image1_4"), Qt::LeftButton);
    auto* form = qobject_cast<app::Form4*>(main->findChild<QStackedWidget*>()->currentWidget());
    if (!form) throw std::runtime_error("the programming window did not open");
    const app::ProgrammingWindow& run = form->tool();
    EXPECT_TRUE(QTest::qWaitFor([&] { return run.runs == 1 && !run.in_progress(); }, 60000));
    return run;
}

}  // namespace filo::testing
