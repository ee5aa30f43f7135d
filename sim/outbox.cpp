#include "sim/outbox.hpp"

namespace filo::sim {

void Outbox::post(double at, std::vector<std::string> pieces) {
    if (!pieces.empty()) due_.emplace(at, std::move(pieces));
}

std::string Outbox::take(double now) {
    std::string out;
    for (;;) {
        if (!pieces_.empty()) {
            if (now < next_piece_) break;
            out += pieces_.front();
            pieces_.pop_front();
            next_piece_ = now + kPieceGap;
            continue;
        }
        const auto first = due_.begin();
        if (first == due_.end() || first->first > now) break;
        std::vector<std::string> message = std::move(first->second);
        due_.erase(first);
        if (message.size() == 1) {
            out += message.front();
        } else {
            pieces_.assign(message.begin(), message.end());
        }
    }
    return out;
}

std::optional<double> Outbox::next() const {
    if (!pieces_.empty()) return next_piece_;
    if (due_.empty()) return std::nullopt;
    return due_.begin()->first;
}

}  // namespace filo::sim
