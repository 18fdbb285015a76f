// frmFind: asks for an item code and up to two keywords and answers whoever asked. One
// instance, created on first use.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/picture.h"
#include "ui/common/window_requests.h"

namespace kelvane::ui {

class frmFind : public controls::Form {
public:
    frmFind();

    controls::Picture FrameBack;
    controls::Label Label1;
    controls::EditBox TxtCode;
    controls::Button ComdRef;
    controls::Label Label2;
    controls::ComboBox ComKey1;
    controls::Label Label3;
    controls::ComboBox ComKey2;
    controls::Button CmdOK;
    controls::Button CmdCancel;

    // Shows the dialog and returns what is to be found; nothing when it was not left by OK.
    std::optional<FindAnswer> Ask();

    std::vector<controls::KeyLine> OwnKeys() const override;

    void ComdRef_Click();
    void ComKey1_DropDown();
    void ComKey2_DropDown();
    void CmdOK_Click();
    void CmdCancel_Click();

    // Tests the code and fills both keyword lists for it; `ok` is false when there is no code or
    // an unknown one. The code is tested over gEnv, the lists are read over gConn. Errors are
    // thrown.
    void RefreshKeywordLists(bool& ok);

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Form_KeyUp(platform::Key& key, int shift) override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    void OfferSecondKeyword(bool offered);
    void FillKeywordLists();
    // Refills the lists and selects in `kept` what was selected in it before.
    void RefreshKeeping(controls::ComboBox& kept);

    std::optional<FindAnswer> mAnswer;
};

// The one instance; created on first use.
frmFind& GetFindForm();

}  // namespace kelvane::ui
