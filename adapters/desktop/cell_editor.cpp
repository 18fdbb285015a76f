#include "adapters/desktop/cell_editor.h"

#include <algorithm>

#include "adapters/desktop/cell_text.h"
#include "adapters/desktop/form_keys.h"
#include "adapters/desktop/key_stroke.h"
#include "adapters/desktop/look.h"
#include "adapters/desktop/spoken_window.h"

namespace kelvane::desktop {

namespace {

constexpr int kTextMargin = 2;

std::u32string Characters(const wxString& text) {
    std::u32string characters;
    characters.reserve(text.length());
    for (const wxUniChar character : text) {
        characters += static_cast<char32_t>(character.GetValue());
    }
    return characters;
}

wxString Joined(const std::u32string& characters) {
    wxString text;
    for (const char32_t character : characters) text += wxUniChar(static_cast<long>(character));
    return text;
}

// The stretch of `after` that is not in `before`: [from, to).
std::pair<std::size_t, std::size_t> FindInserted(const std::u32string& before,
                                                 const std::u32string& after) {
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t head = 0;
    while (head < shorter && before[head] == after[head]) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head &&
           before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
        ++tail;
    }
    return {head, after.size() - tail};
}

}  // namespace

CellEditor::CellEditor(wxWindow& canvas, controls::Grid& grid, ViewHost& host)
    : mCanvas(canvas),
      mGrid(grid),
      mHost(host),
      mLeft(CreateField(wxTE_LEFT)),
      mRight(CreateField(wxTE_RIGHT)) {}

wxTextCtrl* CellEditor::CreateField(long alignment) {
    auto* field = new wxTextCtrl(
        &mCanvas, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
        wxBORDER_NONE | wxTE_PROCESS_ENTER | wxTE_PROCESS_TAB | wxWANTS_CHARS | alignment);
    field->SetMargins(kTextMargin, -1);
    field->Hide();
    mHost.Keys().Attach(*field);
    field->Bind(wxEVT_TEXT, [this, field](wxCommandEvent&) {
        if (field == mField) OnText();
    });
    // The frame around the cell shows whether the keyboard is there.
    const auto redraw = [this](wxFocusEvent& event) {
        mCanvas.Refresh(false);
        event.Skip();
    };
    field->Bind(wxEVT_SET_FOCUS, redraw);
    field->Bind(wxEVT_KILL_FOCUS, redraw);
    field->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        mOffered = false;
        event.Skip();
    });
    field->Bind(wxEVT_CHAR, [this](wxKeyEvent& event) {
        mOffered = StrokeOfCharacter(event, WXK_NONE).character != 0;
        event.Skip();
    });
    return field;
}

void CellEditor::Sync(const wxRect& field) {
    const bool open = mGrid.IsEditing() && !field.IsEmpty();
    wxTextCtrl* wanted = nullptr;
    if (open) {
        const auto alignment = mGrid.ColumnAlignment(mGrid.Col());
        wanted = alignment == controls::Alignment::Right ? mRight : mLeft;
    }
    const bool opened = wanted != mField;
    if (opened && mField != nullptr) {
        // No window has the keyboard when one above has just closed: the grid may take it then.
        const wxWindow* focused = wxWindow::FindFocus();
        const bool ours = focused == nullptr || focused == mField;
        mField->Hide();
        mField = nullptr;
        if (ours && wanted == nullptr && mHost.Form().ActiveControl() == &mGrid) {
            mCanvas.SetFocus();
        }
    }
    mField = wanted;
    if (mField == nullptr) return;
    if (const wxFont font = GridFont(mGrid); mField->GetFont() != font) mField->SetFont(font);

    const int height = std::max(field.height, mField->GetBestSize().y);
    mField->SetSize(field.x, field.y + (field.height - height) / 2, field.width, height);
    CallField(*mField, SpokenOf(mGrid, mGrid.Row(), mGrid.Col()).name);
    if (!opened) {
        ShowGridText();
        return SelectRefused();
    }
    mRefusals = mGrid.EditRefusals();
    mExpected.clear();
    mOffered = false;
    mField->Show();
    mField->Raise();
    // Before its text is set: screen readers take a caret that moves for the news, not the field.
    if (mHost.Form().ActiveControl() == &mGrid) mField->SetFocus();
    ShowGridText();
    mField->SetInsertionPointEnd();
    if (mGrid.EditTextSelected()) mField->SelectAll();
}

// What is typed next replaces a refused text, unless the operator goes into it with the caret.
void CellEditor::SelectRefused() {
    if (mRefusals == mGrid.EditRefusals()) return;
    mRefusals = mGrid.EditRefusals();
    mField->SelectAll();
}

void CellEditor::ShowGridText() {
    const wxString text = Text(mGrid.EditText());
    if (mField->GetValue() == text) return;
    mField->ChangeValue(text);
    mField->SetInsertionPointEnd();
}

bool CellEditor::HasFocus() const {
    return mField != nullptr && wxWindow::FindFocus() == mField;
}

void CellEditor::Type(char32_t character) {
    if (mField == nullptr) return;
    ExpectCharacter(character);
    mField->WriteText(wxString(wxUniChar(static_cast<long>(character))));
}

void CellEditor::ExpectCharacter(char32_t character) {
    mExpected += character;
}

void CellEditor::OnText() {
    if (!mGrid.IsEditing()) return;
    std::u32string after = Characters(mField->GetValue());
    const std::u32string before = Characters(Text(mGrid.EditText()));
    if (after == before) return;
    const auto [from, to] = FindInserted(before, after);
    const std::u32string inserted = after.substr(from, to - from);
    // A refused character has already taken away the selection that it was to replace.
    const bool refused = mOffered && mExpected.empty() && inserted.empty();
    mOffered = false;
    if (refused) return ShowGridText();
    // Beside an equal letter the place of a new one is not certain, so the inserted letters are not
    // compared with the expected ones: how many there are decides whether they were typed.
    const bool typed =
        inserted.empty() || (!mExpected.empty() && inserted.size() <= mExpected.size());
    mExpected.clear();
    if (!typed && mGrid.MayChangeText()) after.replace(from, to - from, Filter(inserted));
    mGrid.ReplaceEditText(Utf8(Joined(after)));
    const wxString text = Text(mGrid.EditText());
    if (mField == nullptr || mField->GetValue() == text) return;
    const long caret = mField->GetInsertionPoint();
    mField->ChangeValue(text);
    mField->SetInsertionPoint(std::min(caret, mField->GetLastPosition()));
}

std::u32string CellEditor::Filter(const std::u32string& inserted) {
    std::u32string taken;
    bool refused = false;
    for (char32_t character : inserted) {
        if (mHost.Form().OfferKeyPress(character)) continue;
        if (mGrid.TakesCharacter(character)) {
            taken += character;
        } else {
            refused = true;
        }
    }
    if (refused && mGrid.Beep) mHost.Form().RunEvent("Beep", mGrid.Beep);
    return taken;
}

}  // namespace kelvane::desktop
