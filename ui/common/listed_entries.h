// The way from what a window shows of an entry to the entry in the list.
#pragma once

#include <cstdint>

#include "ui/common/window_requests.h"

namespace kelvane::ui {

// True when the list has the entry; otherwise the operator is told that it has not. The identity 0
// stands for no entry at all.
bool MayGoToEntry(std::int64_t identity, const IsListed& isListed);

}  // namespace kelvane::ui
