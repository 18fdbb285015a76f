// The window's commands: toolbar, hot keys, the detail button, resizing and closing.
#include <algorithm>
#include <array>

#include "controls/grid_size_actions.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "ui/common/grid_actions.h"
#include "ui/common/opening_budget.h"
#include "ui/common/print_setup.h"
#include "ui/common/questions.h"
#include "ui/common/toolbar_table.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using controls::ToolbarButton;
using platform::kCtrl;
using platform::Key;

namespace {

constexpr int kMinWidth = 9195;
constexpr int kMinHeight = 6190;
constexpr int kToolbarHeight = 630;
constexpr int kTitleHeight = 450;

// Keys besides Delete that may take text away in an open cell: of the letters with Ctrl only those
// that select and copy do not.
bool MayTakeTextAway(Key key, int shift) {
    constexpr Key kSelectAll = Key::A;
    constexpr Key kCopy = platform::KeyOfCharacter(U'C');
    const bool isCommand = (shift & kCtrl) != 0 && key >= Key::A && key <= Key::Z;
    return key == Key::Backspace || (key == Key::Insert && shift == platform::kShift) ||
           (isCommand && key != kSelectAll && key != kCopy);
}

}  // namespace

// One toolbar command: whether its keystroke needs an enabled button, whether it is ignored while a
// cell is open, whether what it needs is there, and what it runs.
struct frmPeriodItem::Command {
    ToolbarEntry entry;
    bool strokeNeedsEnabled = false;
    bool ignoredWhileEditing = false;
    bool (*isThere)() = [] { return true; };
    void (*run)(frmPeriodItem&) = nullptr;
};

std::span<const frmPeriodItem::Command> frmPeriodItem::Commands() {
    static constexpr bool kWithCtrl = true;
    static constexpr bool kNotInMenu = false;
    static constexpr std::array kCommands{
        Command{.entry = {"Print", "打印", "Print", kPicturePrint, {Key::P, kWithCtrl}},
                .ignoredWhileEditing = true,
                .isThere = CanPrint,
                .run = [](frmPeriodItem& form) { form.PrintList(); }},
        Command{.entry = {"PreView", "预览", "Preview", kPicturePreview},
                .isThere = CanPrint,
                .run = [](frmPeriodItem& form) { form.PreviewList(); }},
        Command{.entry = {"DataOut", "输出", "Output", kPictureOutput},
                .ignoredWhileEditing = true,
                .isThere = CanPrint,
                .run = [](frmPeriodItem& form) { form.ExportList(); }},
        Command{},
        Command{.entry = {"Add", "增加", "Addnew", kPictureAddnew, {Key::I, kWithCtrl}},
                .strokeNeedsEnabled = true,
                .ignoredWhileEditing = true,
                .run = [](frmPeriodItem& form) { form.AddEntryRow(); }},
        Command{.entry = {"Delete", "删除", "Delete", kPictureDelete, {Key::D, kWithCtrl}},
                .strokeNeedsEnabled = true,
                .ignoredWhileEditing = true,
                .run =
                    [](frmPeriodItem& form) {
                        const int row = form.GridPeriodItem.Row();
                        // Separators are counted too: the sixth is "Delete" itself.
                        if (!form.Toolbar1.Buttons()[5].Enabled()) return;
                        if (row < 1 || form.GridPeriodItem.RowData(row) == 0) return;
                        if (form.CheckRowDeletable(row)) form.DeleteRow();
                    }},
        Command{},
        Command{.entry = {"Find", "定位", "Find", kPictureFind, {Key::F3}},
                .run = [](frmPeriodItem& form) { form.FindEntry(); }},
        Command{},
        Command{.entry = {"Help", "帮助", "Help", kPictureHelp, {}, kNotInMenu},
                .run = [](frmPeriodItem&) { data::gServices->windows->SendKeys("{f1}"); }},
        Command{.entry = {"Exit", "退出", "Quit", kPictureQuit, {Key::F4, kWithCtrl}, kNotInMenu},
                .ignoredWhileEditing = true,
                .run = [](frmPeriodItem& form) { form.Unload(); }},
    };
    return kCommands;
}

frmPeriodItem& GetPeriodItemForm() {
    static frmPeriodItem form;
    return form;
}

frmPeriodItem::frmPeriodItem()
    : ToolbarForm("frmPeriodItem"),
      Picture1(*this, "Picture1"),
      CapLable(*this, "CapLable"),
      GridPeriodItem(*this, "GridPeriodItem"),
      cmdRef(*this, "cmdRef"),
      mFailureNotice([this](const std::string& text) { SetNotice(text); }) {
    SetCaption(std::string(kTitle));
    SetSize(14400, 8700);
    SetMinSize(kMinWidth, kMinHeight);
    AddToolbarButtons(Toolbar1, Commands());
    Toolbar1.SetHeight(kToolbarHeight);
    CTBCtrl1.SetHeight(kToolbarHeight);
    Picture1.SetHeight(kTitleHeight);
    CapLable.SetCaption(std::string(kTitle));
    CapLable.SetTitle(true);
    cmdRef.SetSpokenName("参照");
    CapLable.SetWidth(2400);
    CapLable.SetHeight(360);
    cmdRef.SetVisible(false);
    cmdRef.SetStroke({Key::Enter, kCtrl});
    cmdRef.Click = [this] { cmdRef_Click(); };
    // Not in the table of commands: the windows open the help at the key, not at its release.
    Toolbar1.Button("Help")->SetStroke({Key::F1});
    GridPeriodItem.SetOpensWithF2(false);
    WireGrid();
    AddGridActions(*this, GridPeriodItem);
    AddCopyActions();
    OfferWaysBack();
    AddFindActions();
    AddViewActions();
    AddImportActions();
    AddCheckActions();
    controls::AddGridSizeActions(*this, GridPeriodItem);
    AddToolbarActions(*this, Commands());
    gCurrentEntry = [this] { return BudgetedEntryOf(GridPeriodItem.Row()); };
    data::gTrapListener = [this](std::string_view place) { mFailureNotice.Failed(place); };
}

frmPeriodItem::~frmPeriodItem() {
    gCurrentEntry = {};
    data::gTrapListener = {};
}

void frmPeriodItem::ShowButtonImages() {
    ShowToolbarImages(Toolbar1, Commands());
}

void frmPeriodItem::DisableMissingCommands() {
    for (ToolbarButton& button : Toolbar1.Buttons()) {
        const Command* command = FindToolbarCommand(Commands(), button.Key());
        if (command != nullptr && !command->isThere()) button.SetEnabled(false);
    }
    const bool hasLists = static_cast<bool>(data::gServices->createReferenceList);
    for (const int col : {kCenterColumn, kItemColumn, kElementColumn}) {
        GridPeriodItem.SetColumnReference(col, hasLists);
    }
}

void frmPeriodItem::Toolbar1_ButtonClick(ToolbarButton& button) {
    const Command* command = FindToolbarCommand(Commands(), button.Key());
    if (command != nullptr) {
        if (command->ignoredWhileEditing && GridPeriodItem.EditState() == 1) return;
        // What a command leaves the operator with is in the list.
        if (mSearchStrip && mSearchStrip->HasKeyboard()) mSearchStrip->Close();
        if (command->isThere()) command->run(*this);
        if (command->entry.key == "Exit") return;
    }
    CTBCtrl1.Refresh();
}

void frmPeriodItem::ClickButton(std::string_view key) {
    if (ToolbarButton* button = Toolbar1.Button(key)) Toolbar1_ButtonClick(*button);
}

void frmPeriodItem::Form_KeyUp(Key& key, int shift) {
    const auto commands = Commands();
    const auto command =
        std::find_if(commands.begin(), commands.end(), [&](const Command& candidate) {
            const ToolbarStroke& stroke = candidate.entry.stroke;
            return stroke.key != Key::None && stroke.key == key &&
                   (!stroke.needsCtrl || shift == kCtrl);
        });
    if (command == commands.end()) return;
    const std::string_view button = command->entry.key;
    if (command->strokeNeedsEnabled && !Toolbar1.Button(button)->Enabled()) return;
    ClickButton(button);
}

std::vector<controls::KeyLine> frmPeriodItem::OwnKeys() const {
    return {{"Ctrl+Enter", "查看锁定的期初值的明细"}};
}

void frmPeriodItem::Form_KeyDown(Key& key, int shift) {
    const controls::Grid& grid = GridPeriodItem;
    if (mSearchStrip && mSearchStrip->TakeKey(key, shift)) {
        key = Key::None;
        return;
    }
    if (key == Key::F1 || ActiveControl() != &grid || grid.Row() < 1) return;
    const int row = grid.Row();
    const int col = grid.Col();
    if (key == Key::Enter && shift == kCtrl && cmdRef.Visible()) {
        key = Key::None;
        cmdRef.Press();
        return;
    }
    if (key == Key::F2 && mSendingOpenKeys) {
        // The F2 that this window sent itself, after a blank. The blank has opened any cell but an
        // amount made of detail lines, which takes no character.
        mSendingOpenKeys = false;
        key = Key::None;
        if (!mEditing && col == kAmountColumn && !grid.ReadOnly()) GridPeriodItem.BeginEdit();
        return;
    }
    if (key == Key::F2 && !mEditing && !grid.IsLocked(row, col)) {
        bool ok = false;
        CheckBeforeEntry(ok);
        if (!ok) return;
        key = Key::None;
        mSendingOpenKeys = true;
        data::gServices->windows->SendKeys(" ");
        data::gServices->windows->SendKeys("{f2}");
        return;
    }
    if (col == kItemColumn && key != Key::F2 && key != Key::Space) {
        key = Key::None;
        return;
    }
    if (col != kAmountColumn || CellText(row, kElementColumn).empty()) return;
    if (ElementDetailFlag(row) == 0) return;
    if (key == Key::Delete) {
        key = Key::None;
    } else if (mEditing && MayTakeTextAway(key, shift)) {
        data::gServices->windows->Beep();
        key = Key::None;
    }
}

void frmPeriodItem::Form_KeyPress(char32_t& character) {
    try {
        if (mSearchStrip && mSearchStrip->HasKeyboard()) return;
        const int row = GridPeriodItem.Row();
        if (GridPeriodItem.Col() != kAmountColumn || row < 1) return;
        if (CellText(row, kElementColumn).empty()) {
            TellElementFirst();
        } else if (ElementDetailFlag(row) != 0) {
            data::gServices->windows->Beep();
            character = 0;
        }
    } catch (...) {
        data::ReportTrapped("Form_KeyPress");
    }
}

void frmPeriodItem::cmdRef_Click() {
    OpenDetails(GridPeriodItem.Row(), true);
    if (ActiveControl() == &cmdRef) GridPeriodItem.SetFocus();
}

void frmPeriodItem::Form_Resize() {
    try {
        if (Width() < kMinWidth || Height() < kMinHeight) {
            SetSize(std::max(Width(), kMinWidth), std::max(Height(), kMinHeight));
            return;
        }
        const platform::Windows& windows = *data::gServices->windows;
        const int pixel = windows.TwipsPerPixelX();
        GridPeriodItem.SetWidth(Width() - 90);
        GridPeriodItem.SetHeight(Height() - Toolbar1.Height() - Picture1.Height() - 500);
        CTBCtrl1.SetWidth(ScaleWidth());
        Toolbar1.SetWidth(ScaleWidth());
        CapLable.SetLeft((ScaleWidth() - CapLable.Width()) / 2);
        Picture1.SetTop(CTBCtrl1.Height() - pixel);
        CapLable.SetTop(Picture1.Top() + (Picture1.Height() - CapLable.Height()) / 2);
        GridPeriodItem.SetTop(Picture1.Top() + Picture1.Height() - pixel);
        Picture1.SetWidth(ScaleWidth());
        PlaceSearchStrip();
        HideDetailButton();
    } catch (...) {
        data::ReportTrapped("Form_Resize");
    }
}

// A row that was changed and not yet left is saved before the window goes; when it cannot be, the
// operator decides.
void frmPeriodItem::Form_QueryUnload(bool& cancel, controls::UnloadMode /*mode*/) {
    const bool cellRefused = GridPeriodItem.FinishEdit() == controls::GridAnswer::Refuse;
    if (!cellRefused && (!GridPeriodItem.RowTouched() || GridPeriodItem.LeaveRow())) return;
    cancel = !AskToLeaveUnsaved();
}

void frmPeriodItem::Form_Unload() {
    GridPeriodItem.CancelEdit();
    mKeptLayout.Keep();
    data::gServices->windows->ShowMessage({
        .text = "如果你修改了项目期初的数据，请重新做分配计算，以免计算结果出现数据错误！",
        .caption = "提示信息",
        .icon = platform::MessageIcon::Exclamation,
    });
}

void frmPeriodItem::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
