// frmQCEdit: the editor of one opening entry's detail lines, equipment or inventory. It never
// writes the database: saving hands the lines' total and a script back to the entry list, which
// runs the script when it saves the entry. One instance, created on first use; its public members
// outlive its window.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/grid.h"
#include "controls/kept_layout.h"
#include "controls/label.h"
#include "controls/picture.h"
#include "entries/account_master_data.h"
#include "entries/line_rules.h"
#include "platform/database.h"
#include "platform/printing.h"
#include "platform/statement_text.h"
#include "ui/common/figures.h"
#include "ui/common/picked_cells.h"
#include "ui/common/print_setup.h"
#include "ui/common/printed_grid.h"
#include "ui/common/row_history.h"
#include "ui/common/toolbar_form.h"
#include "ui/common/window_requests.h"
#include "ui/detail_editor/line_budgets.h"

namespace kelvane::ui {

class frmQCEdit : public ToolbarForm {
public:
    frmQCEdit();

    controls::Picture Picture1;
    controls::Label lblTitle;
    controls::Label Label1;
    controls::Label lblElement;
    controls::Label Label2;
    controls::Label lblItem;
    controls::Label Label3;
    controls::Label lblDutyCenter;
    controls::Grid Grid1;

    // Shows the lines of the request's entry and returns, when the window has been left, what was
    // saved in it.
    DetailAnswer Edit(const DetailRequest& request);

    // Equipment lines instead of inventory lines; lines only to be looked at.
    bool bEquipment = false;
    bool bReadOnly = false;
    // Set by saving: the lines' total as an amount text (empty when it is zero), and the script
    // that replaces the entry's lines, with the entry's place in it.
    std::string RetValue;
    platform::StatementText RetStrSql;
    // The entry's waiting lines, cells joined by a tab. While there are any, they are shown instead
    // of the database's.
    std::vector<std::string> mColTempValues;

    // Loading (detail_loading.cpp), over gConn. Errors are thrown.
    void LoadDetailGrid();
    void AddDetailRow();

    // Lookups (detail_lookup.cpp), over gConn: fill the line from the code or name in it. False
    // after a refusal with its message. Errors are thrown.
    bool FillByCode(const std::string& code, int row);
    bool FillByName(const std::string& name, int row);

    // Checks (detail_validation.cpp). RecalcAmount sets the line's amount to price by quantity;
    // CheckDetailBudget checks one line against its budget, over gConn. Errors are thrown.
    static bool IsValidAmount(const std::string& text);
    void RecalcAmount(int row);
    bool CheckDetailBudget(int row);
    void Grid1_CellReference(std::string& text, int row, int col);
    void Grid1_CellValidate(std::string& text, controls::GridAnswer& answer, int row, int col);
    void Grid1_RowValidate(controls::GridAnswer& answer, int row, int& col);
    void Grid1_EditModeChange(bool editing);

    // Ways back (detail_ways_back.cpp). Grid1_AbandonRow takes all changes of a line back, lets it
    // be left without checks when there are none, and gives up a line that had nothing in it.
    void Grid1_AbandonRow(int row);
    void UndoChange();

    // Commands (detail_commands.cpp).
    void SetupToolbar();
    void Toolbar1_ButtonClick(controls::ToolbarButton& button) override;
    void DeleteDetailRow();
    void SaveDetails();
    void QuitEditor();
    void TakeSnapshot();
    bool HasChanged() const;

    // Printing (detail_printing.cpp). False, after a message, when there is nothing to print.
    bool BuildDetailPrintStyle(const std::string& title);
    bool PreparePrint();
    void PreviewDetails();
    void PrintDetails();
    void ExportDetails();

protected:
    std::string Hint() const override;
    std::string Figures() const override;
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_QueryUnload(bool& cancel, controls::UnloadMode mode) override;
    void Form_Unload() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    // The toolbar, in its order.
    struct Command;
    static std::span<const Command> Commands();
    void AddButtons();

    entries::LineRules Rules() const;
    // Shows what was found, if anything was; true when nothing was.
    bool Accepts(const std::optional<entries::Finding>& finding);
    bool Fill(entries::LineField by, const std::string& sought, int row);
    entries::LineTexts TextsOf(int row) const;
    int GridColumnOf(int lineColumn) const;

    // Columns counted from the right: inventory lines have one column more than equipment lines.
    int PriceColumn() const { return Grid1.Cols() - 3; }
    int QuantityColumn() const { return Grid1.Cols() - 2; }
    int AmountColumn() const { return Grid1.Cols() - 1; }
    int UnitColumn() const { return Grid1.Cols() - 4; }

    // Fills the line but for column `kept`. Throws before anything is written.
    void FillLine(int row, int kept, const entries::LineItem& item);
    std::string AmountText(const std::string& price, int row) const;
    bool ValidateItem(const std::string& text, int row, int col);

    RowState StateOf(int row) const { return {.cells = Grid1.RowText(row)}; }
    void OfferWaysBack();
    bool HasLineChanges() const;
    bool IsNewLine(int row) const;
    void GiveUpLine(int row);
    void AskAndRemove(int row, platform::MessageAnswer preselected);

    bool MayLoseChanges();
    void AllowChanges(bool allowed);
    void TellFailure(std::string_view place);
    void ShadeRow(int row);
    void AppendLine(const platform::RecordSet& line);
    void LayOutGrid();
    std::string CellText(int row, int col) const { return Grid1.Text(row, col); }

    // The entry whose lines are shown.
    entries::BudgetedEntry mEntry;
    std::string mCenterCode;
    // Asked for the lower line as well, while nothing of the window changes.
    mutable entries::AccountMasterData mMasterData;
    mutable LineBudgets mLineBudgets;
    // Who hears of trapped errors when this window does not.
    std::function<void(std::string_view place)> mOuterTrapListener;
    // Whether the notice line speaks of an export that failed.
    bool mExportFailed = false;
    bool mExported = false;
    PrintedGrid mPrinted{Grid1, SavePrintSettings};
    // The print control, made anew for each print, preview and export.
    std::unique_ptr<platform::PrintControl>& xmlPrt = mPrinted.control;
    // The lines' texts as they were loaded, header included.
    std::vector<std::string> mSnapshot;
    controls::KeptLayout mKeptLayout{*this, Grid1};
    // The item picked from a list for an open cell.
    PickedCells mPickedItem;
    // The changes of the current line, which goes by its row's number.
    RowHistory mHistory;
    // Why a cell or the line was refused, as long as the grid marks it.
    std::string mRefusal;
};

// The one instance; created on first use.
frmQCEdit& GetDetailEditorForm();

}  // namespace kelvane::ui
