#pragma once
// Takes any text apart as a frame. Never reads outside the text and never
// throws: what is not a frame of a known kind says so in Frame::kind.
#include <string_view>

#include "bus/frame.hpp"

namespace filo::bus {

// A "(" or "[" frame is a text that begins with one of those marks and ends
// with "]"; a text frame begins with Chr(22) and ends with Chr(23) and NUL.
// Anything else is NotAFrame. A frame whose length or characters don't fit
// the layout of its kind (hex digits are upper case) is Unknown, with its
// start, kind character, payload and checksum still reported. Any kind may
// come with either start mark. The checksum is reported, never required.
Frame parse_frame(std::string_view text);

}  // namespace filo::bus
