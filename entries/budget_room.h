// What a budget leaves room for, as an operator reads it: "预算 1,000.00，已用 600.00，可用
// 400.00".
#pragma once

#include <string>

#include "platform/money.h"

namespace kelvane::entries {

// `budget`: what the budget grants; `used`: what other entries have recorded of it.
std::string MoneyRoom(platform::Money budget, platform::Money used);
std::string QuantityRoom(float budget, float used);

}  // namespace kelvane::entries
