// A small window with every kind of control, and a session that runs a script on it.
#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "adapters/drive/script_operator.h"
#include "adapters/headless/headless_windows.h"
#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/picture.h"
#include "controls/toolbar.h"
#include "controls/toolbar_style_control.h"

namespace kelvane::headless {

// A dialog with one field; it hands its text back by closing.
class SampleDialog : public controls::Form {
public:
    SampleDialog() : Form("dlgSample") {
        ok.Click = [this] { Unload(); };
        list.DropDown = [this] {
            list.Clear();
            list.AddItem("甲");
            list.AddItem("乙");
        };
    }
    controls::EditBox field{*this, "TxtCode"};
    controls::ComboBox list{*this, "ComKey1"};
    controls::Button ok{*this, "CmdOK"};
};

class SampleWindow : public controls::Form {
public:
    explicit SampleWindow(platform::Windows& windows) : Form("frmSample"), mWindows(windows) {
        SetCaption("样本");
        title.SetCaption("期初");
        toolbar.AddButton("Add", "增加");
        toolbar.AddSeparator();
        toolbar.AddButton("Ask", "询问");
        toolbar.AddButton("Exit", "退出");
        toolbar.ButtonClick = [this](controls::ToolbarButton& button) { Run(button.Key()); };
        styled.ButtonClick = [this](const std::string& key, const std::string&) { Run(key); };
        styled.SetVisible(false);
        detail.SetVisible(false);
        detail.Click = [this] { dialog.field.SetText(""), mWindows.ShowModal(dialog); };
        BuildGrid();
    }

    controls::Toolbar toolbar{*this, "Toolbar1"};
    controls::ToolbarStyleControl styled{*this, "CTBCtrl1"};
    controls::Picture strip{*this, "Picture1"};
    controls::Label title{*this, "CapLable"};
    controls::Grid grid{*this, "GridSample"};
    controls::Button detail{*this, "cmdRef"};
    SampleDialog dialog;
    bool vetoClosing = false;

protected:
    void Form_Activate() override { Say("activated", platform::MessageIcon::None); }
    void Form_QueryUnload(bool& cancel, controls::UnloadMode mode) override {
        cancel = vetoClosing && mode == controls::UnloadMode::CloseBox;
    }
    void Form_Unload() override { Say("再见", platform::MessageIcon::Exclamation); }
    void Form_KeyUp(platform::Key& key, int shift) override {
        if (key == platform::Key::P && shift == platform::kCtrl) Say("printed");
        if (key == platform::Key::F3) mWindows.SendKeys(" {f2}x");
    }
    void Form_KeyDown(platform::Key& key, int /*shift*/) override {
        if (key == platform::Key::F9) throw std::runtime_error("trapped, not seen");
    }

private:
    void BuildGrid() {
        grid.SetCols(4);
        grid.SetRows(1);
        for (const char* row : {"\t2004-01-01\tE01\t1.00", "\t2004-01-02\tE02\t2.00"}) {
            const int added = grid.AddItem(row);
            grid.SetRowData(added, added * 10);
        }
        grid.SetText(0, 1, "日期");
        grid.SetCellColor(2, 2, grid.LockedColor());
        grid.SetColumnInput(3, {.kind = controls::InputKind::Number, .maxLength = 6});
        grid.SetColumnReference(2, true);
        grid.SetColumnList(1, true);
        grid.CellReference = [this](std::string& value, int, int) {
            mWindows.ShowModal(dialog);
            value = dialog.field.Text();
        };
        grid.CellValidate = [this](std::string& text, controls::GridAnswer& answer, int, int) {
            answer = text == "bad" ? controls::GridAnswer::Refuse : controls::GridAnswer::Accept;
            if (text == "bad") Say("第一行\r\n第二行");
        };
        grid.RowValidate = [this](controls::GridAnswer& answer, int row, int& col) {
            const bool refuse = grid.Text(row, 3).empty();
            answer = refuse ? controls::GridAnswer::Refuse : controls::GridAnswer::Accept;
            if (refuse) col = 3;
        };
        grid.ComboDropDown = [](int, int, controls::GridDropList& list) {
            list.AddItem("2004-02-01");
            list.AddItem("2004-02-02");
        };
    }
    void Run(const std::string& key) {
        if (key == "Add") grid.SetFocus();
        if (key == "Exit") Unload();
        if (key == "Ask") {
            const auto answer = mWindows.ShowMessage(
                {"继续？", "提示", platform::MessageIcon::Question, platform::MessageButtons::YesNo,
                 platform::MessageAnswer::No});
            SetNotice(answer == platform::MessageAnswer::Yes ? "是" : "否");
        }
    }
    void Say(const std::string& text,
             platform::MessageIcon icon = platform::MessageIcon::Information) {
        mWindows.ShowMessage({text, "提示", icon});
    }

    platform::Windows& mWindows;
};

// Runs a script on the sample window and keeps its transcript.
class Session {
public:
    explicit Session(const std::string& script) : mScript(script) {
        person.SetHost({[this](const drive::InitOptions& options) { user = options.user.value(); },
                        [this] { windows.ShowModal(window); },
                        [this](std::string_view keys) { windows.SendKeys(keys); }, &statements});
    }

    // The transcript of the whole script.
    std::string Run() {
        status = person.Run();
        return mTranscript.str();
    }

    std::string user;
    int status = -1;
    drive::StatementLog statements;

private:
    std::istringstream mScript;
    std::ostringstream mTranscript;

public:
    drive::ScriptOperator person{mScript, mTranscript};
    HeadlessWindows windows{person};
    SampleWindow window{windows};
};

}  // namespace kelvane::headless
