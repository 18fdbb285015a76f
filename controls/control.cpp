#include "controls/control.h"

#include <stdexcept>

#include "controls/form.h"

namespace kelvane::controls {

namespace {

int CheckSize(const std::string& name, int twips) {
    if (twips < 0) throw std::invalid_argument(name + ": a control cannot have a negative size");
    return twips;
}

}  // namespace

Control::Control(Form& form, std::string name) : mForm(form), mName(std::move(name)) {
    form.Join(*this);
}

void Control::SetWidth(int twips) {
    Assign(mWidth, CheckSize(mName, twips));
}

void Control::SetHeight(int twips) {
    Assign(mHeight, CheckSize(mName, twips));
}

void Control::SetFocus() {
    mForm.SetFocus(*this);
}

void Control::Touch() {
    ++mRevision;
    mForm.Touch();
}

}  // namespace kelvane::controls
