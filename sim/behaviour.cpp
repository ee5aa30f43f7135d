// What the installation does by itself: inputs run the links stored in the
// modules, outputs switch (at once, after a delay, for a time), relays that
// were programmed to tell put their events on the bus, photo-sensors
// regulate their lamps, and random traffic presses buttons.
#include <algorithm>
#include <cmath>
#include <set>

#include "bus/frame_builder.hpp"
#include "sim/simulator.hpp"

namespace filo::sim {
namespace {

constexpr int kPressed = 251;
constexpr int kReleased = 9;
constexpr int kRelays = 8;
constexpr int kFlags = 16;
constexpr int kHeldOffset = 8;    // a held press is told as input + 8
constexpr int kEventOffset = 16;  // the event of relay n is told as input n + 16
// An event of a relay may run links that switch other relays, that tell
// their events in turn: a loop of links stops here.
constexpr int kMaxChain = 8;

// Bits of a link's mode byte (its first character the highest).
constexpr std::uint8_t kConditionActive = 0x80;  // the AND condition asks for relays on
constexpr std::uint8_t kCompared = 0x40;         // compares a value: not simulated
constexpr std::uint8_t kAnalogSource = 0x20;     // follows an analog value: not simulated
constexpr std::uint8_t kInvertedInput = 0x04;
constexpr std::uint8_t kRetrig = 0x02;
constexpr std::uint8_t kStepByStep = 0x01;
// Bits of settimana: the time is in tenths of a second.
constexpr std::uint8_t kOnTenths = 0x20;
constexpr std::uint8_t kDelayTenths = 0x10;
constexpr std::uint8_t kOffDelayTenths = 0x08;
// giorno "80": minuto and ora hold the delay before switching off.
constexpr std::uint8_t kOffDelayMark = 0x80;
// The second set of values of a link comes in rows of their own.
constexpr int kSecondSet = 128;

// The regulation of a photo-sensor: a step every 0.1 s, half the way to the
// set point each time.
constexpr double kRegulationPeriod = 0.1;
constexpr double kRegulationGain = 0.5;
// Set point and lowest power as the module keeps them before it is told.
constexpr std::uint8_t kSetPointCommand = 0x13;
constexpr std::uint8_t kMinimumPowerCommand = 0x11;
constexpr int kDefaultSetPoint = 125;
constexpr int kDefaultMinimumPower = 40;
// The command to the lamps goes on the bus as the event of output 1.
constexpr int kCommandEvent = 1 + kEventOffset;

double seconds(std::uint8_t high, std::uint8_t low, bool tenths) {
    const double value = high * 256.0 + low;
    return tenths ? value / 10 : value;
}

int parameter(const SimModule& m, std::uint8_t command, int fallback) {
    const auto it = m.registers.find(command);
    return it == m.registers.end() ? fallback : it->second;
}

}  // namespace

void Simulator::schedule(double at, Pending p) {
    pending_.emplace(at, p);
}

unsigned& Simulator::generation(std::size_t module, int output) {
    return generations_[{module, output}];
}

void Simulator::advance(double now) {
    while (!pending_.empty() && pending_.begin()->first <= now) {
        const auto first = pending_.begin();
        const double at = first->first;
        const Pending p = first->second;
        pending_.erase(first);
        run(p, at);
    }
}

void Simulator::run(const Pending& p, double at) {
    now_ = std::max(now_, at);
    switch (p.what) {
        case Pending::What::SwitchOn:
            if (p.generation == generation(p.module, p.output))
                switch_on(p.module, p.output, p.timed, p.retrig, 0);
            break;
        case Pending::What::SwitchOff:
            if (p.generation == generation(p.module, p.output)) switch_off(p.module, p.output, 0);
            break;
        case Pending::What::Regulate:
            regulate(p.module);
            break;
        case Pending::What::Traffic:
            random_press();
            if (traffic_period_ > 0) schedule(at + traffic_period_, {Pending::What::Traffic});
            break;
    }
}

void Simulator::input_event(std::uint16_t address, int input, int value, bool to_pc, int depth) {
    if (depth > kMaxChain) return;
    for (SimModule& m : modules_) {
        if (m.address != address || m.silent) continue;
        const bool pressed = value == kPressed;
        const bool released = value == kReleased;
        auto mark = [&](std::uint8_t& bits, int n) {
            const auto bit = static_cast<std::uint8_t>(1u << (n - 1));
            if (pressed) bits |= bit;
            if (released) bits &= static_cast<std::uint8_t>(~bit);
        };
        if (input >= 1 && input <= kRelays) {
            mark(m.state.inputs, input);
            // Letting go ends a hold as well.
            if (released) m.state.held &= static_cast<std::uint8_t>(~(1u << (input - 1)));
        }
        if (input > kHeldOffset && input <= kHeldOffset + kRelays)
            mark(m.state.held, input - kHeldOffset);
    }
    if (to_pc)
        send(bus::input_event_frame(address, static_cast<std::uint8_t>(input),
                                    static_cast<std::uint8_t>(value)),
             now_);
    // Links are followed in the modules' own order; a copy, as a link may
    // reprogram nothing but may switch outputs that run further links.
    for (std::size_t i = 0; i < modules_.size(); ++i) {
        if (modules_[i].silent) continue;
        const std::vector<bus::LinkRecord> links = modules_[i].link_records;
        for (const bus::LinkRecord& link : links)
            if (link.transmitter == address && link.numero_ingresso == input)
                follow_link(i, link, value, depth);
    }
}

void Simulator::follow_link(std::size_t module, const bus::LinkRecord& link, int value, int depth) {
    const int output = link.numero_uscita;
    if (link.numero_ingresso >= kSecondSet || output < 1 || output > kRelays + kFlags) return;
    if (link.modo_ & (kCompared | kAnalogSource)) return;
    if (link.modo_ & kInvertedInput) {
        if (value == kPressed)
            value = kReleased;
        else if (value == kReleased)
            value = kPressed;
    }
    if (link.and_ != 0) {
        const std::uint8_t on = modules_[module].state.relays & link.and_;
        const bool met = (link.modo_ & kConditionActive) ? on == link.and_ : on == 0;
        if (!met) return;
    }
    const bool is_on = output <= kRelays
                           ? (modules_[module].state.relays >> (output - 1)) & 1
                           : (modules_[module].state.flags >> (output - kRelays - 1)) & 1;
    if (link.modo_ & kStepByStep) {
        if (value != link.on_) return;
        if (is_on)
            switch_off(module, output, depth);
        else
            switch_on(module, output, 0, false, depth);
        return;
    }
    if (value == link.on_) {
        const double timed = seconds(link.tempo_on1, link.tempo_on2, link.settimana & kOnTenths);
        const double delay =
            seconds(link.tempo_off1, link.tempo_off2, link.settimana & kDelayTenths);
        const bool retrig = link.modo_ & kRetrig;
        if (delay > 0)
            schedule(now_ + delay, {Pending::What::SwitchOn, module, output, timed, retrig,
                                    generation(module, output)});
        else
            switch_on(module, output, timed, retrig, depth);
    } else if (value == link.off_) {
        const double delay = link.giorno == kOffDelayMark
                                 ? seconds(link.ora, link.minuto, link.settimana & kOffDelayTenths)
                                 : 0;
        if (delay > 0)
            schedule(now_ + delay, {Pending::What::SwitchOff, module, output, 0, false,
                                    generation(module, output)});
        else
            switch_off(module, output, depth);
    }
}

void Simulator::switch_on(std::size_t module, int output, double timed, bool retrig, int depth) {
    const auto key = std::make_pair(module, output);
    const auto due = off_due_.find(key);
    const bool counting = due != off_due_.end() && due->second > now_;
    if (counting && !retrig) {  // the time running is not restarted
        set_output(module, output, true, depth);
        return;
    }
    // A new command overrides what was pending for the output: a delayed
    // switching off, or the time of an earlier press.
    const unsigned g = ++generation(module, output);
    off_due_.erase(key);
    set_output(module, output, true, depth);
    if (timed <= 0) return;
    off_due_[key] = now_ + timed;
    schedule(now_ + timed, {Pending::What::SwitchOff, module, output, 0, false, g});
}

void Simulator::switch_off(std::size_t module, int output, int depth) {
    ++generation(module, output);
    off_due_.erase({module, output});
    set_output(module, output, false, depth);
}

void Simulator::set_output(std::size_t module, int output, bool on, int depth) {
    SimModule& m = modules_[module];
    if (output > kRelays) {
        const auto bit = static_cast<std::uint16_t>(1u << (output - kRelays - 1));
        m.state.flags = static_cast<std::uint16_t>(on ? m.state.flags | bit : m.state.flags & ~bit);
        return;
    }
    const auto bit = static_cast<std::uint8_t>(1u << (output - 1));
    const std::uint8_t before = m.state.relays;
    m.state.relays = static_cast<std::uint8_t>(on ? before | bit : before & ~bit);
    if (m.state.relays != before && m.emits_event(output))
        input_event(m.address, output + kEventOffset, on ? kPressed : kReleased, true, depth + 1);
}

void Simulator::start_regulating(std::size_t module) {
    Room& room = modules_[module].room;
    if (!room.setup || room.regulating) return;
    room.regulating = true;
    schedule(now_ + kRegulationPeriod, {Pending::What::Regulate, module});
}

void Simulator::regulate(std::size_t module) {
    SimModule& m = modules_[module];
    Room& room = m.room;
    room.regulating = false;
    if (!room.setup || m.silent) return;
    const int set_point = parameter(m, kSetPointCommand, kDefaultSetPoint);
    const int minimum = parameter(m, kMinimumPowerCommand, kDefaultMinimumPower);
    // The command that would give the set point, approached half-way a step.
    const double error = set_point - room.reading();
    const double step = kRegulationGain * error * 255 / std::max(1, room.lamps);
    const int command =
        std::clamp(static_cast<int>(std::lround(room.command + step)), minimum, 255);
    if (command == room.command) return;  // settled, or held at a limit
    room.command = command;
    input_event(m.address, kCommandEvent, command, true, 0);
    start_regulating(module);
}

void Simulator::set_traffic(double per_second, double now) {
    now_ = std::max(now_, now);
    const bool running = traffic_period_ > 0;
    traffic_period_ = per_second > 0 ? 1 / per_second : 0;
    if (traffic_period_ > 0 && !running) schedule(now, {Pending::What::Traffic});
    if (traffic_period_ > 0 || !running) return;
    for (auto it = pending_.begin(); it != pending_.end();)
        it = it->second.what == Pending::What::Traffic ? pending_.erase(it) : std::next(it);
}

void Simulator::random_press() {
    // The inputs 1-8 that some stored link follows, of modules that answer.
    std::set<std::pair<std::uint16_t, int>> linked;
    for (const SimModule& m : modules_)
        for (const bus::LinkRecord& link : m.link_records)
            if (link.numero_ingresso >= 1 && link.numero_ingresso <= kRelays)
                linked.emplace(link.transmitter, link.numero_ingresso);
    auto answering = [this](std::uint16_t address) -> const SimModule* {
        for (const SimModule& m : modules_)
            if (m.address == address && !m.silent) return &m;
        return nullptr;
    };
    std::vector<std::pair<std::uint16_t, int>> inputs;
    for (const auto& point : linked)
        if (answering(point.first)) inputs.push_back(point);
    if (inputs.empty()) return;
    const auto [address, input] = inputs[random_() % inputs.size()];
    const SimModule* m = answering(address);
    const bool pressed = (m->state.inputs >> (input - 1)) & 1;
    input_event(address, input, pressed ? kReleased : kPressed, true, 0);
}

}  // namespace filo::sim
