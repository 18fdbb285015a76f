// frmImport: the rows of a table that is about to be imported, in which the operator corrects what
// is refused before all of them are entered at one go. Its concerns live in one source file each:
// layout and opening, the grids, editing, what is wrong, commands.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/button.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/kept_layout.h"
#include "controls/label.h"
#include "entries/account_master_data.h"
#include "entries/bulk/file_master_data.h"
#include "entries/bulk/import.h"
#include "platform/table.h"
#include "ui/common/window_requests.h"
#include "ui/import/import_reading.h"
#include "ui/import/import_sheet.h"

namespace kelvane::ui {

class frmImport : public controls::Form {
public:
    frmImport();

    controls::Label lblSource;
    controls::Button cmdErrors;
    controls::Button cmdColumns;
    controls::Grid GridRows;
    controls::Label lblLines;
    controls::Grid GridLines;
    controls::Button cmdImport;
    controls::Button cmdCancel;

    // Shows what `request` brings. Nothing when the operator gave it up; then nothing was written.
    // The rows are checked and written over gConn and gEnv; errors are trapped and told.
    std::optional<ImportAnswer> Import(const ImportRequest& request);

    // Commands (import_commands.cpp).
    void Enter();
    void ShowErrorsOnly(bool only);
    void AssignColumns();
    void PasteRows();
    void RemoveRow();
    // A new line of the current entry.
    void AddLine();
    // To the next cell in which something is wrong, or with -1 to the one before.
    void GoToError(int step);

    std::string Hint() const override;
    std::string Figures() const override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_QueryUnload(bool& cancel, controls::UnloadMode mode) override;
    void Form_Unload() override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    // A cell that is wrong: of the current entry's row, or of one of its lines (from 1).
    struct Fault {
        int line = 0;
        int col = 0;
        friend bool operator<(const Fault& a, const Fault& b) {
            return std::pair(a.line, a.col) < std::pair(b.line, b.col);
        }
    };

    // Opening (import_window.cpp).
    bool Read(const ImportRequest& request);
    bool MayImportAgain();
    bool TakeTables(bool byHand);
    static void RunTold(const std::function<void()>& work);
    void AddActions();

    // The grids (import_grids.cpp).
    void LayOutRows();
    void LayOutLines();
    void FillRows();
    void AppendRow(std::size_t entry);
    void ShowRow(int row);
    void Refill();
    void FollowRow();
    void FillLines();
    void ShowLine(int row);
    // Which entry a row stands for; ImportSheet::kNoEntry where no row is current as well.
    std::size_t EntryOf(int row) const;
    std::size_t CurrentEntry() const;

    // Editing (import_editing.cpp).
    void WireGrids();
    void PickForRow(std::string& value, int row, int col);
    void PickForLine(std::string& value, int col);
    void TakeRow(int row);
    void TakeLine(int row);

    // What is wrong (import_faults.cpp).
    void CheckAll();
    void MarkFaults();
    void MarkLineFaults();
    bool MarkRow(int row);
    void NameErrorsButton();
    std::vector<Fault> FaultsOf(int row) const;
    void GoToFault(int row, const Fault& fault);
    std::string ReasonsHere() const;

    // Commands.
    void Write();
    void TellRefusals(const entries::ImportResult& result);
    platform::BatchIntent Head() const;
    bool FinishEdits();

    std::unique_ptr<platform::TableReader> mReader;
    std::optional<ImportReading> mReading;
    std::string mSource;  // the file, or what the copied text is called
    std::string mHash;
    entries::TableTotals mTotals;
    ImportSheet mSheet;
    entries::AccountMasterData mAccount;
    // What the account said, for as long as the window is open: each cell is checked with all rows.
    std::unique_ptr<entries::FileMasterData> mKnown;
    bool mIsChecked = false;
    bool mIsChanged = false;
    // The operator knows of these imports of the same, and wants it again.
    std::vector<std::string> mFormer;
    bool mIsFilling = false;
    // Whose lines are shown.
    std::size_t mShownEntry = 0;
    int mShownRow = 0;
    std::optional<ImportAnswer> mAnswer;
    controls::KeptLayout mKeptLayout{*this, GridRows};
};

}  // namespace kelvane::ui
