#pragma once

namespace filo::platform {

// The local time of day in milliseconds since midnight: a timestamp for
// what the line monitor shows and records, never a clock to wait on.
int milliseconds_since_midnight();

}  // namespace filo::platform
