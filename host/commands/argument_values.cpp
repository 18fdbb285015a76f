#include "host/commands/argument_values.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "adapters/tables/text_decoder.h"
#include "entries/bulk/cell_text.h"
#include "entries/summary/summary_fields.h"
#include "host/surroundings/translation.h"
#include "platform/date_time.h"
#include "platform/money.h"

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

CLI::Validator AmountValue() {
    return {[](const std::string& text) {
                const auto amount = entries::AmountText(text);
                try {
                    if (amount) platform::Money::FromText(*amount);
                } catch (const platform::MoneyOverflow&) {
                    return Told("\"%1\" is beyond what an amount can be", {text});
                }
                return amount ? std::string() : Told("\"%1\" is no amount", {text});
            },
            ""};
}

CLI::Validator EncodingName() {
    return {[](const std::string& text) {
                return tables::FindEncoding(text)
                           ? std::string()
                           : Told("\"%1\" is no encoding; known are UTF-8 and GB18030", {text});
            },
            ""};
}

CLI::Validator SummaryFieldNames() {
    return {
        [](const std::string& text) {
            try {
                entries::SummaryFieldsOf(text);
                return std::string();
            } catch (const std::invalid_argument&) {
                return Told(
                    "\"%1\" are not fields; known are item, element, center, keyword and month, "
                    "each once",
                    {text});
            }
        },
        ""};
}

CLI::Validator OneOf(std::vector<std::string> choices) {
    return {[choices = std::move(choices)](const std::string& text) {
                if (std::ranges::find(choices, text) != choices.end()) return std::string();
                std::string known;
                for (const std::string& choice : choices) {
                    known += (known.empty() ? "" : Translated(", ")) + choice;
                }
                return Told("\"%1\" is none of these: %2", {text, known});
            },
            ""};
}

CLI::Validator FileOfKind(bool (*takes)(const std::string& path)) {
    return {[takes](const std::string& path) {
                return takes(path) ? std::string() : Told("\"%1\" has another extension", {path});
            },
            ""};
}

}  // namespace kelvane::host
