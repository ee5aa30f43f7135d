#include "platform/time_of_day.hpp"

#include <chrono>
#include <ctime>

namespace filo::platform {

int milliseconds_since_midnight() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&seconds, &local);
    const auto ms =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() %
        1000;
    return ((local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec) * 1000 + static_cast<int>(ms);
}

}  // namespace filo::platform
