// Operator: the person in front of the windows, when that person is a script. Both kinds of
// windows ask it what happens next and tell it what could be seen.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/form.h"
#include "platform/windows.h"

namespace kelvane::drive {

class Operator {
public:
    virtual ~Operator() = default;

    // Does the next thing on `topmost`, the topmost window. Returns false when the script is at its
    // end; the windows then close from the topmost down. A window that the thing opens is run
    // inside this call. In a window that is a controls::PickWindow the operator only chooses.
    virtual bool Act(controls::Form& topmost) = 0;

    // What could be seen, in the order it happened. A window is opened after its Form_Load and
    // before its Form_Activate, and closed after its unload; focus moves, refusals and the grid's
    // beeps are told in between, not before the window can be seen. A controls::PickWindow is a
    // list, not a window: nothing of it is told.
    virtual void Opened(const std::string& window) = 0;
    virtual void Closed(const std::string& window) = 0;
    virtual void Focused(const std::string& control) = 0;
    virtual void Refused(int row, int column) = 0;
    virtual void Beeped() = 0;
    // The help file came up.
    virtual void HelpShown(const std::string& /*path*/) {}

    // What the operator answers to a message box; notes the box and the answer.
    virtual platform::MessageAnswer Answer(const platform::Message& message) = 0;

    // What the operator chooses in a pick list: the number of a row from 0, or nothing.
    virtual std::optional<std::size_t> Pick(const std::vector<std::string>& titles,
                                            const std::vector<std::vector<std::string>>& rows) = 0;

    // The path that the operator gives a file dialog, or nothing.
    virtual std::optional<std::string> ChooseFile() = 0;
};

}  // namespace kelvane::drive
