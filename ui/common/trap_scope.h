// TrapScope: errors that are trapped while a window is shown are that window's to tell.
#pragma once

#include <functional>
#include <string_view>
#include <utility>

#include "data/login_context.h"

namespace kelvane::ui {

class TrapScope {
public:
    // `tell` hears of each trapped error by the routine's name, instead of whoever heard before.
    explicit TrapScope(std::function<void(std::string_view place)> tell)
        : mOuter(std::exchange(data::gTrapListener, std::move(tell))) {}
    ~TrapScope() { data::gTrapListener = std::move(mOuter); }
    TrapScope(const TrapScope&) = delete;
    TrapScope& operator=(const TrapScope&) = delete;

private:
    std::function<void(std::string_view place)> mOuter;
};

}  // namespace kelvane::ui
