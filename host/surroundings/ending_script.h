// A script that photographs, or does anything else, before its windows go.
#pragma once

#include <functional>
#include <utility>

#include "adapters/drive/script_operator.h"

namespace kelvane::host {

// Follows the script; at its end, before the windows that are still open close, it does what was
// asked for.
class EndingScript : public drive::ScriptOperator {
public:
    using ScriptOperator::ScriptOperator;

    void SetAtEnd(std::function<void()> atEnd) { mAtEnd = std::move(atEnd); }

    bool Act(controls::Form& topmost) override {
        const bool goesOn = ScriptOperator::Act(topmost);
        if (goesOn || !mAtEnd) return goesOn;
        std::exchange(mAtEnd, {})();
        return goesOn;
    }

private:
    std::function<void()> mAtEnd;
};

}  // namespace kelvane::host
