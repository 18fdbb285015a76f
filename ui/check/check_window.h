// frmCheck: what a check of the whole account found, as a list from which the operator goes to the
// entries. It repairs nothing. One instance, created on first use: it opens again where it was
// left, so that the findings can be worked off one by one.
#pragma once

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
#include "entries/check/check.h"
#include "ui/common/list_views.h"
#include "ui/common/window_requests.h"

namespace kelvane::ui {

// The columns of the findings, in the order of entries::CheckTexts().
enum CheckColumn { kCheckIdentity, kCheckSeverity, kCheckRule, kCheckColumn, kCheckText };

class frmCheck : public controls::Form {
public:
    frmCheck();

    controls::Label lblCounts;
    controls::Button cmdErrors;
    controls::Button cmdAgain;
    controls::Grid GridFindings;
    // The current finding's text, as long as it may be.
    controls::Label lblText1;
    controls::Label lblText2;
    controls::Label lblText3;
    controls::Button cmdGo;
    controls::Button cmdClose;

    // Checks the account and shows what was found; the identity of the entry that the operator
    // wants to go to, nothing when he closed the window. Over gConn and gEnv; errors are trapped
    // and told in the window.
    std::optional<std::int64_t> Ask(const IsListed& isListed);

    void CheckAgain();
    void ShowErrorsOnly(bool only);
    void GoToEntry();

    std::string Hint() const override;
    std::string Figures() const override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    void AddActions();
    void LayOut();
    void Fill();
    void FitText();
    void ShowCounts();
    void ShowText();
    void NameErrorsButton();
    // The finding of the current row; null without one.
    const entries::CheckFinding* Current() const;
    // The first row whose finding does not stand before the one that was current last.
    int RowToBegin() const;

    IsListed mIsListed;
    bool mIsChecked = false;
    entries::CheckResult mResult;
    // Where the operator was.
    std::int64_t mLastIdentity = 0;
    std::string mLastText;
    std::optional<std::int64_t> mAnswer;
    ListViews mViews{GridFindings};
    controls::KeptLayout mKeptLayout{*this, GridFindings};
};

// The one instance; created on first use.
frmCheck& GetCheckForm();

}  // namespace kelvane::ui
