// frmTieOut: the account's entries beside the ledger's trial balance, with a way from a difference
// to the entries behind it. It balances nothing. Made for one pair of files, which are read again
// whenever the operator has corrected them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/button.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/kept_layout.h"
#include "controls/label.h"
#include "entries/ledger/tie_out_texts.h"
#include "ui/common/window_requests.h"
#include "ui/summary/print_buttons.h"

namespace kelvane::ui {

class frmTieOut : public controls::Form {
public:
    // The files of the trial balance and of the mapping (UTF-8). `isListed` outlives the window.
    frmTieOut(std::string trial, std::string map, const IsListed& isListed);

    controls::Label lblCounts;
    controls::Button cmdOpen;
    controls::Button cmdNotes;
    controls::Button cmdAgain;
    controls::Label lblFiles;
    controls::Grid GridTieOut;
    PrintButtons Printing;
    controls::Button cmdSign;
    controls::Button cmdAll;
    controls::Button cmdShow;
    controls::Button cmdClose;

    // Compares and shows that; the identity of the entry that the operator wants to go to, nothing
    // when he closed the window. Over gConn and gEnv; errors are trapped and told in the window.
    std::optional<std::int64_t> Ask();

    // Reads both files and the account.
    void CompareAgain();
    // Leaves out what agrees, or shows it again.
    void ShowOpenOnly(bool only);
    // What was noticed in the tables, in the place of the comparison.
    void ShowNotes(bool shown);
    // Compares once more and has that written to the sheet that is signed.
    void WriteSignOff();
    // The entries that may be the current row's difference, all of its entries where there are
    // none; and from there to one of them.
    void ShowEntries();
    void ShowAllEntries();

    std::string Hint() const override;
    std::string Figures() const override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    // Something in a table, at its place.
    struct Told {
        std::string place;
        std::string text;
    };

    void NameControls();
    void Compare();
    void ShowList(const std::string& name, const std::vector<std::int64_t>& identities);

    // What is shown (tie_out_rows.cpp).
    void Fill();
    void FillLines();
    void FillTold();
    void FitColumns(std::size_t texts);
    void ShowCounts();
    void AllowCommands();
    // The current row's line; null without one.
    const entries::TieOutLine* Current() const;
    // "科目 16040101 人工费"
    std::string NameOf(const entries::TieOutLine& line) const;
    std::vector<std::int64_t> EntriesOf(const entries::TieOutLine& line) const;

    const std::string mTrial;
    const std::string mMap;
    const IsListed& mIsListed;
    std::optional<entries::TieOut> mResult;  // none: refused, or it failed
    std::vector<entries::TieOutLine> mLines;
    std::vector<Told> mTold;
    std::size_t mRefused = 0;  // so many of what is told first are why nothing was compared
    bool mIsOpenOnly = false;
    bool mShowsNotes = false;
    std::optional<std::int64_t> mAnswer;
    controls::KeptLayout mKeptLayout{*this, GridTieOut};
};

}  // namespace kelvane::ui
