#include "entries/budget_room.h"

#include "data/number_format.h"

namespace kelvane::entries {

using platform::Money;
using platform::Value;

namespace {

std::string Room(std::int16_t kind, const Value& budget, const Value& used) {
    return "预算 " + data::NumFormatText(budget, kind, true) + "，已用 " +
           data::NumFormatText(used, kind, true);
}

std::string Left(std::int16_t kind, const Value& left) {
    return "，可用 " + data::NumFormatText(left, kind, true);
}

}  // namespace

std::string MoneyRoom(Money budget, Money used) {
    std::string room = Room(data::kMoneyKind, Value(budget), Value(used));
    try {
        room += Left(data::kMoneyKind, Value(budget - used));
    } catch (const platform::MoneyOverflow&) {
        // What is left is more than an amount can be: it goes without saying.
    }
    return room;
}

std::string QuantityRoom(float budget, float used) {
    const auto granted = static_cast<double>(budget);
    const auto recorded = static_cast<double>(used);
    return Room(data::kQuantityKind, Value(granted), Value(recorded)) +
           Left(data::kQuantityKind, Value(granted - recorded));
}

}  // namespace kelvane::entries
