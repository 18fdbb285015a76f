// How screen readers read our windows on GTK: keeps the accessible objects of a window and tells
// readers what changes.
#include "adapters/desktop/accessible_gtk.h"

#include <utility>

namespace kelvane::desktop {

namespace {

// The widget's own name for the object that stands for it.
constexpr const char* kWidgetsObject = "kelvane-accessible";

// What the widgets' class does where there is no object of ours.
AtkObject* (*gPlainAccessible)(GtkWidget* widget) = nullptr;

AtkObject* AccessibleOf(GtkWidget* widget) {
    auto* ours = static_cast<AtkObject*>(g_object_get_data(G_OBJECT(widget), kWidgetsObject));
    return ours != nullptr ? ours : gPlainAccessible(widget);
}

void Forget(GtkWidget* widget, gpointer object) {
    gtk_accessible_set_widget(GTK_ACCESSIBLE(object), nullptr);
    g_object_set_data(G_OBJECT(widget), kWidgetsObject, nullptr);
}

// The toolkit makes its widgets itself, all drawn ones of one class; so it is the class that is
// taught to ask for the object.
void Attach(GtkWidget* widget, AtkObject* object) {
    GtkWidgetClass* type = GTK_WIDGET_GET_CLASS(widget);
    if (type->get_accessible != AccessibleOf) {
        gPlainAccessible = std::exchange(type->get_accessible, AccessibleOf);
    }
    g_object_set_data_full(G_OBJECT(widget), kWidgetsObject, object, g_object_unref);
    g_signal_connect(widget, "destroy", G_CALLBACK(Forget), object);
    atk_object_initialize(object, widget);
}

// A window's content may be drawn on another widget than the window is known by.
GtkWidget* WidgetOf(wxWindow& window) {
    return window.m_wxwindow != nullptr ? window.m_wxwindow : window.m_widget;
}

void TellFocus(AtkObject* object, bool focused) {
    atk_object_notify_state_change(object, ATK_STATE_FOCUSED, focused ? TRUE : FALSE);
}

}  // namespace

SpokenReader::SpokenReader(wxWindow& window, SpokenSource& source)
    : mWindow(window), mSource(source), mWholeWords(AllWords(source.Whole())) {
    GtkWidget* widget = WidgetOf(window);
    const GType type = DrawnTypeFor(source.Whole().role);
    mWhole = ATK_OBJECT(g_object_new(type, "widget", widget, nullptr));
    reinterpret_cast<DrawnObject*>(mWhole)->reader = this;
    Attach(widget, mWhole);
    window.Bind(wxEVT_SET_FOCUS, &SpokenReader::OnFocus, this);
}

SpokenReader::~SpokenReader() {
    reinterpret_cast<DrawnObject*>(mWhole)->reader = nullptr;
    for (const auto& [part, object] : mParts) {
        reinterpret_cast<PartObject*>(object)->reader = nullptr;
    }
    g_clear_object(&mCurrent);
    g_clear_object(&mAnnounced);
    g_clear_object(&mTitle);
}

AtkObject* SpokenReader::RefPart(int part) {
    if (part < 0 || part >= mSource.PartCount()) return nullptr;
    const auto known = mParts.find(part);
    if (known != mParts.end()) return ATK_OBJECT(g_object_ref(known->second));
    auto* object = ATK_OBJECT(g_object_new(PartTypeFor(mSource.Part(part).role), nullptr));
    reinterpret_cast<PartObject*>(object)->reader = this;
    reinterpret_cast<PartObject*>(object)->part = part;
    atk_object_set_parent(object, mWhole);
    mParts.emplace(part, object);
    return object;
}

AtkObject* SpokenReader::Title(int part) {
    AtkObject* before = std::exchange(mTitle, RefPart(part));
    if (before != nullptr) g_object_unref(before);
    return mTitle;
}

int SpokenReader::NativeChildren() {
    return atk_object_get_n_accessible_children(mWhole) - mSource.PartCount();
}

bool SpokenReader::HasKeyboard() {
    if (mSource.WorksFromElsewhere()) return mWindow.IsShownOnScreen();
    return wxWindow::FindFocus() == &mWindow;
}

// Whoever asks waits until he is answered, and a button may open a window.
void SpokenReader::PressLater(int part) {
    CallAfter([this, part] { mSource.Press(part); });
}

// Only after the toolkit has said that the window itself has the keyboard.
void SpokenReader::OnFocus(wxFocusEvent& event) {
    CallAfter([this] {
        if (HasKeyboard()) TellCurrent();
    });
    event.Skip();
}

void SpokenReader::TellCurrent() {
    if (mCurrent == nullptr) return;
    TellFocus(mCurrent, true);
    if (mSource.TableShape().columns > 0) {
        g_signal_emit_by_name(mWhole, "active-descendant-changed", mCurrent);
    }
}

void SpokenReader::Follow() {
    const int part = mSource.CurrentPart();
    const bool moved = part != mCurrentPart;
    mCurrentPart = part;
    if (moved) {
        AtkObject* before = std::exchange(mCurrent, RefPart(part));
        if (before != nullptr) {
            TellFocus(before, false);
            g_object_unref(before);
        }
        if (HasKeyboard()) TellCurrent();
    }
    std::string words = mCurrent == nullptr ? std::string() : AllWords(mSource.Part(part));
    if (words != std::exchange(mCurrentWords, words) && !moved && mCurrent != nullptr) {
        g_object_notify(G_OBJECT(mCurrent), "accessible-name");
    }
    words = AllWords(mSource.Whole());
    if (words != std::exchange(mWholeWords, words)) {
        g_object_notify(G_OBJECT(mWhole), "accessible-name");
    }
}

// The object stays until the next one, for readers ask it only afterwards.
void SpokenReader::Announce(int part) {
    g_clear_object(&mAnnounced);
    mAnnounced = RefPart(part);
    if (mAnnounced != nullptr) atk_object_notify_state_change(mAnnounced, ATK_STATE_SHOWING, TRUE);
}

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
    atk_object_set_name(gtk_widget_get_accessible(WidgetOf(field)), name.c_str());
}

void CallMessage(wxWindow& dialog) {
    atk_object_set_role(gtk_widget_get_accessible(dialog.m_widget), ATK_ROLE_ALERT);
}

}  // namespace kelvane::desktop
