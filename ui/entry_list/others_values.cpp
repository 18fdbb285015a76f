// Another operator's changes that a save of this one has replaced: how they are noticed, without a
// statement, and how they come back into the row to be looked at. And a budget that two have
// overrun together, which one more read tells.
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "data/login_context.h"
#include "platform/utf8.h"
#include "ui/common/list_layout.h"
#include "ui/entry_list/entry_grid.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using entries::EntryTexts;
using entries::StoredEntry;

namespace {

// More of a digest would push what helps off the notice line.
constexpr std::size_t kDigestCharacters = 12;

std::string NameOf(const EntryTexts& entry) {
    return entry[kItemColumn] + " " + entry[kElementColumn] + " " +
           std::string(platform::FirstCharacters(entry[kDigestColumn], kDigestCharacters)) +
           "（期初编号 " + std::to_string(entry.identity) + "）";
}

}  // namespace

void frmPeriodItem::EnterRow() {
    const int row = GridPeriodItem.Row();
    const int key = HistoryKey(row);
    mHistory.KeepOnly(key);
    if (mShown && mShown->identity == key) return;
    mShown = TextsOf(row);
}

bool frmPeriodItem::IsAsShown(const StoredEntry& stored, std::int32_t identity) const {
    // A row that no operator was in was not shown to one.
    if (!mShown || mShown->identity != identity) return true;
    return mElementDetails.IsNameOf(stored.elementCode, (*mShown)[kElementColumn]) &&
           entries::IsAsShown(*mShown, stored);
}

// Where it is not known what was stored nothing can be told by it, but what the save before came
// upon.
std::optional<ReplacedEntry> frmPeriodItem::ReplacedBy(const SavedRow& saved) {
    if (saved.wasInDoubt) return mSaveNotes.TakeHeld();
    if (!saved.written.before || IsAsShown(*saved.written.before, saved.identity)) return {};
    return ReplacedEntry{.values = *saved.written.before,
                         .wroteLines = saved.wroteLines,
                         .deletedLines = saved.deletedLines};
}

// That the save got no answer is more than what it came upon.
void frmPeriodItem::HoldReplaced(const SavedRow& saved) noexcept {
    try {
        if (auto replaced = ReplacedBy(saved)) mSaveNotes.Hold(*std::move(replaced));
    } catch (...) {
        data::ReportTrapped("TellOfOthers");
    }
}

void frmPeriodItem::NoteReplaced(int row, const SavedRow& saved) {
    const EntryTexts now = TextsOf(row);
    auto replaced = ReplacedBy(saved);
    mSaveNotes.Forget(now.identity);
    if (replaced) mSaveNotes.AddReplaced(now.identity, NameOf(now), *std::move(replaced));
    mElementDetails.AddName(saved.written.elementCode, now[kElementColumn]);
    mShown = now;
}

void frmPeriodItem::NoteOverrun(int row, const SavedRow& saved, entries::CheckedBudget checked) {
    // What a save without an answer has stored may count already.
    const std::optional<StoredEntry> unknown;
    if (!entries::TakesMore(checked, saved.wasInDoubt ? unknown : saved.written.before)) return;
    const EntryTexts now = TextsOf(row);
    checked.entry.identity = now.identity;
    const std::string room = mRules.FindOverrun(checked);
    if (!room.empty()) mSaveNotes.AddOverrun(now.identity, NameOf(now) + "，" + room);
}

// What comes after the commit does not make the save a failure.
void frmPeriodItem::TellOfOthers(int row, const SavedRow& saved) noexcept {
    const auto checked = std::exchange(mCheckedBudget, std::nullopt);
    try {
        NoteReplaced(row, saved);
        mFailureNotice.Remind(mSaveNotes.Text());
    } catch (...) {
        // What is stored is as the row shows it; only what was there before it is not told.
        mShown.reset();
        data::ReportTrapped("TellOfOthers");
    }
    try {
        if (!checked) return;
        NoteOverrun(row, saved, *checked);
        mFailureNotice.Remind(mSaveNotes.Text());
    } catch (...) {
        data::ReportTrapped("NoteOverrun");
    }
}

void frmPeriodItem::ForgetSaved() {
    mSaveNotes.ForgetAll();
    mFailureNotice.Remind({});
    mShown.reset();
    mCheckedBudget.reset();
}

bool frmPeriodItem::CanLookAtOthersValues() const {
    if (!IsInList() || GridPeriodItem.ReadOnly() || GridPeriodItem.RowTouched()) return false;
    return OthersEntry() != 0;
}

std::int32_t frmPeriodItem::OthersEntry() const {
    const int current = HistoryKey(GridPeriodItem.Row());
    return mSaveNotes.ReplacedIn(current) != nullptr ? current : mSaveNotes.LastReplaced();
}

void frmPeriodItem::LookAtOthersValues() {
    const std::int32_t identity = OthersEntry();
    if (HistoryKey(GridPeriodItem.Row()) != identity && !GoToEntry(identity)) return;
    const ReplacedEntry* replaced = mSaveNotes.ReplacedIn(identity);
    const int row = GridPeriodItem.Row();
    if (replaced == nullptr || !GridPeriodItem.RowCanBeEdited(row)) return;
    const RowState before = StateOf(row);
    const RowState others = StateWith(row, *replaced);
    const bool linesAreGone =
        replaced->wroteLines || (replaced->deletedLines && others.detail != 0);
    mHistory.BeginEdit(identity, before);
    PutBack(row, others);
    mHistory.EndEdit(GridPeriodItem.Col(), StateOf(row));
    GridPeriodItem.SetRowTouched(mHistory.HasSteps(identity));
    mSaveNotes.WasSeen(identity);
    mFailureNotice.Remind(mSaveNotes.Text());
    mFailureNotice.Tell("这是他人保存的内容，离开此行时将按此保存，按 Esc 恢复自己的内容。" +
                        std::string(linesAreGone ? "他人的明细已被替换，不能恢复。" : ""));
}

// The row with another operator's values. Lines that the save wrote belong to the row's own element
// and come to its own amount: both stay with them.
RowState frmPeriodItem::StateWith(int row, const ReplacedEntry& replaced) {
    RowState state = StateOf(row);
    const EntryTexts& others = replaced.values.texts;
    std::vector<std::string> cells{std::string(CellText(row, 0))};
    for (int col = kDateColumn; col <= kAmountColumn; ++col) {
        cells.push_back(others.cells[static_cast<std::size_t>(col)]);
    }
    const std::string item = CellText(row, kItemColumn);
    cells[kItemNameColumn] = others[kItemColumn] == item ? CellText(row, kItemNameColumn)
                                                         : GetItemName(others[kItemColumn]);
    const std::string element = CellText(row, kElementColumn);
    cells[kElementColumn] = element;
    if (replaced.wroteLines) {
        cells[kAmountColumn] = CellText(row, kAmountColumn);
    } else if (!mElementDetails.IsNameOf(replaced.values.elementCode, element)) {
        const ShownElement shown = ReadElement(replaced.values.elementCode);
        cells[kElementColumn] = shown.name;
        state.detail = shown.detail;
    }
    state.cells = CellsOf(cells);
    state.waiting.Forget();
    return state;
}

}  // namespace kelvane::ui
