// frmSummary: the account's entries summed up by fields that the operator chooses, on the screen,
// on paper and in files, with a way from each group to its entries. One instance, created on first
// use, which keeps the choice.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/kept_layout.h"
#include "controls/label.h"
#include "entries/summary/summary.h"
#include "ui/common/window_requests.h"
#include "ui/summary/field_choice.h"
#include "ui/summary/print_buttons.h"

namespace kelvane::ui {

class frmSummary : public controls::Form {
public:
    frmSummary();

    controls::Label lblBy;
    controls::ComboBox cboField1;
    controls::ComboBox cboField2;
    controls::ComboBox cboField3;
    controls::ComboBox cboField4;
    controls::ComboBox cboField5;
    controls::Button cmdAgain;
    controls::Label lblCounts;
    controls::Grid GridSummary;
    PrintButtons Printing;
    controls::Button cmdTieOut;
    controls::Button cmdShow;
    controls::Button cmdClose;

    // Sums the account up and shows that; the identity of the entry that the operator wants to go
    // to, nothing when he closed the window. Over gConn and gEnv; errors are trapped and told in
    // the window.
    std::optional<std::int64_t> Ask(const IsListed& isListed);

    // The choice of a place, from 0, as its combo box has it now.
    void cboField_Change(std::size_t place);
    void SummarizeAgain();
    // The entries of the current row, and from there to one of them.
    void ShowEntries();
    // Ties the account to a trial balance that the operator chooses, in a window of its own
    // (summary_ledger.cpp).
    void CompareWithLedger();

    std::string Hint() const override;
    std::string Figures() const override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    void TellFailure(std::string_view place);
    void AllowCommands();

    // What is shown (summary_rows.cpp).
    std::string Title() const;
    void ShowChoice();
    void ShowSummary();
    void LayOut();
    void AppendRow(std::size_t at);
    void ShowCounts();
    // The current row; null without one.
    const entries::SummaryRow* Current() const;
    // "项目 P01 一号楼，要素 E01 人工费"; of the grand total "全部".
    std::string NameOf(const entries::SummaryRow& row) const;

    const std::array<controls::ComboBox*, FieldChoice::kPlaces> mFields{
        &cboField1, &cboField2, &cboField3, &cboField4, &cboField5};
    FieldChoice mChoice;
    bool mIsShowingChoice = false;
    IsListed mIsListed;
    std::optional<entries::Summary> mSummary;  // none: it failed
    std::optional<std::int64_t> mAnswer;
    controls::KeptLayout mKeptLayout{*this, GridSummary};
};

// The one instance; created on first use.
frmSummary& GetSummaryForm();

}  // namespace kelvane::ui
