#pragma once
// Shared by the property tests and the fuzzer: whether two parsed frames hold
// the same fields, leaving out what a rebuilt frame may write differently (the
// checksum, which is always right then, and what follows an analog list).
#include "bus/frame.hpp"

namespace filo::bus::testing {

inline bool same_fields(const Frame& a, const Frame& b) {
    return a.kind == b.kind && a.start == b.start && a.kind_char == b.kind_char &&
           a.address == b.address && a.command == b.command && a.value == b.value &&
           a.masks == b.masks && a.link == b.link && a.card == b.card && a.analog == b.analog &&
           a.text == b.text;
}

}  // namespace filo::bus::testing
