// SettingsWindow: the print settings of a job, to be looked at and changed. Made of controls alone.
#pragma once

#include <deque>
#include <optional>
#include <string>

#include "adapters/output/layout/page_settings.h"
#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/label.h"
#include "platform/windows.h"

namespace kelvane::output {

class SettingsWindow : public controls::Form {
public:
    // `windows` outlives the window.
    SettingsWindow(platform::Windows& windows, const PageSettings& settings);

    controls::ComboBox cboPaper;
    controls::ComboBox cboOrientation;
    controls::EditBox txtLeft;
    controls::EditBox txtTop;
    controls::EditBox txtRight;
    controls::EditBox txtBottom;
    controls::EditBox txtTitleSize;
    controls::EditBox txtHeadSize;
    controls::EditBox txtBodySize;
    controls::ComboBox cboRepeatHead;
    controls::ComboBox cboFitWidth;
    controls::Button cmdOK;
    controls::Button cmdCancel;

    // The settings that the operator agreed to; nothing when the window was left otherwise.
    const std::optional<PageSettings>& Accepted() const { return mAccepted; }

protected:
    void Form_Load() override;
    void Form_Resize() override;

private:
    // A field with its caption. A number is shown in whole millimetres or points with at most one
    // decimal.
    struct NumberRow {
        const char* caption;
        controls::EditBox* box;
        int PageSettings::*value;
        bool (*isWithin)(int);
        const char* refusal;
    };
    struct ChoiceRow {
        const char* caption;
        controls::ComboBox* box;
        bool PageSettings::*value;
        const char* no;
        const char* yes;
    };

    void AddRow(const char* caption, controls::Control& field);
    void Accept();
    void Refuse(const char* text, controls::Control& field);
    bool TakeChoices(PageSettings& settings);
    bool TakeNumbers(PageSettings& settings);

    platform::Windows& mWindows;
    PageSettings mSettings;
    std::optional<PageSettings> mAccepted;
    std::deque<controls::Label> mCaptions;
    std::vector<controls::Control*> mFields;
    std::vector<NumberRow> mNumbers;
    std::vector<ChoiceRow> mChoices;
};

}  // namespace kelvane::output
