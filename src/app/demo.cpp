#include "app/demo.hpp"

#include <stdexcept>
#include <system_error>

#include "app/project_errors.hpp"
#include "app/session.hpp"
#include "modules/message_editor.hpp"
#include "modules/module_editor.hpp"
#include "sim/installation.hpp"
#include "sim/sim_server.hpp"
#include "sim/simulator.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

namespace {

struct DemoPoint {
    int row;
    const char* name;
};
struct DemoModule {
    const char* code;
    const char* note;
    std::vector<DemoPoint> points;
};

// A small house: what an installer would have named.
const std::vector<DemoModule>& demo_modules() {
    static const std::vector<DemoModule> modules = {
        {"001015",
         "Quadro cucina",
         {{1, "Pulsante cucina"},
          {2, "Pulsante sala"},
          {9, "Luce cucina"},
          {10, "Luce sala"},
          {11, "Cappa"}}},
        {"002014", "Ingresso", {{1, "Pulsante porta"}, {2, "Interruttore scale"}}},
        {"003005", "Soggiorno", {{1, "Pulsante soggiorno"}, {9, "Lampada soggiorno"}}},
        {"004019", "Giardino", {{1, "Sensore luce giardino"}}},
        {"005050", "Camera", {{1, "Temperatura camera"}}},
    };
    return modules;
}

// The luminous panel at the door: its messages are the installer's to write.
constexpr const char* kDemoPanel = "00701E";
constexpr const char* kDemoPanelName = "Pannello ingresso";

}  // namespace

const std::vector<std::string>& demo_project_modules() {
    static const std::vector<std::string> codes = [] {
        std::vector<std::string> c;
        for (const DemoModule& m : demo_modules()) c.push_back(m.code);
        c.push_back(kDemoPanel);
        return c;
    }();
    return codes;
}

void make_demo_project(Session& session) {
    const auto file = session.files.project_path(kDemoProject);
    session.files.ensure_empty_project();
    if (session.files.create_project(file) == store::ProjectFiles::Creation::Exists) return;
    store::Project project;
    project.open(file);
    store::ModuleTable table(project);
    store::LinkTable links(project);
    for (const DemoModule& m : demo_modules()) {
        modules::ModuleEditor editor(table, links);
        if (!editor.create(m.code)) throw std::logic_error(std::string("demo type: ") + m.code);
        store::ModuleRecord& rows = table.RIGHE_MODULO;
        for (int i = 1; i <= 8 && i <= rows.N_RIGHE_MODULO(); ++i) rows.riga(i).note = m.note;
        for (const DemoPoint& p : m.points)
            if (p.row <= rows.N_RIGHE_MODULO()) editor.rename(p.row, p.name);
        if (editor.save() != modules::EditRefusal::None)
            throw std::logic_error(std::string("demo module: ") + m.code);
    }
    table.set_codice_modulo(kDemoPanel);
    modules::MessageEditor panel(table, links, session.texts);
    panel.load();
    panel.Text4_Change(kDemoPanelName);
    if (!panel.SALVA_INTERFACCIA()) throw std::logic_error("demo panel");
}

Demo::Demo(Session& session) : session_(session) {}

Demo::~Demo() {
    session_.close_port();
    if (server_) server_->stop();
}

std::string Demo::port_path() const {
    return server_ ? server_->path() : std::string();
}

bool Demo::start() {
    const auto file = session_.files.project_path(kDemoProject);
    try {
        make_demo_project(session_);
    } catch (const std::exception& e) {
        session_.message(Text::DEMO_UNAVAILABLE, Text::TITLE_WARNING, {}, e.what());
        return false;
    }
    if (!open_project_file(session_, file)) return false;
    try {
        std::vector<std::string> codes = sim::bus_codes_of_project(file);
        codes.push_back(kDemoSpareModule);
        sim::Faults line;
        line.baud = kDemoLineSpeed;  // the demo keeps a real line's pace
        simulator_ = std::make_unique<sim::Simulator>(sim::make_installation(codes, {}), line);
        server_ = std::make_unique<sim::SimServer>(*simulator_);
        server_->start();
    } catch (const std::exception& e) {
        server_.reset();
        simulator_.reset();
        session_.message(Text::DEMO_UNAVAILABLE, Text::TITLE_WARNING, {}, e.what());
        return true;  // the project is open all the same, off line
    }
    if (!session_.use_port(server_->path()))
        session_.message(Text::DEMO_UNAVAILABLE, Text::TITLE_WARNING, {}, server_->path());
    return true;
}

std::vector<std::string> Demo::module_codes() const {
    std::vector<std::string> codes;
    if (!server_) return codes;
    server_->inspect([&](const sim::Simulator& s) {
        for (const sim::SimModule& m : s.modules()) codes.push_back(m.code);
    });
    return codes;
}

std::string Demo::control(const std::string& line) {
    return server_ ? server_->control(line) : std::string("no simulated installation");
}

}  // namespace filo::app
