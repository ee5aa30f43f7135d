#include "sim/dump.hpp"

#include <nlohmann/json.hpp>

#include "bus/conversions.hpp"
#include "common/windows1252.hpp"
#include "sim/simulator.hpp"

namespace filo::sim {
namespace {

using nlohmann::json;

std::string remote_code(const TaughtRemote& r) {
    // A half the receiver never got reads "..".
    return (r.first ? bus::hex_byte(*r.first) : "..") +
           (r.second ? bus::hex_byte(*r.second) : "..");
}

// Character k is point k: "1" on or pressed.
std::string points(unsigned bits, int count) {
    std::string text(static_cast<std::size_t>(count), '0');
    for (int k = 0; k < count; ++k)
        if ((bits >> k) & 1) text[static_cast<std::size_t>(k)] = '1';
    return text;
}

json state_json(const SimModule& m) {
    const bus::AnalogValues analog = m.analog_values();
    return {{"relays", points(m.relay_outputs(), 8)},
            {"flags", points(m.state.flags, 16)},
            {"inputs", points(m.state.inputs, 8)},
            {"analog", std::vector<int>(analog.values.begin(), analog.values.end())}};
}

json module_json(const SimModule& m) {
    json registers = json::object();
    for (const auto& [command, value] : m.registers)
        registers[bus::hex_byte(command)] = bus::hex_byte(value);
    json texts = json::object();
    for (const auto& [record, text] : m.texts)
        texts[bus::hex_byte(record)] = basic::windows1252_to_utf8(text);
    json cards = json::array();
    for (const auto& card : m.cards) cards.push_back({{"list", card.list}, {"entry", card.entry}});
    json remotes = json::object();
    for (const auto& [number, remote] : m.remotes)
        remotes[std::to_string(number)] = remote_code(remote);
    return {{"type", bus::hex_byte(m.type)},
            {"silent", m.silent},
            {"resets", m.resets},
            {"reset", m.reset_value ? bus::hex_byte(*m.reset_value) : ""},
            {"registers", std::move(registers)},
            {"tipologie", m.tipologie},
            {"texts", std::move(texts)},
            {"cards", std::move(cards)},
            {"links", m.links},
            {"remotes", std::move(remotes)},
            {"frames", m.frames},
            {"state", state_json(m)}};
}

}  // namespace

std::string dump_json(const Simulator& simulator) {
    json modules = json::object();
    for (const SimModule& m : simulator.modules()) modules[m.code] = module_json(m);
    json bus = json::array();
    for (const std::string& frame : simulator.bus())
        bus.push_back(basic::windows1252_to_utf8(frame));
    const json dump = {
        {"modules", std::move(modules)},
        {"links", simulator.links()},
        {"frames", simulator.bus().size()},
        {"rejected", simulator.rejected()},
        {"programming",
         {{"opened", simulator.programming_opened()}, {"closed", simulator.programming_closed()}}},
        {"bus", std::move(bus)}};
    return dump.dump(2) + "\n";
}

}  // namespace filo::sim
