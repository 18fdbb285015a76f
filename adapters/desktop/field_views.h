// The views of the fields of a dialog: edit box, combo box and command button.
#pragma once

#include <wx/odcombo.h>
#include <wx/textctrl.h>

#include "adapters/desktop/spoken_window.h"
#include "adapters/desktop/view.h"
#include "adapters/desktop/view_host.h"
#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"

namespace kelvane::desktop {

class EditBoxView : public View {
public:
    EditBoxView(wxWindow& parent, controls::EditBox& box, ViewHost& host);
    wxWindow& Window() override { return *mField; }
    wxWindow* FocusWindow() override { return mField; }
    void TypeCharacter(char32_t character) override;

protected:
    void Update() override;

private:
    controls::EditBox& mBox;
    wxTextCtrl* mField;
};

class ComboBoxView : public View {
public:
    ComboBoxView(wxWindow& parent, controls::ComboBox& box, ViewHost& host);
    wxWindow& Window() override { return *mField; }
    wxWindow* FocusWindow() override { return mField; }
    void TypeCharacter(char32_t character) override;

protected:
    void Update() override;

private:
    controls::ComboBox& mBox;
    wxOwnerDrawnComboBox* mField;
    bool mUpdating = false;
};

// A button with a picture can be smaller than a native one may be, so it draws itself.
class ButtonView : public View, public SpokenSource {
public:
    ButtonView(wxWindow& parent, controls::Button& button, ViewHost& host);
    wxWindow& Window() override { return *mWindow; }
    wxWindow* FocusWindow() override { return mWindow; }
    bool TakeKey(const KeyStroke& stroke) override;

protected:
    wxRect Place() override;
    void Update() override;

private:
    controls::Spoken Whole() override { return SpokenOf(mButton); }
    void Press(int /*part*/) override { mButton.Press(); }
    void Paint();

    controls::Button& mButton;
    ViewHost& mHost;
    wxWindow* mWindow;
    SpokenWindow mSpoken;
    bool mHot = false;
    bool mPressed = false;
};

}  // namespace kelvane::desktop
