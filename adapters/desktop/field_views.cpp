#include "adapters/desktop/field_views.h"

#include <wx/dcbuffer.h>
#include <wx/renderer.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "adapters/desktop/form_keys.h"
#include "adapters/desktop/pictures.h"
#include "platform/key_names.h"

namespace kelvane::desktop {

namespace {

constexpr int kMaxIconSize = 16;

void FollowFocus(wxWindow& window, controls::Control& control, ViewHost& host) {
    window.Bind(wxEVT_SET_FOCUS, [&control, &host](wxFocusEvent& event) {
        host.OperatorFocused(control);
        event.Skip();
    });
}

wxString OneCharacter(char32_t character) {
    return wxString(wxUniChar(static_cast<long>(character)));
}

// Lets the control fill its list before the list drops down.
class DropDownField : public wxOwnerDrawnComboBox {
public:
    DropDownField(wxWindow& parent, std::function<bool()> beforePopup)
        : wxOwnerDrawnComboBox(&parent, wxID_ANY, wxString()),
          mBeforePopup(std::move(beforePopup)) {}
    void ShowPopup() override {
        if (mBeforePopup()) wxOwnerDrawnComboBox::ShowPopup();
    }

private:
    std::function<bool()> mBeforePopup;
};

class ButtonWindow : public wxWindow {
public:
    explicit ButtonWindow(wxWindow& parent) {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Create(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
               wxWANTS_CHARS | wxBORDER_NONE | wxTAB_TRAVERSAL);
        SetFont(UiFont());
    }
};

}  // namespace

EditBoxView::EditBoxView(wxWindow& parent, controls::EditBox& box, ViewHost& host)
    : View(box), mBox(box), mField(new wxTextCtrl(&parent, wxID_ANY)) {
    mField->SetFont(UiFont());
    host.Keys().Attach(*mField);
    FollowFocus(*mField, box, host);
    mField->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { mBox.SetText(Utf8(mField->GetValue())); });
}

void EditBoxView::TypeCharacter(char32_t character) {
    mField->WriteText(OneCharacter(character));
}

void EditBoxView::Update() {
    CallField(*mField, LabelOf(mBox));
    const wxString text = Text(mBox.Text());
    if (mField->GetValue() == text) return;
    mField->ChangeValue(text);
    mField->SetInsertionPointEnd();
}

ComboBoxView::ComboBoxView(wxWindow& parent, controls::ComboBox& box, ViewHost& host)
    : View(box), mBox(box), mField(new DropDownField(parent, [this] {
          mBox.Open();
          Sync();
          return mField->GetCount() > 0;
      })) {
    mField->SetFont(UiFont());
    host.Keys().Attach(*mField->GetTextCtrl());
    FollowFocus(*mField->GetTextCtrl(), box, host);
    mField->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
        if (!mUpdating) mBox.SetListIndex(event.GetSelection());
    });
    mField->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
        if (!mUpdating) mBox.SetText(Utf8(mField->GetValue()));
    });
}

void ComboBoxView::TypeCharacter(char32_t character) {
    mField->WriteText(OneCharacter(character));
}

void ComboBoxView::Update() {
    CallField(*mField->GetTextCtrl(), LabelOf(mBox));
    mUpdating = true;
    const auto& items = mBox.Items();
    bool same = items.size() == mField->GetCount();
    for (std::size_t index = 0; same && index < items.size(); ++index) {
        same = mField->GetString(static_cast<unsigned>(index)) == Text(items[index]);
    }
    if (!same) {
        mField->Clear();
        for (const std::string& item : items) mField->Append(Text(item));
    }
    if (mField->GetSelection() != mBox.ListIndex()) mField->SetSelection(mBox.ListIndex());
    const wxString text = Text(mBox.Text());
    if (mField->GetValue() != text) mField->SetValue(text);
    mUpdating = false;
}

ButtonView::ButtonView(wxWindow& parent, controls::Button& button, ViewHost& host)
    : View(button),
      mButton(button),
      mHost(host),
      mWindow(new ButtonWindow(parent)),
      mSpoken(*mWindow, *this) {
    host.Keys().Attach(*mWindow);
    FollowFocus(*mWindow, button, host);
    mWindow->Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
    const auto redraw = [this](wxEvent& event) {
        mWindow->Refresh();
        event.Skip();
    };
    mWindow->Bind(wxEVT_SET_FOCUS, redraw);
    mWindow->Bind(wxEVT_KILL_FOCUS, redraw);
    mWindow->Bind(wxEVT_SIZE, redraw);
    mWindow->Bind(wxEVT_ENTER_WINDOW, [this](wxMouseEvent&) {
        mHot = true;
        mWindow->Refresh();
    });
    mWindow->Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) {
        mHot = mPressed = false;
        mWindow->Refresh();
    });
    const auto press = [this](wxMouseEvent&) {
        mPressed = true;
        mWindow->Refresh();
    };
    mWindow->Bind(wxEVT_LEFT_DOWN, press);
    mWindow->Bind(wxEVT_LEFT_DCLICK, press);
    mWindow->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) {
        const bool clicked = std::exchange(mPressed, false);
        mWindow->Refresh();
        if (clicked) mButton.Press();
    });
}

wxRect ButtonView::Place() {
    wxPoint offset;
    wxWindow& parent = mHost.ParentOf(mButton, offset);
    if (mWindow->GetParent() != &parent) mWindow->Reparent(&parent);
    wxRect place = ToPixels(parent, mButton);
    place.Offset(-offset.x, -offset.y);
    return place;
}

void ButtonView::Update() {
    mWindow->Raise();
    mWindow->Refresh();
    mSpoken.Follow();
    ShowTip(*mWindow, platform::CaptionWithKey(mButton.Caption(), mButton.Stroke()));
}

bool ButtonView::TakeKey(const KeyStroke& stroke) {
    if (stroke.shift != 0) return false;
    if (stroke.key != platform::Key::Enter && stroke.key != platform::Key::Space) return false;
    mButton.Press();
    return true;
}

void ButtonView::Paint() {
    wxAutoBufferedPaintDC dc(mWindow);
    dc.SetBackground(wxBrush(look::kWindow));
    dc.Clear();
    wxRect area(mWindow->GetClientSize());
    const bool enabled = mButton.Enabled();
    dc.SetPen(wxPen(mButton.IsDefault() && enabled ? look::kCurrent : look::kEdge));
    dc.SetBrush(wxBrush(!enabled   ? look::kWindow
                        : mPressed ? look::kPressed
                        : mHot     ? look::kHover
                                   : wxColour(250, 250, 250)));
    dc.DrawRoundedRectangle(area, 2);
    if (mWindow->HasFocus()) DrawFocus(dc, area);
    const int icon = std::min({Scaled(*mWindow, kMaxIconSize), area.width - 2, area.height - 2});
    const wxBitmap bitmap =
        icon > 0 ? PictureFor(*mWindow, mButton.Picture(), icon, enabled) : wxBitmap();
    if (bitmap.IsOk()) {
        const wxSize size = bitmap.GetLogicalSize();
        dc.DrawBitmap(bitmap, area.x + (area.width - size.x) / 2,
                      area.y + (area.height - size.y) / 2, true);
    }
    dc.SetFont(mWindow->GetFont());
    dc.SetTextForeground(enabled ? look::kText : look::kFaintText);
    dc.DrawLabel(Text(mButton.Caption()), area, wxALIGN_CENTER);
}

}  // namespace kelvane::desktop
