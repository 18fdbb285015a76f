// SearchStrip: the search in a list while it is typed. It lies over the list's title strip, which
// keeps its place. Typing only shows the next cell that contains the text, scrolled into sight and
// marked; the current row is left, with its check, when Enter goes there.
#pragma once

#include <functional>
#include <string>

#include "controls/button.h"
#include "controls/edit_box.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "platform/keys.h"

namespace kelvane::ui {

// What is said when a search has gone past the end of the list, or with -1 past its beginning.
const char* NoteOfWrap(int step);

class SearchStrip {
public:
    // Joins `form`, closed. `goTo` makes a cell the current one; false when the current row may not
    // be left, after its message.
    SearchStrip(controls::Form& form, controls::Grid& grid,
                std::function<bool(int row, int col)> goTo);

    controls::Label lblSearch;
    controls::EditBox txtSearch;
    controls::Button cmdCloseSearch;

    // Places the strip in a band of the form, in twips.
    void Place(int top, int height);

    bool IsOpen() const { return mOpen; }
    void Open();
    // Gives the keys back to the grid. What was shown and not gone to is forgotten.
    void Close();
    // Goes to the cell that is shown, from the second time on to the next one, with -1 to the one
    // before, round the list's end.
    void GoOn(int step);
    // Enter, Shift+Enter, and up and down, which leave the strip for the cell that is shown; true
    // when the key is one of them and the strip has the keyboard.
    bool TakeKey(platform::Key key, int shift);
    bool HasKeyboard() const;

    // What came of it, and what can be done.
    const std::string& Note() const { return mNote; }

private:
    struct Cell {
        int row = 0;
        int col = 0;
        bool wrapped = false;
    };
    void Typed();
    void Show(const Cell& cell);
    // Scrolls back to where the grid was before a cell was shown that was not gone to.
    void LookBack();
    // The nearest cell with the text beyond a place, or there itself; row 0: none.
    Cell Find(Cell from, int step, bool there) const;

    controls::Form& mForm;
    controls::Grid& mGrid;
    std::function<bool(int row, int col)> mGoTo;
    bool mOpen = false;
    // A cell is shown that is not the current one, and what was in sight before.
    bool mLooking = false;
    int mTopRow = 0;
    int mLeftCol = 0;
    std::string mNote;
};

}  // namespace kelvane::ui
