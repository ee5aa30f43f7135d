// The control lines: what the person at the installation does (press a
// button, turn a sensor) and what a module shows when it is asked.
#include <algorithm>
#include <cctype>
#include <charconv>
#include <sstream>

#include "bus/conversions.hpp"
#include "bus/frame_builder.hpp"
#include "sim/simulator.hpp"

namespace filo::sim {
namespace {

constexpr std::uint8_t kPressed = 251;
constexpr std::uint8_t kReleased = 9;
constexpr int kHeldOffset = 8;  // a held press is told as input + 8

std::optional<int> decimal(const std::string& word, int low, int high) {
    int value = 0;
    const auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (ec != std::errc() || end != word.data() + word.size() || value < low || value > high)
        return std::nullopt;
    return value;
}

std::string upper(std::string word) {
    for (char& c : word) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return word;
}

}  // namespace

std::string Simulator::control(std::string_view line, double now) {
    std::istringstream in{std::string(line)};
    std::vector<std::string> words;
    for (std::string w; in >> w;) words.push_back(std::move(w));
    if (words.empty() || words[0][0] == '#') return {};
    const std::string& verb = words[0];
    now_ = std::max(now_, now);
    advance(now);
    if (verb == "traffic") {
        const auto rate = words.size() == 2 ? decimal(words[1], 0, 1000) : std::nullopt;
        if (!rate) return "usage: traffic N (presses and releases a second, 0-1000)";
        set_traffic(*rate, now);
        return {};
    }
    if (words.size() < 2) return "missing module code: " + std::string(line);
    SimModule* m = module(upper(words[1]));
    if (!m) return "no module " + words[1] + " in the installation";

    auto event = [&](int input, int value) -> std::string {
        if (m->silent) return "module " + m->code + " is silent";
        input_event(m->address, input, value, true, 0);
        return {};
    };
    if (verb == "press" || verb == "release" || verb == "hold") {
        const auto input = words.size() == 3 ? decimal(words[2], 1, 8) : std::nullopt;
        if (!input) return "usage: " + verb + " CODE INPUT (1-8)";
        if (verb == "hold") return event(*input + kHeldOffset, kPressed);
        return event(*input, verb == "press" ? kPressed : kReleased);
    }
    if (verb == "event") {
        const auto input = words.size() == 4 ? decimal(words[2], 0, 255) : std::nullopt;
        const auto value = words.size() == 4 ? decimal(words[3], 0, 255) : std::nullopt;
        if (!input || !value) return "usage: event CODE INPUT VALUE (0-255 each)";
        return event(*input, *value);
    }
    if (verb == "analog") {
        if (words.size() < 3 || words.size() > 2 + bus::kMaxAnalogValues)
            return "usage: analog CODE VALUE... (1 to 8 values, 0-255)";
        bus::AnalogValues values;
        for (std::size_t i = 2; i < words.size(); ++i) {
            const auto v = decimal(words[i], 0, 255);
            if (!v) return "not a value 0-255: " + words[i];
            values.values[values.count++] = static_cast<std::uint8_t>(*v);
        }
        m->analog = values;
        m->analog_set = true;
        return {};
    }
    if (verb == "register") {
        const auto reg = words.size() == 4 ? bus::read_hex_byte(upper(words[2])) : std::nullopt;
        const auto value = words.size() == 4 ? bus::read_hex_byte(upper(words[3])) : std::nullopt;
        if (!reg || !value) return "usage: register CODE RR VV (two hex digits each)";
        m->readable[*reg] = *value;
        return {};
    }
    if (verb == "daylight" || verb == "lamps") {
        const auto v = words.size() == 3 ? decimal(words[2], 0, 255) : std::nullopt;
        if (!v) return "usage: " + verb + " CODE VALUE (0-255)";
        if (m->type != kPhotoSensorType) return "module " + m->code + " is no photo-sensor";
        (verb == "daylight" ? m->room.daylight : m->room.lamps) = *v;
        start_regulating(static_cast<std::size_t>(m - modules_.data()));
        return {};
    }
    if (verb == "silent") {
        if (words.size() != 3 || (words[2] != "on" && words[2] != "off"))
            return "usage: silent CODE on|off";
        m->silent = words[2] == "on";
        return {};
    }
    return "unknown control: " + verb;
}

}  // namespace filo::sim
