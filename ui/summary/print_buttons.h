// PrintButtons: 打印, 预览 and 导出 of a window whose grid goes on paper and into files as it
// stands.
#pragma once

#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "controls/button.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "ui/common/printed_grid.h"

namespace kelvane::ui {

class PrintButtons {
public:
    // `title` says what stands above the table. Form and grid outlive the object.
    PrintButtons(controls::Form& form, const controls::Grid& grid,
                 std::function<std::string()> title);

    controls::Button cmdPrint;
    controls::Button cmdPreview;
    controls::Button cmdExport;

    // As PrintedGrid's.
    void CaptureLayout() { mPrinted.CaptureLayout(); }
    // The buttons as entries of the window's menu, a group of their own.
    void AddActions();
    // They can be pressed when there is something to print and services that do it.
    void Allow(bool hasRows);
    // Side by side (twips); returns where the next one goes.
    int Place(int left, int top);

private:
    bool Prepare();

    controls::Form& mForm;
    std::function<std::string()> mTitle;
    PrintedGrid mPrinted;
    const std::array<controls::Button*, 3> mButtons{&cmdPrint, &cmdPreview, &cmdExport};
};

// The entries of the window's menu that press these buttons; the first one begins a group.
void AddButtonActions(controls::Form& form, std::initializer_list<controls::Button*> buttons);

// What the lower line of such a window says of what failed in `place`: printing, or the reading of
// entries; of anything else that work failed.
std::string_view SentenceOfWork(std::string_view place);

}  // namespace kelvane::ui
