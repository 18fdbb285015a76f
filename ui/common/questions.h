// Questions that more than one window asks.
#pragma once

#include "data/messages.h"

namespace kelvane::ui {

// Asks whether a window may be closed although something in it is not saved; True for Yes.
inline bool AskToLeaveUnsaved() {
    return data::AskQuestion("数据尚未保存,确认退出吗?");
}

}  // namespace kelvane::ui
