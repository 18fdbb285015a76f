// frmPeriodItem: the list of opening entries, one grid row an entry, in which the operator adds,
// changes and deletes them. One instance, created on first use. Its concerns live in one source
// file each: loading, row validation, row saving, status checks, grid editing, commands, printing.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/button.h"
#include "controls/grid.h"
#include "controls/kept_layout.h"
#include "controls/label.h"
#include "controls/picture.h"
#include "entries/account_master_data.h"
#include "entries/entry.h"
#include "entries/entry_rules.h"
#include "entries/entry_store.h"
#include "platform/printing.h"
#include "platform/statement_text.h"
#include "ui/common/list_views.h"
#include "ui/common/picked_cells.h"
#include "ui/common/printed_grid.h"
#include "ui/common/row_history.h"
#include "ui/common/search_strip.h"
#include "ui/common/toolbar_form.h"
#include "ui/common/window_requests.h"
#include "ui/entry_list/center_names.h"
#include "ui/entry_list/element_details.h"
#include "ui/entry_list/failure_notice.h"
#include "ui/entry_list/save_notes.h"

namespace kelvane::ui {

using enum entries::EntryColumn;

// The window's title, which is printed too.
inline constexpr std::string_view kTitle = "项目期初录入";

class frmPeriodItem : public ToolbarForm {
public:
    frmPeriodItem();
    ~frmPeriodItem() override;

    controls::Picture Picture1;
    controls::Label CapLable;
    controls::Grid GridPeriodItem;
    controls::Button cmdRef;
    // The list on paper and in files. The print control is made anew for each print, preview and
    // export; the layout is the grid's as it stood after loading.
    PrintedGrid mPrinted{GridPeriodItem,
                         [this](const std::string& text1, const std::string& text2) {
                             xmlPrt_SaveSettings(text1, text2);
                         }};
    std::unique_ptr<platform::PrintControl>& xmlPrt = mPrinted.control;
    std::string& mGridLayoutText = mPrinted.layout;

    // What the find dialog hands over: whether it was left by OK, and what to look for (an empty
    // keyword stands for any).
    bool ExecCom = false;
    bool bClickOk = false;
    std::string FindItemCode;
    std::string FindKeyCode1;
    std::string FindKeyCode2;

    // Text of the current cell when editing began, and whether a cell is open.
    std::string mEditText;
    bool mEditing = false;
    // True while the detail editor is shown from the grid.
    bool mDetailOpen = false;
    // The current row's waiting lines; their script runs when the row is saved.
    WaitingLines mWaiting;
    platform::StatementText& mDetailSql = mWaiting.script;

    // The windows that this one opens: the detail editor, the find dialog, which answers nothing
    // when it was not left by OK, the import, which answers nothing when it was given up, and the
    // check and the summary, which answer the identity of an entry to go to. Set before the list is
    // shown.
    std::function<DetailAnswer(const DetailRequest&)> EditDetails;
    std::function<std::optional<FindAnswer>()> AskWhatToFind;
    std::function<std::optional<ImportAnswer>(const ImportRequest&)> ImportEntries;
    using ShowEntries = std::function<std::optional<std::int64_t>(const IsListed&)>;
    ShowEntries CheckEntries;
    ShowEntries SummarizeEntries;

    // Loading (entry_loading.cpp). Statements run over gEnv; errors end each routine quietly and
    // leave a notice.
    void LoadEntryGrid();
    void SetupToolbar();
    void AddEntryRow();
    bool SelectRow(int row);

    // Row validation (row_validation.cpp). Checks one cell; `changed`: the operator changed it in
    // this edit; `text` receives the trimmed, normalised text. A refusal shows its message and
    // returns false, as does an error.
    bool ValidateCell(int row, int col, bool changed, std::string& text);

    // Saving (row_save.cpp), over gConn, lookups over gEnv. SaveRow writes the row and runs
    // `detailSql` in the same transaction. It returns false after a message or a trapped error;
    // then nothing was written, unless the commit is in doubt.
    bool SaveRow(int row, platform::StatementText& detailSql);
    bool CheckRowDeletable(int row);
    void DeleteRow();

    // Status checks (status_checks.cpp), over gEnv. An error gives false or an empty text.
    bool CheckPeriodClosed();
    bool CheckYearCarriedOver();
    bool CheckItemSettled(const std::string& item, const std::string& key1,
                          const std::string& key2);
    std::string GetItemName(const std::string& item);

    // Grid editing (grid_editing.cpp).
    void GridPeriodItem_CellReference(std::string& value, int row, int col);
    void GridPeriodItem_CellValidate(std::string& text, controls::GridAnswer& answer, int row,
                                     int col);
    void GridPeriodItem_RowValidate(controls::GridAnswer& answer, int row, int& col);
    void GridPeriodItem_ComboDropDown(int row, int col, controls::GridDropList& list);
    void GridPeriodItem_EditModeChange(bool editing);
    void GridPeriodItem_CellChanged(int row, int col);
    void GridPeriodItem_EnterCell();
    void GridPeriodItem_EditCheck();
    void GridPeriodItem_DetailReset();
    void GridPeriodItem_ViewChange();
    void GridPeriodItem_AbandonRow(int row);
    std::string PickItemWithKeywords(const std::string& centerCode, int row, int col);
    void CheckBeforeEntry(bool& ok);

    // Whether the operator may change a cell's text by hand (cell_guards.cpp).
    bool GridPeriodItem_TextMayChange(int row, int col) const;

    // Ways back (ways_back.cpp). GoBackToStored takes all changes of a stored row back, or lets it
    // be left without checks when there are none; UndoChange takes the last one back.
    void GoBackToStored(int row);
    void UndoChange();

    // What the lower line says (entry_hints.cpp).
    std::string Hint() const override;
    std::string Figures() const override;

    // Commands (commands.cpp).
    void Toolbar1_ButtonClick(controls::ToolbarButton& button) override;
    void cmdRef_Click();
    void FindEntry();

    // True when a row is one that the search looks for (entry_search.cpp).
    bool MatchesSearch(int row) const;
    // The next row, or with -1 the one before, that FindEntry() was last asked for, round the end
    // of the list; FindEntry() itself when it was never asked.
    void FindNext(int step);

    // The search while it is typed, over the title strip (Ctrl+F).
    void SearchTyping();

    // Sorting and filtering (list_actions.cpp): the list's own titles, and what the context menu
    // and the keys do.
    void GridPeriodItem_HeaderClick(int col);
    void FilterByCurrentCell();
    // The same with a value that is chosen from the list of the column's.
    void FilterByList();
    // Escape in a row that was not changed: true when there was a search, a notice of what was
    // saved or a view to end. A row that was never saved is given up before a view ends.
    bool EndView();

    std::vector<controls::KeyLine> OwnKeys() const override;

    // Entering again what is there already (entry_copying.cpp): the cell above, and a whole entry
    // in a new row. Each cell is entered as the operator would; what is refused shows its message.
    // A new row keeps none of what was refused, and no amount that is made of detail lines.
    void RepeatCellAbove();
    void CopyEntry();

    // Entries from a file that the operator chooses, or from `request` (importing.cpp).
    void ImportFile();
    void Import(const ImportRequest& request);
    bool CanImport() const;

    // The windows that show what is in the account, and the way back from them to an entry
    // (checking.cpp). An unsaved row is left first. GoToEntry ends a filter that hides the entry;
    // false when the list does not have it or the current row may not be left.
    void OpenFrom(const ShowEntries& show);
    bool GoToEntry(std::int64_t identity);

    // Printing (printing.cpp).
    void CaptureGridLayout();
    // Modes of the print set-up: print or preview, and export.
    static constexpr int kPrintMode = 1;
    static constexpr int kExportMode = 2;
    void PreparePrint(int mode, bool& ok);
    void PreviewList();
    void PrintList();
    void ExportList();
    void xmlPrt_SaveSettings(const std::string& text1, const std::string& text2);

    // The element-detail flag of a row's element, 0 when it is kept without detail lines.
    std::int16_t ElementDetailFlag(int row) const;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_QueryUnload(bool& cancel, controls::UnloadMode mode) override;
    void Form_Unload() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Form_KeyPress(char32_t& character) override;
    void Form_KeyUp(platform::Key& key, int shift) override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    struct Command;
    // The toolbar, in its order.
    static std::span<const Command> Commands();
    void ShowButtonImages();

    void WireGrid();
    void AddFindActions();
    void AddViewActions();
    void AddImportActions();
    void AddCheckActions();
    void ReloadEntries();
    // A row below the current one, or with -1 above it, that the search looks for; 0: none. `note`
    // receives that the list's end was passed.
    int FindMatch(int step, std::string& note) const;
    // Brings the rows back that a filter put aside; true when there were some.
    bool ClearFilter();
    // Goes to a row that was found and selects its cells; false when the current row may not be
    // left.
    bool GoToFound(int row, int firstCol, int lastCol);
    bool GoToHit(int row, int col);
    void PlaceSearchStrip();
    void CloseSearchStrip();
    void ResetToDesign();
    void AllowEntry(bool allowed);
    bool AskDelete(int row);
    void AddCopyActions();
    bool EnterItemOf(const entries::EntryTexts& source);
    void CopyCell(const entries::EntryTexts& source, entries::EntryColumn col);
    std::string CellText(int row, int col) const { return GridPeriodItem.Text(row, col); }

    entries::EntryTexts TextsOf(int row) const;
    entries::BudgetedEntry BudgetedEntryOf(int row) const;
    // Shows what was found, if anything was, and gives the focus back to the grid; true when
    // nothing was found.
    bool Accepts(const std::optional<entries::Finding>& finding);
    // Checks the element and makes it the row's, which loses its lines and its amount; false after
    // a message.
    bool ChangeElement(int row, const std::string& name);
    // Checks all cells of the row and its budget; `col` becomes the column that is refused.
    bool ChecksRow(int row, int& col);
    bool ChecksCells(int row, int& col);
    bool ChecksBudget(int row);
    // The row as a whole is refused: the operator has been told `reason`.
    void RefuseRow(int row, std::string reason);
    void EmptyBehindCenter(int row);

    // What history goes by, and the present state of a row to be gone back to.
    int HistoryKey(int row) const {
        return row < GridPeriodItem.Rows() ? GridPeriodItem.RowData(row) : 0;
    }
    RowState StateOf(int row) const;
    void PutBack(int row, const RowState& state);
    void OfferWaysBack();
    // Whether keys that change the row mean the list, with no cell open, and not another field.
    bool IsInList() const;
    bool HasChanges() const;
    // What the lower line says of the row's refusal and ways out, and of a cell whose keys are
    // silent.
    std::string RowHint(int row) const;
    std::string WhatToPress(int row, int col) const;

    // Writes the row; false after a message. What is known before the commit is put into `saved`.
    struct SavedRow {
        entries::WrittenEntry written;
        std::int32_t identity = 0;
        bool wasInDoubt = false;    // nobody knew what was stored
        bool wroteLines = false;    // the entry's lines are those of this save
        bool deletedLines = false;  // its lines were deleted with its element
    };
    bool WriteRow(int row, const platform::StatementText& detailSql, SavedRow& saved);
    void TakeIdentity(int row, std::int32_t identity);

    // What others have changed meanwhile (others_values.cpp). EnterRow keeps what the current row
    // shows before its operator changes anything; TellOfOthers tells what a save has replaced and
    // whether a budget was overrun together, LookAtOthersValues puts the former back into its row.
    void EnterRow();
    bool IsAsShown(const entries::StoredEntry& stored, std::int32_t identity) const;
    std::optional<ReplacedEntry> ReplacedBy(const SavedRow& saved);
    void HoldReplaced(const SavedRow& saved) noexcept;
    void NoteReplaced(int row, const SavedRow& saved);
    void NoteOverrun(int row, const SavedRow& saved, entries::CheckedBudget checked);
    void TellOfOthers(int row, const SavedRow& saved) noexcept;
    bool CanLookAtOthersValues() const;
    std::int32_t OthersEntry() const;
    void LookAtOthersValues();
    RowState StateWith(int row, const ReplacedEntry& replaced);
    void ForgetSaved();

    // Opens the lines of a row's entry.
    DetailAnswer OpenDetails(int row, bool readOnly);
    static void TellElementFirst();
    void OpenDetailsFromGrid(std::string& value, int row);
    void PlaceDetailButton();
    void HideDetailButton();
    void ClickButton(std::string_view key);
    void DisableMissingCommands();

    FailureNotice mFailureNotice;
    ElementDetails mElementDetails;
    // Filled while the lower line is asked for.
    mutable CenterNames mCenterNames;
    entries::AccountMasterData mMasterData;
    entries::EntryRules mRules{mMasterData};
    entries::EntryStore mStore;
    controls::KeptLayout mKeptLayout{*this, GridPeriodItem};
    // The item chosen while its cell is open.
    PickedCells mPickedItem;
    ListViews mViews{GridPeriodItem};
    // Made when it is wanted for the first time.
    std::unique_ptr<SearchStrip> mSearchStrip;
    // What is to be said of a search or an import until the operator goes on.
    std::string mNote;
    // The changes of the current row.
    RowHistory mHistory;
    // The current row as it was read from the account, or as it was saved last.
    std::optional<entries::EntryTexts> mShown;
    SaveNotes mSaveNotes;
    // What the row that is about to be saved was compared with.
    std::optional<entries::CheckedBudget> mCheckedBudget;
    // Why a cell or the row was refused, as long as the grid marks it.
    std::string mRefusal;
    // True while keystrokes that this window sent itself are on their way.
    bool mSendingOpenKeys = false;
};

// The one instance; created on first use.
frmPeriodItem& GetPeriodItemForm();

}  // namespace kelvane::ui
