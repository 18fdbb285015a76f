// Questions that more than one window asks.
#pragma once

#include "data/messages.h"

namespace kelvane::ui {

// Whether the window may go with what is not saved.
inline bool AskToLeaveUnsaved() {
    return data::AskQuestion("数据尚未保存,确认退出吗?");
}

}  // namespace kelvane::ui
