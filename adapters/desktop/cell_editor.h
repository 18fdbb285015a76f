// CellEditor: the native text field laid over a grid's open cell, so that input methods, the
// clipboard and the caret work as everywhere. The grid decides what its text may be.
#pragma once

#include <wx/textctrl.h>

#include <string>

#include "adapters/desktop/view_host.h"
#include "controls/grid.h"

namespace kelvane::desktop {

class CellEditor {
public:
    // The fields become children of `canvas`.
    CellEditor(wxWindow& canvas, controls::Grid& grid, ViewHost& host);

    // Shows the open cell's text at `field`, all of it selected after a refusal, or hides; an empty
    // rectangle hides.
    void Sync(const wxRect& field);
    bool HasFocus() const;
    bool IsShown() const { return mField != nullptr; }
    wxWindow* Field() { return mField; }
    // Types a character at the caret.
    void Type(char32_t character);
    // Announces a character from the keyboard that the form and the grid have let through: the
    // field is about to insert it.
    void ExpectCharacter(char32_t character);

private:
    wxTextCtrl* CreateField(long alignment);
    void OnText();
    // Shows the grid's text if the field shows another one.
    void ShowGridText();
    void SelectRefused();
    // What the form and the grid take of `inserted`, which came without a key: from the clipboard
    // or an input method.
    std::u32string Filter(const std::u32string& inserted);

    wxWindow& mCanvas;
    controls::Grid& mGrid;
    ViewHost& mHost;
    wxTextCtrl* mLeft;
    wxTextCtrl* mRight;
    wxTextCtrl* mField = nullptr;  // the shown one of the two
    // The refusals after which the whole text was selected.
    int mRefusals = 0;
    std::u32string mExpected;
    // Whether the last key typed a character that the form and the grid may have refused.
    bool mOffered = false;
};

}  // namespace kelvane::desktop
