// The scripted operator in front of real windows: what he does, sees and answers, in which order.
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <stdexcept>

#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::test {

namespace {

using Notes = std::vector<std::string>;

class ScriptedOperator : public drive::Operator {
public:
    std::deque<std::function<void(controls::Form&)>> script;
    Notes notes;

    bool Act(controls::Form& topmost) override {
        if (script.empty()) return false;
        const auto deed = script.front();
        script.pop_front();
        deed(topmost);
        return true;
    }
    void Opened(const std::string& window) override { notes.push_back("open " + window); }
    void Closed(const std::string& window) override { notes.push_back("close " + window); }
    void Focused(const std::string& control) override { notes.push_back("focus " + control); }
    void Refused(int row, int column) override {
        notes.push_back("refused " + std::to_string(row) + " " + std::to_string(column));
    }
    void Beeped() override { notes.emplace_back("beep"); }
    void HelpShown(const std::string& path) override { notes.push_back("help " + path); }
    platform::MessageAnswer Answer(const platform::Message& message) override {
        notes.push_back("[" + message.caption + "] " + message.text);
        return message.buttons == platform::MessageButtons::Ok ? platform::MessageAnswer::Ok
                                                               : platform::MessageAnswer::Yes;
    }
    std::optional<std::size_t> Pick(const std::vector<std::string>&,
                                    const std::vector<std::vector<std::string>>&) override {
        return std::nullopt;
    }
    std::optional<std::string> ChooseFile() override { return std::nullopt; }
};

class DesktopOperator : public testing::Test {
protected:
    void SetUp() override { Windows().SetOperator(&mOperator); }
    void TearDown() override { Windows().SetOperator(nullptr); }
    void Do(std::function<void(controls::Form&)> deed) {
        mOperator.script.push_back(std::move(deed));
    }

    ScriptedOperator mOperator;
};

platform::Message Notice(const std::string& text) {
    return {text, "提示信息", platform::MessageIcon::Information, platform::MessageButtons::Ok, {}};
}

}  // namespace

TEST_F(DesktopOperator, ActsAndTheWindowsCloseAfterwards) {
    ListForm form;
    Do([&](controls::Form& top) {
        EXPECT_EQ(&top, &form);
        form.grid.MoveTo(3, 3);
    });
    Do([&](controls::Form&) { form.grid.BeginEdit(); });
    Do([&](controls::Form&) { form.KeyPress(U'x'); });
    Do([&](controls::Form&) { form.grid.FinishEdit(); });
    Windows().ShowModal(form);
    EXPECT_EQ(form.grid.Text(3, 3), "XM3x");
    EXPECT_EQ(mOperator.notes, (Notes{"open frmList", "close frmList"}));
}

TEST_F(DesktopOperator, NestedWindowsRunInsideOneDeed) {
    ListForm list;
    FieldForm fields;
    Do([&](controls::Form&) {
        Windows().ShowModal(fields);
        mOperator.notes.emplace_back("back in the list");
    });
    Do([&](controls::Form& top) {
        EXPECT_EQ(&top, &fields);
        fields.code.SetFocus();
    });
    Do([&](controls::Form&) { fields.ok.Press(); });
    Do([&](controls::Form& top) { EXPECT_EQ(&top, &list); });
    Windows().ShowModal(list);
    EXPECT_EQ(mOperator.notes, (Notes{"open frmList", "open frmFields", "focus TxtCode",
                                      "close frmFields", "back in the list", "close frmList"}));
}

TEST_F(DesktopOperator, OpenWindowsCloseFromTheTopmostDown) {
    ListForm list;
    FieldForm fields;
    Do([&](controls::Form&) { Windows().ShowModal(fields); });
    Windows().ShowModal(list);
    EXPECT_EQ(mOperator.notes,
              (Notes{"open frmList", "open frmFields", "close frmFields", "close frmList"}));
}

TEST_F(DesktopOperator, AnswersMessageBoxes) {
    ListForm form;
    Do([&](controls::Form&) {
        EXPECT_EQ(Windows().ShowMessage(Notice("甲")), platform::MessageAnswer::Ok);
        platform::Message question = Notice("乙？");
        question.buttons = platform::MessageButtons::YesNo;
        question.preselected = platform::MessageAnswer::No;
        EXPECT_EQ(Windows().ShowMessage(question), platform::MessageAnswer::Yes);
    });
    Windows().ShowModal(form);
    EXPECT_EQ(mOperator.notes,
              (Notes{"open frmList", "[提示信息] 甲", "[提示信息] 乙？", "close frmList"}));
}

TEST_F(DesktopOperator, NotesRefusalsBeepsAndHelp) {
    ListForm form;
    const host_test::TemporaryFolder folder;
    host_test::WriteText(folder / "项目管理.chm", "help");
    const std::string help = folder.Path().string() + "\\项目管理.chm";
    Windows().SetHelpFile(help);
    Do([&](controls::Form&) {
        form.grid.MoveTo(1, 4);
        form.grid.BeginEdit();
        Windows().Beep();
        Windows().SendKeys("{f1}");
    });
    Do([](controls::Form&) {});
    Windows().ShowModal(form);
    EXPECT_EQ(mOperator.notes,
              (Notes{"open frmList", "refused 1 4", "beep", "help " + help, "close frmList"}));
}

TEST_F(DesktopOperator, SentKeysGoToTheWindowThatOneOfThemOpens) {
    ListForm list;
    FieldForm fields;
    list.grid.CellReference = [&](std::string&, int, int) { Windows().ShowModal(fields); };
    Do([&](controls::Form&) {
        list.grid.MoveTo(1, 2);
        Windows().SendKeys(" {f2}7{f2}");
        Windows().ShowMessage(Notice("先"));
    });
    Do([&](controls::Form& top) {
        EXPECT_EQ(&top, &fields);
        EXPECT_EQ(fields.code.Text(), "7");
    });
    Windows().ShowModal(list);
    EXPECT_EQ(mOperator.notes, (Notes{"open frmList", "[提示信息] 先", "open frmFields",
                                      "close frmFields", "close frmList"}));
}

TEST_F(DesktopOperator, AFormThatRefusesToCloseIsForced) {
    class NeverForm : public ListForm {
    protected:
        void Form_QueryUnload(bool& cancel, controls::UnloadMode mode) override {
            cancel = mode == controls::UnloadMode::CloseBox;
        }
    };
    NeverForm form;
    Windows().ShowModal(form);
    EXPECT_EQ(mOperator.notes, (Notes{"open frmList", "close frmList"}));
}

TEST_F(DesktopOperator, WhatADeedThrowsComesOutInTheEnd) {
    ListForm form;
    Do([](controls::Form&) { throw std::runtime_error("line 3: unknown command"); });
    Windows().ShowModal(form);
    EXPECT_EQ(mOperator.notes, (Notes{"open frmList", "close frmList"}));
    try {
        Windows().RethrowFailure();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "line 3: unknown command");
    }
}

}  // namespace kelvane::test
