// light: the working point of a photo-sensor module set as AVANZATE2 sets
// it, for scripts: the set point goes out, the module's answers are printed
// until the regulation settles, and the point is stored.
#include <algorithm>
#include <cctype>
#include <ostream>

#include "bus/line.hpp"
#include "bus/port_line.hpp"
#include "bus/receive_assembler.hpp"
#include "cli/commands.hpp"
#include "cli/line_steps.hpp"
#include "commissioning/constant_light.hpp"
#include "platform/clock.hpp"
#include "platform/serial_port.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"

namespace filo::cli {
namespace {

using texts::Text;

constexpr const char* kPhotoSensorType = "19";

std::string shown(int value) {
    return value < 0 ? "-" : std::to_string(value);
}

}  // namespace

int set_constant_light(Context& context, const LightRequest& request) {
    std::string code = request.code;
    std::transform(code.begin(), code.end(), code.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    store::Project project;
    project.open(request.project);
    store::ModuleTable modules(project);
    modules.LEGGI_MODULO(code);
    if (code.size() != 6 || modules.STATO_MODULO != "MODULO_ESISTENTE")
        throw UserError(context.texts.text(Text::MODULE_NOT_IN_PROJECT) + request.code);
    if (code.substr(4) != kPhotoSensorType)
        throw UserError(context.texts.text(Text::LIGHT_NOT_A_SENSOR) + code);

    const std::unique_ptr<platform::SerialPort> port = open_port(context, request.port);
    platform::SteadyClock clock;
    bus::ReceiveAssembler receiver;
    bus::PortLine io(*port, receiver, clock);
    bus::Line line(io, receiver);
    commissioning::ConstantLight light(modules, line);
    light.MODULO_REGOLATORE = code;
    light.Form_Load();
    light.Slider1_Change(request.level);
    context.out << "level " << light.Label7 << std::endl;
    light.send_set_point();

    // Settled: a query answered with no command from the module since the
    // query before it.
    const double end = clock.now() + request.timeout_s;
    double next_query = clock.now() + commissioning::ConstantLight::kTimer2Ms / 1000.0;
    int shown_sensor = -2, shown_command = -2;
    bool moved = true;  // a command came since the last query
    unsigned long frames_at_query = receiver.frames();
    bool settled = false;
    auto print = [&] {
        if (light.Label6 == shown_sensor && light.comando == shown_command) return;
        shown_sensor = light.Label6;
        shown_command = light.comando;
        context.out << "sensor " << shown(shown_sensor) << " command " << shown(shown_command)
                    << std::endl;
    };
    while (clock.now() < end) {
        io.serve_until(std::min(next_query, end), [&] { return light.Timer3; });
        print();
        if (light.Timer3) {
            moved = true;
            io.serve_until(clock.now() + commissioning::ConstantLight::kTimer3Ms / 1000.0,
                           [] { return false; });
            light.Timer3_Timer();
            continue;
        }
        if (clock.now() < next_query) continue;
        if (!moved && receiver.frames() > frames_at_query && light.Label6 >= 0) {
            settled = true;
            break;
        }
        moved = false;
        frames_at_query = receiver.frames();
        light.Timer2_Timer();
        next_query += commissioning::ConstantLight::kTimer2Ms / 1000.0;
    }
    if (!settled) {
        light.close();
        context.err << context.texts[Text::LIGHT_NOT_SETTLED] << '\n';
        return kExitNotAnswered;
    }
    light.Label1_Click(true);
    context.out << context.texts[light.Label4] << '\n'
                << "stored " << modules.RIGHE_MODULO.riga(1).riserva3.substr(17, 3) << std::endl;
    return kExitOk;
}

}  // namespace filo::cli
