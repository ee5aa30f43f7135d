#include "platform/clock.hpp"

#include <chrono>

namespace filo::platform {

double SteadyClock::now() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

}  // namespace filo::platform
