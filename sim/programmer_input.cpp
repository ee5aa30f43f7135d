#include "sim/programmer_input.hpp"

#include "bus/frame.hpp"

namespace filo::sim {
namespace {

// Longer than any frame the PC sends; a run-away frame is dropped.
constexpr std::size_t kMaxFrame = 300;

}  // namespace

void ProgrammerInput::between(char c) {
    if (c == bus::kStartMark || c == bus::kSweepStartMark || c == bus::kTextStartMark) {
        frame_.assign(1, c);
        outside_.clear();
        state_ = c == bus::kTextStartMark ? State::Text : State::Frame;
        return;
    }
    state_ = State::Between;
    outside_ += c;
    if (outside_.size() > kSearchDigits.size()) outside_.erase(0, 1);
    if (outside_ == kSearchDigits) {
        outside_.clear();
        if (on_search_digits) on_search_digits();
    }
}

void ProgrammerInput::feed(char c) {
    switch (state_) {
        case State::Between:
            between(c);
            return;
        case State::Frame:
            if (c == bus::kStartMark || c == bus::kSweepStartMark) {
                frame_.assign(1, c);  // a new start mark begins the frame again
                return;
            }
            frame_ += c;
            if (c == bus::kEndMark) {
                state_ = State::AfterFrame;
                if (on_frame) on_frame(frame_);
            } else if (frame_.size() > kMaxFrame) {
                state_ = State::Between;
            }
            return;
        case State::Text:
        case State::TextEnd:
            // The text itself is raw 8-bit: only Chr(23) and NUL end it.
            frame_ += c;
            if (state_ == State::TextEnd && c == '\0') {
                state_ = State::AfterFrame;
                if (on_frame) on_frame(frame_);
                return;
            }
            state_ = c == bus::kTextEndMark ? State::TextEnd : State::Text;
            if (frame_.size() > kMaxFrame) state_ = State::Between;
            return;
        case State::AfterFrame:
        case State::AfterNul:
            if (c == '\0') {
                state_ = State::AfterNul;
                return;
            }
            if (c == '_' && state_ == State::AfterNul) {
                state_ = State::Between;
                if (on_answer_asked) on_answer_asked();
                return;
            }
            between(c);
            return;
    }
}

}  // namespace filo::sim
