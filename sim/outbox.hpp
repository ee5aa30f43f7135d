#pragma once
// What the simulator has to write to the PC, each piece with the time it is
// due. The line is one queue: a message whose time has come waits behind
// the pieces of the one being written.
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace filo::sim {

class Outbox {
  public:
    // Time between two pieces of one message written in pieces.
    static constexpr double kPieceGap = 0.001;

    // A message due at the given time, written in the pieces given (one
    // piece: written whole).
    void post(double at, std::vector<std::string> pieces);
    // What is due at now: every whole message due, or the next piece.
    std::string take(double now);
    // When something is next due, nothing when all is written.
    std::optional<double> next() const;

  private:
    std::multimap<double, std::vector<std::string>> due_;
    std::deque<std::string> pieces_;  // of the message being written
    double next_piece_ = 0;
};

}  // namespace filo::sim
