#include "ui/summary/print_buttons.h"

#include <algorithm>
#include <utility>

#include "controls/place.h"
#include "ui/common/failure_texts.h"
#include "ui/common/print_setup.h"

namespace kelvane::ui {

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kButtonHeight = 375;
constexpr int kButtonWidth = 1350;

struct FailedWork {
    std::string_view place;
    std::string_view sentence;
};

constexpr std::array kFailedWork{
    FailedWork{"ReadShownEntries", "读取期初时出错。"},
    FailedWork{"WriteToFile", kFileNotWritten},
    FailedWork{"Print", kNotPrinted},
    FailedWork{"ReadStyle", kStyleUnusable},
    FailedWork{"xmlPrt_SaveSettings", kSettingsNotSaved},
};

}  // namespace

PrintButtons::PrintButtons(controls::Form& form, const controls::Grid& grid,
                           std::function<std::string()> title)
    : cmdPrint(form, "cmdPrint"),
      cmdPreview(form, "cmdPreview"),
      cmdExport(form, "cmdExport"),
      mForm(form),
      mTitle(std::move(title)),
      mPrinted(grid, SavePrintSettings) {
    cmdPrint.SetCaption("打印");
    cmdPrint.SetStroke({platform::KeyOfCharacter(U'P'), platform::kCtrl});
    cmdPreview.SetCaption("预览");
    cmdExport.SetCaption("导出");
    cmdPrint.Click = [this] {
        if (Prepare()) mPrinted.Print();
    };
    cmdPreview.Click = [this] {
        if (Prepare()) mPrinted.Preview();
    };
    cmdExport.Click = [this] {
        if (Prepare() && mPrinted.Export()) mForm.SetNotice("");
    };
}

bool PrintButtons::Prepare() {
    return mPrinted.SetUp(mTitle(), AccountHeader(), {});
}

void PrintButtons::AddActions() {
    AddButtonActions(mForm, {&cmdPrint, &cmdPreview, &cmdExport});
}

void PrintButtons::Allow(bool hasRows) {
    for (controls::Button* button : mButtons) button->SetEnabled(hasRows && CanPrint());
}

int PrintButtons::Place(int left, int top) {
    for (controls::Button* button : mButtons) {
        PlaceControl(*button, left, top, kButtonWidth, kButtonHeight);
        left += kButtonWidth + kMargin;
    }
    return left;
}

void AddButtonActions(controls::Form& form, std::initializer_list<controls::Button*> buttons) {
    bool startsGroup = true;
    for (controls::Button* button : buttons) {
        // Enter is not always the default button's.
        form.AddAction({.stroke = button->IsDefault() ? platform::KeyStroke{} : button->Stroke(),
                        .caption = button->Caption(),
                        .inMenu = true,
                        .startsGroup = std::exchange(startsGroup, false),
                        .possible = [button] { return button->Enabled(); },
                        .run = [button] { button->Press(); }});
    }
}

std::string_view SentenceOfWork(std::string_view place) {
    const auto* known = std::ranges::find(kFailedWork, place, &FailedWork::place);
    return known == kFailedWork.end() ? kWorkFailed : known->sentence;
}

}  // namespace kelvane::ui
