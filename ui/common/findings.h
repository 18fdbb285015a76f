// What a rule found, shown to the operator.
#pragma once

#include "data/messages.h"
#include "entries/rules.h"

namespace kelvane::ui {

// A message box with the finding's text and caption, over gServices->windows.
inline void ShowFinding(const entries::Finding& finding) {
    data::ShowMessage(finding.text, finding.caption, finding.icon);
}

}  // namespace kelvane::ui
