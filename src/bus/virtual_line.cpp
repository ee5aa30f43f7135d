#include "bus/virtual_line.hpp"

#include "bus/receive_assembler.hpp"

namespace filo::bus {

void VirtualLine::reply(std::string bytes, double delay) {
    pending_.emplace(clock_.now() + delay, std::move(bytes));
}

void VirtualLine::write(std::string_view bytes) {
    writes_.emplace_back(bytes);
    write_times_.push_back(clock_.now());
    if (peer_) peer_(*this, bytes);
}

bool VirtualLine::serve_until(double deadline, const std::function<bool()>& done) {
    for (;;) {
        if (done()) return true;
        if (pending_.empty() || pending_.begin()->first > deadline) {
            clock_.advance_to(deadline);
            return done();
        }
        auto next = pending_.begin();
        clock_.advance_to(next->first);
        const std::string bytes = std::move(next->second);
        pending_.erase(next);
        receiver_.feed(bytes);
    }
}

VirtualLine::Peer answers_ok() {
    return [](VirtualLine& line, std::string_view written) {
        const auto nul = written.find('\0');
        if (nul != std::string_view::npos && nul + 1 < written.size() && written[nul + 1] == '_')
            line.reply("OK");
    };
}

}  // namespace filo::bus
