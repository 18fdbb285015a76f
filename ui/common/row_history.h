// RowHistory: the operator's changes to the row of a grid that he is in, step by step back to what
// was there before them, and whether he may leave it without its checks. It knows one row at a time
// and forgets it when another one becomes current.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/grid.h"
#include "ui/common/waiting_lines.h"

namespace kelvane::ui {

// All that an edit of a cell may change: the row's cells joined by a tab, and for an entry its
// waiting lines and the detail kind of its element.
struct RowState {
    std::string cells;
    WaitingLines waiting = {};
    std::int16_t detail = 0;

    friend bool operator==(const RowState&, const RowState&) = default;
};

class RowHistory {
public:
    struct Step {
        RowState before;
        int col = 0;
    };

    // An edit begins in the row that goes by the number `row`, or has ended in it. One that changed
    // nothing is no step.
    void BeginEdit(int row, RowState now);
    void EndEdit(int col, const RowState& now);

    // What was changed since the row was stored can be taken back.
    bool HasSteps(int row) const { return IsAt(row) && !mSteps.empty(); }
    // The row as it was before all steps; null when there is none.
    const RowState* BeforeSteps(int row) const {
        return HasSteps(row) ? &mSteps.front().before : nullptr;
    }
    // Takes the last step out and returns it; there must be one.
    Step TakeLastStep();
    // Takes all steps out and returns the row as it was before the first; there must be one.
    RowState TakeAllSteps();

    // Lines that an edit of the row removed from the database do not come back with its cells.
    void LinesWereDeleted() { mLinesDeleted = true; }
    bool HasDeletedLines() const { return mLinesDeleted; }
    bool LinesAreMissing(const RowState& state) const {
        return mLinesDeleted && state.detail != 0 && state.waiting.script.IsEmpty();
    }

    // How the operator may get out of the row: as always; the same, after its changes were taken
    // back; or without checks and saving, until it is changed.
    enum class WayOut { Checked, CheckedAfterReturn, Free };
    void Offer(int row, WayOut way);
    WayOut WayOutOf(int row) const { return IsAt(row) ? mWayOut : WayOut::Checked; }

    // Whether it is known what is stored of the row: not when saving it got no answer.
    void SaveInDoubt(int row);
    bool IsInDoubt(int row) const { return IsAt(row) && mInDoubt; }

    // The row is stored, removed or left.
    void Forget() { *this = {}; }
    // Forgets any other row.
    void KeepOnly(int row);

private:
    bool IsAt(int row) const { return mRow == row; }

    std::optional<int> mRow;
    std::optional<RowState> mOpened;
    std::vector<Step> mSteps;
    WayOut mWayOut = WayOut::Checked;
    bool mLinesDeleted = false;
    bool mInDoubt = false;
};

// Writes the cells of a state into a row, those that differ.
void PutCellsBack(controls::Grid& grid, int row, std::string_view cells);

}  // namespace kelvane::ui
