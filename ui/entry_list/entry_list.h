// frmPeriodItem: the list of opening entries, one grid row an entry, in which the operator adds,
// changes and deletes them. One instance, created on first use. Its concerns live in one source
// file each: loading, row validation, row saving, status checks, grid editing, commands, printing.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "controls/button.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/picture.h"
#include "data/keyed_collection.h"
#include "data/messages.h"
#include "platform/database.h"
#include "platform/date_time.h"
#include "platform/printing.h"
#include "platform/statement_text.h"
#include "ui/common/toolbar_form.h"
#include "ui/entry_list/failure_notice.h"

namespace kelvane::ui {

// The grid's columns.
enum EntryColumn {
    kDateColumn = 1,
    kCenterColumn = 2,
    kItemColumn = 3,
    kItemNameColumn = 4,
    kKey1Column = 5,
    kKey2Column = 6,
    kElementColumn = 7,
    kDigestColumn = 8,
    kAmountColumn = 9,
    kEntryColumnCount = 10,
};

// The element-detail flag of elements that are kept in equipment lines.
inline constexpr std::int16_t kEquipmentDetail = 2;

class frmPeriodItem : public ToolbarForm {
public:
    frmPeriodItem();
    ~frmPeriodItem() override;

    controls::Picture Picture1;
    controls::Label CapLable;
    controls::Grid GridPeriodItem;
    controls::Button cmdRef;
    // Made anew for each print, preview and export.
    std::unique_ptr<platform::PrintControl> xmlPrt;

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
    // The detail editor's script for the current row, run when the row is saved.
    platform::StatementText mDetailSql;
    // Layout of the grid as it stood after loading.
    std::string mGridLayoutText;

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
    // `detailSql` in the same transaction; it returns false, with nothing written, after any error.
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

    // Commands (commands.cpp).
    void Toolbar1_ButtonClick(controls::ToolbarButton& button) override;
    void cmdRef_Click();
    void FindEntry();

    // True when a row is one that the search looks for (entry_search.cpp).
    bool MatchesSearch(int row) const;

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

    // The date from which on no opening entry may be dated: the first day of the opening period.
    static platform::DateTime OpeningBound();

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
    static const Command* FindCommand(std::string_view key);

    void WireGrid();
    void LayOutGrid();
    void ReSumEntries();
    void AppendEntries(platform::RecordSet& entries);
    void AppendEntry(const platform::RecordSet& entry, const platform::StatementText& elementQuery);
    // The query that CheckItemSettled() asks, and what its answer says.
    static platform::StatementText SettlementOf(const std::string& item, const std::string& key1,
                                                const std::string& key2);
    bool IsSettled(const platform::StatementText& settlementQuery);
    void LockRows();
    void ResetToDesign();
    void AllowEntry(bool allowed);
    bool EntryIsLocked();
    static bool AskDelete();
    std::string CellText(int row, int col) const { return GridPeriodItem.Text(row, col); }
    void PaintRow(int row, int firstCol, int lastCol);

    bool ValidateDate(std::string& text);
    bool ValidateCenter(int row, const std::string& text, bool changed);
    bool ValidateItem(int row, const std::string& text);
    bool ValidateElement(int row, const std::string& text, bool changed);
    bool ValidateAmount(int row, std::string& text, bool singleBlank);
    bool Refuse(std::string_view message, std::string_view caption = data::kPromptCaption);

    std::string ElementCodeOf(const std::string& elementName);
    bool UpdateEntry(int row, std::int32_t identity, platform::StatementText& detailSql);
    bool InsertEntry(int row, platform::StatementText& detailSql);
    void WriteNewEntry(int row, std::int32_t identity, platform::StatementText& detailSql);
    void TakeIdentity(int row, std::int32_t identity);
    // Reports the error being handled as trapped in `place`, and tells what came of the write.
    struct WriteSentences;
    void TellFailedWrite(std::string_view place, const WriteSentences& sentences);

    void OpenDetailsFromGrid(std::string& value, int row);
    void KeepCellsOfItem(int row, const std::string& chosenCode);
    void DropChosenItem(int row);
    void PlaceDetailButton();
    void HideDetailButton();
    void ClickButton(std::string_view key);
    void DisableMissingCommands();

    FailureNotice mFailureNotice;
    // Caption of the item-name field, read at each load.
    std::string mItemNameCaption;
    data::KeyedCollection<std::int16_t> mElementDetails;
    // Identities of new entries whose commit was never answered.
    std::set<std::int32_t> mEntriesInDoubt;
    // The item chosen while its cell is open, and what its choice overwrote beside it.
    struct ChosenItem {
        std::string code;
        std::vector<std::string> cellsBefore;
    };
    std::optional<ChosenItem> mChosenItem;
    // True while keystrokes that this window sent itself are on their way.
    bool mSendingOpenKeys = false;
};

// The one instance; created on first use.
frmPeriodItem& GetPeriodItemForm();

}  // namespace kelvane::ui
