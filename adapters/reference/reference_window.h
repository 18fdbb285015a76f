// ReferenceWindow: the window of a pick list. It is made of controls alone, so it is the same on a
// screen and without one.
//
// What is typed narrows the rows at once. The arrows, Page Up/Down, Ctrl+Home and Ctrl+End move in
// the rows while the search field keeps the focus; Enter or a double click chooses, Escape or the
// close box chooses nothing. A click on a title, or Ctrl and its number, sorts by that column, once
// more the other way round.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/reference/pick_rows.h"
#include "adapters/reference/row_finder.h"
#include "controls/button.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/kept_layout.h"
#include "controls/label.h"
#include "controls/pick_window.h"
#include "platform/windows.h"

namespace kelvane::reference {

// How a list looks: a title for each column, and their widths in twips; a width that is missing is
// a usual one.
struct ListLayout {
    std::string caption;
    std::vector<std::string> titles;
    std::vector<int> widths;
    // The list opens on the first row with this text.
    std::string present = {};
    // Keeps the operator's own layout of the lists with these titles; may be null.
    platform::UserSettings* settings = nullptr;
};

class ReferenceWindow : public controls::Form, public controls::PickWindow {
public:
    // `windows` outlives the window. `rows` has the columns that `layout` has titles for.
    ReferenceWindow(platform::Windows& windows, PickRows rows, ListLayout layout);

    controls::Label lblSearch;
    controls::EditBox txtSearch;
    controls::Button cmdOK;
    controls::Button cmdCancel;
    controls::Grid GridReference;

    // The chosen row's number in the query's order, from 0; nothing until one was chosen.
    std::optional<std::size_t> Chosen() const { return mChosen; }

    std::vector<controls::KeyLine> OwnKeys() const override;

    controls::PickWindow* AsPickWindow() override { return this; }
    std::vector<std::string> Titles() const override { return mLayout.titles; }
    std::vector<std::vector<std::string>> ShownRows() const override;
    void Choose(std::optional<std::size_t> row) override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override { mKeptLayout.Keep(); }
    void Form_KeyDown(platform::Key& key, int shift) override;

private:
    void WireControls();
    void ShowTitles();
    std::size_t PlaceOfPresent() const;
    void ShowRows(std::size_t current);
    void SelectRow();
    void ChooseCurrent();
    void SortBy(int column);

    platform::Windows& mWindows;
    PickRows mRows;
    RowFinder mFinder;
    ListLayout mLayout;
    controls::KeptLayout mKeptLayout{*this, GridReference};
    std::optional<std::size_t> mChosen;
    int mSortColumn = -1;
    bool mDescending = false;
};

}  // namespace kelvane::reference
