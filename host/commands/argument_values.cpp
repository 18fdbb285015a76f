#include "host/commands/argument_values.h"

#include <charconv>

#include "host/surroundings/translation.h"
#include "platform/date_time.h"

namespace kelvane::host {

CLI::Validator NumberBetween(std::int64_t low, std::int64_t high) {
    return {[low, high](std::string& text) {
                std::int64_t number = 0;
                const char* end = text.data() + text.size();
                const auto [stop, failure] = std::from_chars(text.data(), end, number);
                if (failure != std::errc() || stop != end || number < low || number > high) {
                    return Told("\"%1\" is no number from %2 to %3",
                                {text, std::to_string(low), std::to_string(high)});
                }
                // Without zeros in front, which would say that it is octal.
                text = std::to_string(number);
                return std::string();
            },
            ""};
}

CLI::Validator DateText() {
    return {[](const std::string& text) {
                platform::DateTime date;
                return platform::DateTime::Parse(text, date)
                           ? std::string()
                           : Told("\"%1\" is no date (yyyy.mm.dd)", {text});
            },
            ""};
}

}  // namespace kelvane::host
