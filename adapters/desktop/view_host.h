// ViewHost: what a form's window offers to the views of its controls.
#pragma once

#include <wx/window.h>

#include "controls/form.h"

namespace kelvane::desktop {

class FormKeys;

class ViewHost {
public:
    virtual ~ViewHost() = default;

    virtual controls::Form& Form() = 0;
    // The way of every key into the form.
    virtual FormKeys& Keys() = 0;
    // The operator has put the focus on `control`.
    virtual void OperatorFocused(controls::Control& control) = 0;
    // Puts the keyboard on the window of the form's active control.
    virtual void FocusActive() = 0;
    // Brings the windows up to the form's state now, if it has changed since the last event.
    virtual void CatchUp() = 0;
    // The window that a control lies in, and its place there: a control over a grid belongs to the
    // grid, so that it is drawn above it.
    virtual wxWindow& ParentOf(const controls::Control& control, wxPoint& offset) = 0;
};

}  // namespace kelvane::desktop
