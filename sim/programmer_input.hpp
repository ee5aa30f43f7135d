#pragma once
// What the programmer makes of the characters the PC writes: the digits of
// the port search, frames, and the envelope around each frame, which tells
// whether the PC waits for "OK". Fed one character at a time, so a write cut
// anywhere reads the same.
#include <functional>
#include <string>
#include <string_view>

namespace filo::sim {

class ProgrammerInput {
  public:
    // The digits the port search writes outside any frame, and that the
    // programmer echoes.
    static constexpr std::string_view kSearchDigits = "0123";

    // The search's digits, written outside any frame.
    std::function<void()> on_search_digits;
    // A frame, from its start mark to "]" (or a text frame to its NUL).
    std::function<void(const std::string& frame)> on_frame;
    // The NUL and "_" behind the last frame: the PC waits for "OK".
    std::function<void()> on_answer_asked;

    void feed(char c);

  private:
    enum class State { Between, Frame, Text, TextEnd, AfterFrame, AfterNul };
    void between(char c);

    State state_ = State::Between;
    std::string frame_;
    std::string outside_;  // the last characters outside frames, for the search digits
};

}  // namespace filo::sim
