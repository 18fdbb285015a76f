// What the operator can do in the window beside its buttons: the keys and the context menu.
#include "data/login_context.h"
#include "ui/common/copied_table.h"
#include "ui/import/import_window.h"

namespace kelvane::ui {

using platform::kCtrl;
using platform::Key;
using platform::KeyOfCharacter;
using platform::kShift;

void frmImport::AddActions() {
    const auto notEditing = [this] { return !GridRows.IsEditing() && !GridLines.IsEditing(); };
    const auto hasErrors = [this] { return mSheet.RefusedRows() > 0; };
    AddAction({.stroke = {Key::F8},
               .caption = "下一处错误",
               .inMenu = true,
               .startsGroup = true,
               .possible = hasErrors,
               .run = [this] { GoToError(1); }});
    AddAction({.stroke = {Key::F8, kShift},
               .caption = "上一处错误",
               .inMenu = true,
               .possible = hasErrors,
               .run = [this] { GoToError(-1); }});
    AddAction({.stroke = {KeyOfCharacter(U'L'), kCtrl},
               .caption = "只看有错的行、看所有的行",
               .inMenu = true,
               .possible = notEditing,
               .run = [this] { cmdErrors.Press(); }});
    AddAction(
        {.caption = cmdColumns.Caption(), .inMenu = true, .possible = notEditing, .run = [this] {
             AssignColumns();
         }});
    AddAction({.stroke = {KeyOfCharacter(U'V'), kCtrl},
               .caption = "粘贴为新行",
               .inMenu = true,
               .startsGroup = true,
               .possible =
                   [notEditing] {
                       return notEditing() &&
                              IsCopiedTable(data::gServices->windows->ClipboardText());
                   },
               .run = [this] { PasteRows(); }});
    AddAction(
        {.stroke = {KeyOfCharacter(U'I'), kCtrl},
         .caption = "增加一行明细",
         .inMenu = true,
         .possible =
             [this, notEditing] { return notEditing() && CurrentEntry() != ImportSheet::kNoEntry; },
         .run = [this] { AddLine(); }});
    AddAction({.stroke = {KeyOfCharacter(U'D'), kCtrl},
               .caption = "不导入此行",
               .inMenu = true,
               .possible =
                   [this, notEditing] {
                       const bool inLines = ActiveControl() == &GridLines;
                       return notEditing() && (inLines ? GridLines.Row() > 0
                                                       : CurrentEntry() != ImportSheet::kNoEntry);
                   },
               .run = [this] { RemoveRow(); }});
    AddAction({.stroke = {Key::F6},
               .caption = "到明细、回到期初",
               .possible = [this] { return GridLines.Visible() && GridLines.Rows() > 1; },
               .run =
                   [this] {
                       if (!FinishEdits()) return;
                       const bool toLines = ActiveControl() != &GridLines;
                       if (toLines && GridLines.Row() == 0) GridLines.MoveTo(1, 1);
                       (toLines ? GridLines : GridRows).SetFocus();
                   }});
    AddAction({.stroke = {Key::Enter, kCtrl},
               .caption = cmdImport.Caption(),
               .inMenu = true,
               .startsGroup = true,
               .possible = [this] { return cmdImport.Enabled(); },
               .run = [this] { Enter(); }});
}

}  // namespace kelvane::ui
