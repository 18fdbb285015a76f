// The editor's toolbar and its commands: adding, deleting, saving, quitting, and what guards
// quitting.
#include <array>
#include <utility>

#include "data/login_context.h"
#include "data/messages.h"
#include "data/number_format.h"
#include "ui/common/grid_actions.h"
#include "ui/common/opening_budget.h"
#include "ui/common/print_setup.h"
#include "ui/common/questions.h"
#include "ui/common/toolbar_table.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {

using controls::GridAnswer;
using platform::Money;
using platform::Value;

// One toolbar command: whether it needs the print services, whether it changes lines, and what it
// runs. The keystrokes are those of SetToolbarButtons.
struct frmQCEdit::Command {
    ToolbarEntry entry;
    bool prints = false;
    bool changesLines = false;
    void (frmQCEdit::*run)() = nullptr;
};

std::span<const frmQCEdit::Command> frmQCEdit::Commands() {
    static constexpr bool kNotInMenu = false;
    static constexpr std::array kCommands{
        Command{.entry = {"Print", "打印", "Print", kPicturePrint},
                .prints = true,
                .run = &frmQCEdit::PrintDetails},
        Command{.entry = {"Preview", "预览", "Preview", kPicturePreview},
                .prints = true,
                .run = &frmQCEdit::PreviewDetails},
        Command{.entry = {"Output", "输出", "Output", kPictureOutput},
                .prints = true,
                .run = &frmQCEdit::ExportDetails},
        Command{},
        Command{.entry = {"Addnew", "增加", "Addnew", kPictureAddnew},
                .changesLines = true,
                .run = &frmQCEdit::AddDetailRow},
        Command{.entry = {"Delete", "删除", "Delete", kPictureDelete},
                .changesLines = true,
                .run = &frmQCEdit::DeleteDetailRow},
        Command{},
        Command{.entry = {"Save", "保存", "Save", kPictureSave},
                .changesLines = true,
                .run = &frmQCEdit::SaveDetails},
        Command{.entry = {"Quit", "退出", "Quit", kPictureQuit, {}, kNotInMenu},
                .run = &frmQCEdit::QuitEditor},
    };
    return kCommands;
}

void frmQCEdit::AddButtons() {
    AddToolbarButtons(Toolbar1, Commands());
    NameToolbarKeys(*this);
    AddGridActions(*this, Grid1);
    AddToolbarActions(*this, Commands());
}

void frmQCEdit::SetupToolbar() {
    ShowToolbarImages(Toolbar1, Commands());
    for (const Command& command : Commands()) {
        if (command.prints) Toolbar1.Button(command.entry.key)->SetEnabled(CanPrint());
    }
}

void frmQCEdit::AllowChanges(bool allowed) {
    for (const Command& command : Commands()) {
        if (command.changesLines) Toolbar1.Button(command.entry.key)->SetEnabled(allowed);
    }
    Grid1.SetReadOnly(!allowed);
}

void frmQCEdit::Toolbar1_ButtonClick(controls::ToolbarButton& button) {
    const Command* command = FindToolbarCommand(Commands(), button.Key());
    if (command != nullptr) (this->*command->run)();
}

void frmQCEdit::Form_KeyDown(platform::Key& key, int shift) {
    SetToolbarButtons(*this, key, shift);
}

void frmQCEdit::DeleteDetailRow() {
    if (Grid1.Rows() <= 1) return;
    if (Grid1.Rows() == 2) {
        data::ShowInformation("期初余额不能为空,只剩一行不能删除", data::kModuleCaption);
        return;
    }
    const int row = Grid1.Row();
    if (row < 1) return;
    AskAndRemove(row, platform::MessageAnswer::Yes);
}

void frmQCEdit::AskAndRemove(int row, platform::MessageAnswer preselected) {
    if (!data::AskQuestion("确实要删除当前行吗?", data::kModuleCaption,
                           platform::MessageIcon::Question, preselected)) {
        return;
    }
    Grid1.RemoveItem(row);
    mHistory.Forget();
}

void frmQCEdit::TakeSnapshot() {
    mSnapshot.clear();
    for (int row = 0; row < Grid1.Rows(); ++row) mSnapshot.push_back(Grid1.RowText(row));
}

// A code is not compared: changing it always rewrites the name, which is.
bool frmQCEdit::HasChanged() const {
    if (static_cast<std::size_t>(Grid1.Rows()) != mSnapshot.size()) return true;
    const auto withoutCode = [](std::string_view line) { return line.substr(line.find('\t')); };
    for (int row = 0; row < Grid1.Rows(); ++row) {
        const std::string line = Grid1.RowText(row);
        if (withoutCode(line) != withoutCode(mSnapshot[static_cast<std::size_t>(row)])) return true;
    }
    return false;
}

void frmQCEdit::SaveDetails() {
    if (Grid1.FinishEdit() == GridAnswer::Refuse) return;
    if (!HasChanged()) {
        Unload();
        return;
    }
    std::vector<entries::DetailLine> lines;
    std::vector<std::string> texts;
    for (int row = 1; row < Grid1.Rows(); ++row) {
        lines.push_back(entries::LineOf(TextsOf(row)));
        texts.push_back(Grid1.RowText(row));
    }
    const Money total = entries::TotalOf(lines);
    if (!CheckOpeningBudget(total, mRefusal)) {
        if (Grid1.Row() > 0) Grid1.MarkRefused(Grid1.Row(), controls::Grid::kWholeRow);
        return;
    }

    mColTempValues = std::move(texts);
    RetValue = total.IsZero() ? "" : data::DisplayOfMoney(total);
    RetStrSql = entries::ReplacementOf(lines);
    Unload();
}

// What was typed into an open cell counts as a change, also a text that is refused: it would be
// lost.
bool frmQCEdit::MayLoseChanges() {
    const bool refused = Grid1.FinishEdit() == GridAnswer::Refuse;
    return (!refused && !HasChanged()) || AskToLeaveUnsaved();
}

void frmQCEdit::QuitEditor() {
    if (MayLoseChanges()) Unload();
}

void frmQCEdit::Form_QueryUnload(bool& cancel, controls::UnloadMode mode) {
    if (mode == controls::UnloadMode::CloseBox && !MayLoseChanges()) cancel = true;
}

void frmQCEdit::Form_Unload() {
    Grid1.CancelEdit();
    mKeptLayout.Keep();
    data::gTrapListener = std::exchange(mOuterTrapListener, nullptr);
}

}  // namespace kelvane::ui
