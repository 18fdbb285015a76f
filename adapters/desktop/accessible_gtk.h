// AccessibleGtk: what the files that serve screen readers on GTK share. The widget of each drawn
// window gets an accessible object of ours. Its children are the widget's own and then the source's
// parts; a part's object is made when a reader asks for it or the part becomes the current one, and
// goes with its last holder.
#pragma once

#include <gtk/gtk-a11y.h>

#include <string>
#include <unordered_map>

#include "adapters/desktop/spoken_window.h"

namespace kelvane::desktop {

// What the accessible objects of one window have in common. The objects may live longer: they are
// told when it goes.
class SpokenReader : public wxEvtHandler {
public:
    SpokenReader(wxWindow& window, SpokenSource& source);
    ~SpokenReader() override;
    SpokenReader(const SpokenReader&) = delete;
    SpokenReader& operator=(const SpokenReader&) = delete;

    SpokenSource& Source() { return mSource; }
    AtkObject* Whole() { return mWhole; }
    // Null when there is no such part; otherwise the caller owns a reference.
    AtkObject* RefPart(int part);
    // The same for a title that nobody unreferences: it is kept until the next one is asked for.
    AtkObject* Title(int part);
    void ForgetPart(int part) { mParts.erase(part); }
    int NativeChildren();
    bool IsShown() { return mWindow.IsShownOnScreen(); }
    bool IsCurrent(int part) { return part == mSource.CurrentPart(); }
    bool HasKeyboard();
    void PressLater(int part);
    void Follow();
    void Announce(int part);

private:
    void OnFocus(wxFocusEvent& event);
    void TellCurrent();

    wxWindow& mWindow;
    SpokenSource& mSource;
    AtkObject* mWhole = nullptr;
    std::unordered_map<int, AtkObject*> mParts;  // those that somebody holds
    AtkObject* mCurrent = nullptr;
    AtkObject* mAnnounced = nullptr;
    AtkObject* mTitle = nullptr;
    int mCurrentPart = SpokenSource::kWhole;
    std::string mCurrentWords;
    std::string mWholeWords;
};

// The accessible object of a drawn window, and that of a part. `reader` is null once it has gone.
struct DrawnObject {
    GtkContainerAccessible base;
    SpokenReader* reader;
};
struct PartObject {
    AtkObject base;
    SpokenReader* reader;
    int part;
};

// The types of these objects for what they stand for.
GType DrawnTypeFor(controls::SpokenRole role);
GType PartTypeFor(controls::SpokenRole role);

// What an object of either kind stands for; null once the reader has gone, and kWhole for a window.
SpokenReader* ReaderOf(gpointer object);
int PartOf(gpointer object);

// Fill in what a table and its cells can be asked for.
void FillTable(gpointer interface, gpointer data);
void FillCell(gpointer interface, gpointer data);

}  // namespace kelvane::desktop
