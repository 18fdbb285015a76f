#include "adapters/desktop/message_dialog.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include <algorithm>
#include <vector>

#include "adapters/desktop/look.h"
#include "adapters/desktop/pictures.h"
#include "adapters/desktop/spoken_window.h"
#include "adapters/desktop/system.h"

namespace kelvane::desktop {

using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

namespace {

constexpr int kIconSize = 36;
constexpr int kTextWidth = 440;
constexpr int kMargin = 16;
constexpr int kButtonWidth = 88;
constexpr int kButtonPoints = 10;

int PictureOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return kPictureInformation;
        case MessageIcon::Exclamation:
            return kPictureExclamation;
        case MessageIcon::Question:
            return kPictureQuestion;
        case MessageIcon::None:
            break;
    }
    return 0;
}

struct Choice {
    MessageAnswer answer;
    const char* caption;
    int key;  // a letter that presses the button
};

std::vector<Choice> ChoicesOf(MessageButtons buttons) {
    if (buttons == MessageButtons::Ok) return {{MessageAnswer::Ok, "确定", 0}};
    return {{MessageAnswer::Yes, "是", 'Y'}, {MessageAnswer::No, "否", 'N'}};
}

// `text` in lines of at most `width` pixels. Chinese breaks between any two characters, but no line
// begins with a closing mark.
wxString Wrap(const wxWindow& window, const wxString& text, int width) {
    static const wxString closing = wxString::FromUTF8("，。！？、；：）》”’,.!?;:)");
    wxString wrapped;
    wxString line;
    for (const wxUniChar character : text) {
        const bool full = window.GetTextExtent(line + character).x > width;
        if (character == '\n' || (full && closing.Find(character) == wxNOT_FOUND)) {
            wrapped += line + '\n';
            line.clear();
        }
        if (character != '\n') line += character;
    }
    return wrapped + line;
}

}  // namespace

MessageDialog::MessageDialog(wxWindow* parent, const platform::Message& message)
    : wxDialog(parent, wxID_ANY, Text(message.caption), wxDefaultPosition, wxDefaultSize,
               wxCAPTION | wxCLOSE_BOX | wxSYSTEM_MENU),
      mMessage(message),
      mDismissed(message.buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::No) {
    SetFont(UiFont());
    SetEscapeId(wxID_NONE);
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(CreateBody(), wxSizerFlags(1).Expand());
    whole->Add(CreateButtons(), wxSizerFlags().Right().Border(wxALL, Scaled(*this, kMargin) / 2));
    SetSizerAndFit(whole);
    CallMessage(*this);
    CentreOnParent();
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Press(mDismissed); });
    Bind(wxEVT_CHAR_HOOK, &MessageDialog::OnKey, this);
}

wxWindow* MessageDialog::CreateBody() {
    // A panel would take the keyboard, and nobody would see where it is.
    auto* body = new wxWindow(this, wxID_ANY);
    body->DisableFocusFromKeyboard();
    body->SetBackgroundColour(*wxWHITE);
    body->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
        if (!mPainted) CallAfter([this] { ShowFocus(*this); });
        mPainted = true;
        event.Skip();
    });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const wxBitmap picture = PictureFor(*this, PictureOf(mMessage.icon), Scaled(*this, kIconSize));
    if (picture.IsOk()) {
        row->Add(new wxStaticBitmap(body, wxID_ANY, picture),
                 wxSizerFlags().CenterVertical().Border(wxLEFT, Scaled(*this, kMargin)));
    }
    auto* text = new wxStaticText(body, wxID_ANY, wxString());
    text->SetForegroundColour(look::kText);
    text->SetFont(UiFont());
    text->SetLabelText(Wrap(*text, Text(mMessage.text), Scaled(*this, kTextWidth)));
    row->Add(text, wxSizerFlags(1).CenterVertical().Border(wxALL, Scaled(*this, kMargin)));
    body->SetSizer(row);
    return body;
}

wxSizer* MessageDialog::CreateButtons() {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    wxButton* first = nullptr;
    for (const Choice& choice : ChoicesOf(mMessage.buttons)) {
        auto* button = new wxButton(this, wxID_ANY, wxString::FromUTF8(choice.caption),
                                    wxDefaultPosition, wxSize(Scaled(*this, kButtonWidth), -1));
        button->Bind(wxEVT_BUTTON,
                     [this, answer = choice.answer](wxCommandEvent&) { Press(answer); });
        row->Add(button, wxSizerFlags().Border(wxLEFT, Scaled(*this, kMargin) / 2));
        if (first == nullptr || choice.answer == mMessage.preselected) first = button;
    }
    // The button that Enter presses is known by its bold caption too, not by its frame alone.
    if (mMessage.buttons == MessageButtons::YesNo) first->SetFont(UiFont(kButtonPoints, true));
    first->SetDefault();
    first->SetFocus();
    return row;
}

MessageAnswer MessageDialog::Ask() {
    return static_cast<MessageAnswer>(ShowModal());
}

void MessageDialog::Press(MessageAnswer answer) {
    if (IsModal()) EndModal(static_cast<int>(answer));
}

void MessageDialog::OnKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_ESCAPE) {
        Press(mDismissed);
        return;
    }
    const auto choices = ChoicesOf(mMessage.buttons);
    const auto choice = std::find_if(
        choices.begin(), choices.end(),
        [key](const Choice& candidate) { return candidate.key != 0 && candidate.key == key; });
    if (choice != choices.end() && !event.HasAnyModifiers()) {
        Press(choice->answer);
    } else {
        event.Skip();
    }
}

}  // namespace kelvane::desktop
