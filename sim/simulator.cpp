#include "sim/simulator.hpp"

#include "bus/frame.hpp"
#include "bus/frame_parser.hpp"

namespace filo::sim {
namespace {

// Noise is drawn from characters with codes 100 to 122: none is a start
// mark, and none can run together with its neighbours into the decimal
// codes of "OK" or of the search digits, so noise never fakes an answer.
constexpr std::string_view kNoise = "defghijklmnopqrstuvwxyz";
constexpr std::string_view kOk = "OK";

}  // namespace

Simulator::Simulator(std::vector<SimModule> modules, Faults faults)
    : modules_(std::move(modules)), faults_(faults), random_(faults.seed) {
    input_.on_search_digits = [this] { send(std::string(ProgrammerInput::kSearchDigits), now_); };
    input_.on_frame = [this](const std::string& frame) { put_on_bus(frame); };
    input_.on_answer_asked = [this] { answer_asked(); };
}

void Simulator::receive(std::string_view bytes, double now) {
    now_ = now;
    for (char c : bytes) input_.feed(c);
}

std::string Simulator::take_output(double now) {
    return outbox_.take(now);
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
    // The "OK" stands for a module that took the frame: none at the address,
    // or only silent ones, and the PC hears nothing.
    for (SimModule& m : modules_) {
        if (m.address != frame.address || m.silent) continue;
        ok_owed_ = true;
        const std::size_t links_before = m.links.size();
        if (auto answer = m.take(frame)) send(std::move(*answer), now_ + faults_.late);
        if (m.links.size() > links_before) links_.push_back(m.links.back());
    }
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
    outbox_.post(at, std::move(pieces));
}

}  // namespace filo::sim
