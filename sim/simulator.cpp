#include "sim/simulator.hpp"

#include <algorithm>

#include "bus/frame.hpp"
#include "bus/frame_parser.hpp"

namespace filo::sim {
namespace {

// Noise is drawn from characters with codes 100 to 122: none is a start
// mark, and none can run together with its neighbours into the decimal
// codes of "OK" or of the search digits, so noise never fakes an answer.
constexpr std::string_view kNoise = "defghijklmnopqrstuvwxyz";
constexpr std::string_view kOk = "OK";
// Start bit, eight data bits, stop bit.
constexpr double kBitsPerCharacter = 10;

}  // namespace

Simulator::Simulator(std::vector<SimModule> modules, Faults faults)
    : modules_(std::move(modules)),
      faults_(faults),
      random_(faults.seed),
      character_time_(faults.baud > 0 ? kBitsPerCharacter / faults.baud : 0) {
    input_.on_search_digits = [this] { send(std::string(ProgrammerInput::kSearchDigits), now_); };
    input_.on_frame = [this](const std::string& frame) { put_on_bus(frame); };
    input_.on_answer_asked = [this] { answer_asked(); };
}

void Simulator::receive(std::string_view bytes, double now) {
    advance(now);
    // Each character is there once the line has carried it, after those
    // written before it.
    for (char c : bytes) {
        in_free_ = std::max(in_free_, now) + character_time_;
        now_ = in_free_;
        input_.feed(c);
    }
}

std::string Simulator::take_output(double now) {
    advance(now);
    return outbox_.take(now);
}

std::optional<double> Simulator::next_output() const {
    const std::optional<double> out = outbox_.next();
    if (pending_.empty()) return out;
    const double event = pending_.begin()->first;
    return out ? std::min(*out, event) : event;
}

SimModule* Simulator::module(std::string_view code) {
    for (SimModule& m : modules_)
        if (m.code == code) return &m;
    return nullptr;
}

void Simulator::put_on_bus(const std::string& text) {
    ok_owed_ = false;
    const bus::Frame frame = bus::parse_frame(text);
    // A frame spoilt on the way is not put on the bus, and so earns no "OK":
    // the PC repeats it as it repeats any frame left unanswered.
    if (!frame.checksum_ok) {
        ++rejected_;
        return;
    }
    bus_.push_back(text);
    if (frame.kind == bus::FrameKind::BusControl) {
        if (frame.value == 0x55) ++opened_;
        if (frame.value == 0xAA) ++closed_;
        ok_owed_ = true;  // meant for the programmer itself
        return;
    }
    if (frame.kind == bus::FrameKind::Unknown) return;  // no module takes it
    bool taken = false;
    // The "OK" stands for a module that took the frame: none at the address,
    // or only silent ones, and the PC hears nothing.
    for (std::size_t i = 0; i < modules_.size(); ++i) {
        SimModule& m = modules_[i];
        if (m.address != frame.address || m.silent) continue;
        ok_owed_ = taken = true;
        const std::size_t links_before = m.links.size();
        if (auto answer = m.take(frame)) send(std::move(*answer), now_ + faults_.late);
        if (m.links.size() > links_before) links_.push_back(m.links.back());
        if (m.type == kPhotoSensorType && frame.kind == bus::FrameKind::Parameter)
            start_regulating(i);
    }
    // The PC simulating an input: the module acts as if it had been pressed.
    if (taken && frame.kind == bus::FrameKind::InputEvent)
        input_event(frame.address, frame.command, frame.value, false, 0);
}

void Simulator::answer_asked() {
    if (!ok_owed_) return;
    ok_owed_ = false;  // one "OK" a frame
    if (chance(faults_.drop_ok)) return;
    send(std::string(kOk), now_ + faults_.late);
}

bool Simulator::chance(double rate) {
    if (rate <= 0) return false;
    // mt19937's sequence is fixed by the standard, so a seed gives the same
    // faults everywhere.
    return (random_() >> 8) * (1.0 / 16777216.0) < rate;
}

void Simulator::send(std::string bytes, double at) {
    if (chance(faults_.noise)) {
        // Short bursts: the PC keeps 50 decimal digits while it waits for
        // "OK", so longer garbage in front of an answer would cost the OK
        // behind it, as it would on a real line.
        const std::size_t n = 1 + random_() % 3;
        std::string garbage;
        for (std::size_t i = 0; i < n; ++i) garbage += kNoise[random_() % kNoise.size()];
        bytes.insert(0, garbage);
    }
    // Whole on the line behind what is already on it: the PC has it when its
    // last character (or the first piece) has crossed.
    const double start = std::max(at, out_free_);
    out_free_ = start + static_cast<double>(bytes.size()) * character_time_;
    std::vector<std::string> pieces;
    if (!faults_.split) {
        pieces.push_back(std::move(bytes));
    } else {
        for (std::size_t i = 0; i < bytes.size();) {
            const std::size_t n = 1 + random_() % 4;
            pieces.push_back(bytes.substr(i, n));
            i += n;
        }
    }
    const double due = faults_.split && character_time_ > 0
                           ? start + static_cast<double>(pieces.front().size()) * character_time_
                           : out_free_;
    outbox_.post(character_time_ > 0 ? due : at, std::move(pieces));
}

}  // namespace filo::sim
