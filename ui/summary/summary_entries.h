// frmSummaryEntries: the entries of one row of the summary, from which the operator goes to one of
// them in the list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/button.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/kept_layout.h"
#include "controls/label.h"
#include "ui/common/window_requests.h"

namespace kelvane::ui {

class frmSummaryEntries : public controls::Form {
public:
    // The entries of these identities as the account has them now; `name` is what they have in
    // common. Over gConn and gEnv; errors are thrown.
    frmSummaryEntries(const std::string& name, std::span<const std::int64_t> identities,
                      const IsListed& isListed);

    controls::Label lblCounts;
    controls::Grid GridEntries;
    controls::Button cmdGo;
    controls::Button cmdClose;

    // The identity of the entry that the operator wants to go to; nothing when he closed the
    // window.
    std::optional<std::int64_t> Ask();
    void GoToEntry();

    std::string Figures() const override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    void LayOut();
    // How many of them are not there any more.
    std::size_t Fill(std::span<const std::int64_t> identities);

    const IsListed& mIsListed;
    std::vector<std::int64_t> mIdentities;  // by the rows below the titles
    std::optional<std::int64_t> mAnswer;
    controls::KeptLayout mKeptLayout{*this, GridEntries};
};

// Shows these entries over `window` and answers as Ask(). An error of their reading is trapped in
// "ReadShownEntries"; without one what the window said of an earlier error is gone.
std::optional<std::int64_t> AskInEntries(controls::Form& window, const std::string& name,
                                         std::span<const std::int64_t> identities,
                                         const IsListed& isListed);

}  // namespace kelvane::ui
