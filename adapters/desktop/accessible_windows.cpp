// How screen readers read our windows on Windows: each drawn window answers for itself and, by
// number, for its parts.

#include <wx/access.h>

#include <utility>

#include "adapters/desktop/look.h"
#include "adapters/desktop/spoken_window.h"

namespace kelvane::desktop {

using controls::Spoken;
using controls::SpokenRole;

namespace {

wxAccRole RoleOf(SpokenRole role) {
    switch (role) {
        case SpokenRole::Button:
            return wxROLE_SYSTEM_PUSHBUTTON;
        case SpokenRole::Cell:
            return wxROLE_SYSTEM_CELL;
        case SpokenRole::ColumnTitle:
            return wxROLE_SYSTEM_COLUMNHEADER;
        case SpokenRole::Label:
            return wxROLE_SYSTEM_STATICTEXT;
        case SpokenRole::Notice:
            return wxROLE_SYSTEM_ALERT;
        case SpokenRole::Page:
            return wxROLE_SYSTEM_DOCUMENT;
        case SpokenRole::Panel:
            return wxROLE_SYSTEM_PANE;
        case SpokenRole::RowTitle:
            return wxROLE_SYSTEM_ROWHEADER;
        case SpokenRole::Separator:
            return wxROLE_SYSTEM_SEPARATOR;
        case SpokenRole::Status:
            return wxROLE_SYSTEM_STATUSBAR;
        case SpokenRole::Table:
            return wxROLE_SYSTEM_TABLE;
        case SpokenRole::Toolbar:
            return wxROLE_SYSTEM_TOOLBAR;
    }
    return wxROLE_NONE;
}

// The window itself is its child 0, and the parts are counted from 1.
int IdOf(int part) {
    return part + 1;
}
int PartOf(int id) {
    return id - 1;
}

// A native field, which a label of ours may name.
class NamedField : public wxAccessible {
public:
    using wxAccessible::wxAccessible;
    void Call(const wxString& name) { mName = name; }

    wxAccStatus GetName(int id, wxString* name) override {
        if (id != wxACC_SELF || mName.empty()) return wxACC_NOT_IMPLEMENTED;
        *name = mName;
        return wxACC_OK;
    }

private:
    wxString mName;
};

// What is not answered here, the system answers for any window.
class DrawnWindow : public wxAccessible {
public:
    DrawnWindow(wxWindow& window, SpokenSource& source)
        : wxAccessible(&window), mWindow(window), mSource(&source) {}
    // Readers may hold it longer than there is anything to say.
    void Leave() { mSource = nullptr; }

    wxAccStatus GetChildCount(int* count) override {
        if (mSource == nullptr || mSource->PartCount() == 0) return wxACC_NOT_IMPLEMENTED;
        *count = mSource->PartCount() + static_cast<int>(mWindow.GetChildren().GetCount());
        return wxACC_OK;
    }

    wxAccStatus GetChild(int id, wxAccessible** child) override {
        if (id == wxACC_SELF || mSource == nullptr) return wxACC_NOT_IMPLEMENTED;
        *child = Has(id) ? nullptr : ChildWindow(id - mSource->PartCount() - 1);
        return wxACC_OK;
    }

    wxAccStatus GetName(int id, wxString* name) override {
        if (!Has(id)) return wxACC_NOT_IMPLEMENTED;
        *name = Text(NameAndText(WordsOf(id)));
        return wxACC_OK;
    }

    wxAccStatus GetDescription(int id, wxString* description) override {
        if (!Has(id)) return wxACC_NOT_IMPLEMENTED;
        *description = Text(StateAndPlace(WordsOf(id)));
        return wxACC_OK;
    }

    wxAccStatus GetRole(int id, wxAccRole* role) override {
        if (!Has(id)) return wxACC_NOT_IMPLEMENTED;
        *role = RoleOf(WordsOf(id).role);
        return wxACC_OK;
    }

    wxAccStatus GetState(int id, long* state) override;

    wxAccStatus GetLocation(wxRect& rect, int id) override {
        if (id == wxACC_SELF || !Has(id)) return wxACC_NOT_IMPLEMENTED;
        rect = mSource->PlaceOf(PartOf(id));
        rect.SetPosition(mWindow.ClientToScreen(rect.GetPosition()));
        return wxACC_OK;
    }

    wxAccStatus HitTest(const wxPoint& point, int* id, wxAccessible** child) override {
        const int part = mSource == nullptr ? SpokenSource::kWhole
                                            : mSource->PartAt(mWindow.ScreenToClient(point));
        if (part == SpokenSource::kWhole) return wxACC_NOT_IMPLEMENTED;
        *id = IdOf(part);
        *child = nullptr;
        return wxACC_OK;
    }

    wxAccStatus GetFocus(int* id, wxAccessible** child) override {
        if (mSource == nullptr || !HasKeyboard()) return wxACC_NOT_IMPLEMENTED;
        *id = IdOf(mSource->CurrentPart());
        *child = *id == wxACC_SELF ? this : nullptr;
        return wxACC_OK;
    }

    wxAccStatus GetDefaultAction(int id, wxString* action) override {
        if (!IsButton(id)) return wxACC_NOT_IMPLEMENTED;
        *action = Text("按");
        return wxACC_OK;
    }

    // Whoever asks waits until he is answered, and a button may open a window.
    wxAccStatus DoDefaultAction(int id) override {
        if (!IsButton(id)) return wxACC_NOT_IMPLEMENTED;
        const Spoken words = WordsOf(id);
        if (!words.enabled || !words.shown) return wxACC_FAIL;
        mWindow.CallAfter([source = mSource, id] { source->Press(PartOf(id)); });
        return wxACC_OK;
    }

    bool HasKeyboard() const {
        if (mSource->WorksFromElsewhere()) return mWindow.IsShownOnScreen();
        return wxWindow::FindFocus() == &mWindow;
    }

private:
    bool Has(int id) const {
        return mSource != nullptr && id >= wxACC_SELF && id <= mSource->PartCount();
    }
    // The windows in it come after the parts.
    wxAccessible* ChildWindow(int place) {
        const wxWindowList& children = mWindow.GetChildren();
        if (place < 0 || place >= static_cast<int>(children.GetCount())) return nullptr;
        wxWindow* child = children.Item(static_cast<std::size_t>(place))->GetData();
        if (child->GetOrCreateAccessible() == nullptr) child->SetAccessible(new NamedField(child));
        return child->GetAccessible();
    }
    Spoken WordsOf(int id) const {
        return id == wxACC_SELF ? mSource->Whole() : mSource->Part(PartOf(id));
    }
    bool IsButton(int id) const { return Has(id) && WordsOf(id).role == SpokenRole::Button; }

    wxWindow& mWindow;
    SpokenSource* mSource;
};

wxAccStatus DrawnWindow::GetState(int id, long* state) {
    if (!Has(id)) return wxACC_NOT_IMPLEMENTED;
    const Spoken words = WordsOf(id);
    const bool cell = words.role == SpokenRole::Cell;
    const bool current = PartOf(id) == mSource->CurrentPart();
    *state = 0;
    const auto add = [state](bool holds, long flag) {
        if (holds) *state |= flag;
    };
    add(!words.enabled, wxACC_STATE_SYSTEM_UNAVAILABLE);
    add(!words.shown, wxACC_STATE_SYSTEM_INVISIBLE);
    add(id != wxACC_SELF && mSource->PlaceOf(PartOf(id)).IsEmpty(), wxACC_STATE_SYSTEM_OFFSCREEN);
    add(words.locked, wxACC_STATE_SYSTEM_READONLY);
    add(id == wxACC_SELF ? mWindow.CanAcceptFocus() : cell || IsButton(id),
        wxACC_STATE_SYSTEM_FOCUSABLE);
    add(current && HasKeyboard(), wxACC_STATE_SYSTEM_FOCUSED);
    add(cell, wxACC_STATE_SYSTEM_SELECTABLE);
    add(cell && current, wxACC_STATE_SYSTEM_SELECTED);
    return wxACC_OK;
}

}  // namespace

// Tells readers what changes in one window.
class SpokenReader : public wxEvtHandler {
public:
    SpokenReader(wxWindow& window, SpokenSource& source)
        : mWindow(window),
          mSource(source),
          mWords(new DrawnWindow(window, source)),
          mWholeWords(AllWords(source.Whole())) {
        window.SetAccessible(mWords);
        window.Bind(wxEVT_SET_FOCUS, &SpokenReader::OnFocus, this);
    }
    ~SpokenReader() override { mWords->Leave(); }
    SpokenReader(const SpokenReader&) = delete;
    SpokenReader& operator=(const SpokenReader&) = delete;

    void Follow() {
        const int part = mSource.CurrentPart();
        const bool moved = part != std::exchange(mCurrent, part);
        if (moved) TellFocus();
        const std::string words = part < 0 ? std::string() : AllWords(mSource.Part(part));
        if (words != std::exchange(mCurrentWords, words) && !moved && part >= 0) {
            Tell(wxACC_EVENT_OBJECT_NAMECHANGE, part);
        }
        const std::string whole = AllWords(mSource.Whole());
        if (whole != std::exchange(mWholeWords, whole)) {
            Tell(wxACC_EVENT_OBJECT_NAMECHANGE, SpokenSource::kWhole);
        }
    }

    void Announce(int part) { Tell(wxACC_EVENT_SYSTEM_ALERT, part); }

private:
    // Only after the system has said that the window itself has the keyboard.
    void OnFocus(wxFocusEvent& event) {
        CallAfter([this] { TellFocus(); });
        event.Skip();
    }

    void TellFocus() {
        if (mCurrent >= 0 && mWords->HasKeyboard()) Tell(wxACC_EVENT_OBJECT_FOCUS, mCurrent);
    }

    void Tell(int event, int part) {
        wxAccessible::NotifyEvent(event, &mWindow, wxOBJID_CLIENT, IdOf(part));
    }

    wxWindow& mWindow;
    SpokenSource& mSource;
    DrawnWindow* mWords;  // the window's own
    int mCurrent = SpokenSource::kWhole;
    std::string mCurrentWords;
    std::string mWholeWords;
};

SpokenWindow::SpokenWindow(wxWindow& window, SpokenSource& source)
    : mReader(std::make_unique<SpokenReader>(window, source)) {}

SpokenWindow::~SpokenWindow() = default;

void SpokenWindow::Follow() {
    mReader->Follow();
}

void SpokenWindow::Announce(int part) {
    mReader->Announce(part);
}

void CallField(wxWindow& field, const std::string& name) {
    auto* named = dynamic_cast<NamedField*>(field.GetAccessible());
    if (named == nullptr) {
        named = new NamedField(&field);
        field.SetAccessible(named);
    }
    named->Call(Text(name));
}

// Readers do so with every dialog.
void CallMessage(wxWindow& /*dialog*/) {}

}  // namespace kelvane::desktop
