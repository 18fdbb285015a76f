// FormWatch: tells the operator what can be seen of a form while it is shown.
#pragma once

#include <vector>

#include "adapters/drive/operator.h"
#include "controls/form.h"
#include "controls/grid.h"

namespace kelvane::headless {

class FormWatch {
public:
    // Takes the form's FocusMoved and Refused, and the Beep of each grid whose window's code does
    // not take it itself, until the watch ends.
    FormWatch(controls::Form& form, drive::Operator& who) : mForm(form) {
        form.FocusMoved = [&who](controls::Control& control) { who.Focused(control.Name()); };
        form.Refused = [&who](controls::Control& /*control*/, int row, int column) {
            who.Refused(row, column);
        };
        for (controls::Control* control : form.Controls()) {
            auto* grid = dynamic_cast<controls::Grid*>(control);
            if (grid == nullptr || grid->Beep) continue;
            grid->Beep = [&who] { who.Beeped(); };
            mBeeping.push_back(grid);
        }
    }
    ~FormWatch() {
        mForm.FocusMoved = nullptr;
        mForm.Refused = nullptr;
        for (controls::Grid* grid : mBeeping) grid->Beep = nullptr;
    }
    FormWatch(const FormWatch&) = delete;
    FormWatch& operator=(const FormWatch&) = delete;

private:
    controls::Form& mForm;
    std::vector<controls::Grid*> mBeeping;
};

}  // namespace kelvane::headless
