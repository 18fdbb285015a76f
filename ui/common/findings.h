// What a rule found, shown to the operator.
#pragma once

#include <string>

#include "data/messages.h"
#include "entries/rules.h"

namespace kelvane::ui {

// A message box with the finding's text and caption, over gServices->windows.
inline void ShowFinding(const entries::Finding& finding) {
    data::ShowMessage(finding.text, finding.caption, finding.icon);
}

// What the lower line repeats of it, with the figures that made the rule refuse.
inline std::string RefusalText(const entries::Finding& finding) {
    return finding.figures.empty() ? finding.text : finding.text + "：" + finding.figures;
}

}  // namespace kelvane::ui
