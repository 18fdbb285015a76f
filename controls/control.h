// Control: the state of something in a window, without any drawing. Whoever draws it compares
// Revision() with the one last drawn.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "controls/control_visitor.h"

namespace kelvane::controls {

// Colours as the platform writes them: 0xBBGGRR.
using Color = std::uint32_t;

constexpr Color Rgb(unsigned red, unsigned green, unsigned blue) {
    return static_cast<Color>(red | (green << 8U) | (blue << 16U));
}

class Form;

class Control {
public:
    // `name`: the name that the windows' code and operator scripts know it by. The control joins
    // `form`, which must outlive it.
    Control(Form& form, std::string name);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    // Hands the control to `visitor` as what it is.
    virtual void Accept(ControlVisitor& visitor) = 0;

    const std::string& Name() const { return mName; }
    // What it is called to an operator who cannot see it, where no text in the window says so.
    const std::string& SpokenName() const { return mSpokenName; }
    void SetSpokenName(const std::string& name) { Assign(mSpokenName, name); }
    Form& Owner() { return mForm; }

    // Place in the form, in twips.
    int Left() const { return mLeft; }
    int Top() const { return mTop; }
    int Width() const { return mWidth; }
    int Height() const { return mHeight; }
    void SetLeft(int twips) { Assign(mLeft, twips); }
    void SetTop(int twips) { Assign(mTop, twips); }
    // Throw std::invalid_argument for a negative size.
    virtual void SetWidth(int twips);
    virtual void SetHeight(int twips);

    bool Visible() const { return mVisible; }
    void SetVisible(bool visible) { Assign(mVisible, visible); }
    bool Enabled() const { return mEnabled; }
    void SetEnabled(bool enabled) { Assign(mEnabled, enabled); }

    // Whether the operator can put the focus on it; a grid that is worked by the keys of a field
    // beside it says no.
    bool TakesFocus() const { return mTakesFocus; }
    void SetTakesFocus(bool takes) { mTakesFocus = takes; }

    // Gives this control the focus of its form.
    void SetFocus();

    // Grows with every change that can be seen.
    std::uint64_t Revision() const { return mRevision; }

protected:
    void Touch();

    template <typename T>
    void Assign(T& field, const T& value) {
        if (field == value) return;
        field = value;
        Touch();
    }

private:
    Form& mForm;
    std::string mName;
    std::string mSpokenName;
    int mLeft = 0;
    int mTop = 0;
    int mWidth = 0;
    int mHeight = 0;
    bool mVisible = true;
    bool mEnabled = true;
    bool mTakesFocus = true;
    std::uint64_t mRevision = 1;
};

}  // namespace kelvane::controls
