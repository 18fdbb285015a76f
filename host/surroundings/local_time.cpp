#include "host/surroundings/local_time.h"

#include <chrono>
#include <ctime>

namespace kelvane::host {

platform::DateTime LocalNow() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const std::tm* local = std::localtime(&seconds);
    const auto fraction = std::chrono::duration_cast<std::chrono::milliseconds>(
        now - std::chrono::system_clock::from_time_t(seconds));
    return {.year = local->tm_year + 1900,
            .month = local->tm_mon + 1,
            .day = local->tm_mday,
            .hour = local->tm_hour,
            .minute = local->tm_min,
            .second = local->tm_sec,
            .millisecond = static_cast<int>(fraction.count())};
}

}  // namespace kelvane::host
