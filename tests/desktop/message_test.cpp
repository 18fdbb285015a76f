// Message boxes, alone and over a window.
#include <gtest/gtest.h>

#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

namespace {

using platform::Message;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

constexpr const char* kCaption = "提示信息";

MessageAnswer AskPerson(const Message& message, const std::vector<std::string>& keys) {
    Person person([&](Person& self) {
        self.SeeWindow(message.caption);
        self.Keys(keys);
    });
    return Windows().ShowMessage(message);
}

Message Question(MessageAnswer preselected) {
    return {"确实要删除当前记录吗？", kCaption, MessageIcon::Question, MessageButtons::YesNo,
            preselected};
}

}  // namespace

TEST(DesktopMessage, EnterPressesThePreselectedButton) {
    EXPECT_EQ(AskPerson(Question(MessageAnswer::Yes), {"Return"}), MessageAnswer::Yes);
    EXPECT_EQ(AskPerson(Question(MessageAnswer::No), {"Return"}), MessageAnswer::No);
    const Message message{
        "项目不能为空！", kCaption, MessageIcon::Information, MessageButtons::Ok, {}};
    EXPECT_EQ(AskPerson(message, {"Return"}), MessageAnswer::Ok);
}

TEST(DesktopMessage, DismissingAnswersNo) {
    EXPECT_EQ(AskPerson(Question(MessageAnswer::Yes), {"Escape"}), MessageAnswer::No);
    const Message message{
        "项目不能为空！", kCaption, MessageIcon::Exclamation, MessageButtons::Ok, {}};
    EXPECT_EQ(AskPerson(message, {"Escape"}), MessageAnswer::Ok);
}

TEST(DesktopMessage, LettersAndTabReachTheButtons) {
    EXPECT_EQ(AskPerson(Question(MessageAnswer::Yes), {"n"}), MessageAnswer::No);
    EXPECT_EQ(AskPerson(Question(MessageAnswer::No), {"y"}), MessageAnswer::Yes);
    EXPECT_EQ(AskPerson(Question(MessageAnswer::Yes), {"Tab", "space"}), MessageAnswer::No);
}

TEST(DesktopMessage, GivesTheKeyboardBackToTheOpenCell) {
    ListForm form;
    form.grid.CellValidate = [&](std::string&, controls::GridAnswer& answer, int, int) {
        Windows().ShowMessage(
            {"责任中心不存在！", kCaption, MessageIcon::Exclamation, MessageButtons::Ok, {}});
        answer = controls::GridAnswer::Refuse;
    };
    ShowTo(form, [&](Person& person) {
        person.Keys({"Right"});
        person.Type("77");
        person.See("typed", [&] { return form.grid.EditText() == "77"; });
        person.Keys({"Return"});
        person.SeeWindow(kCaption);
        person.Keys({"Return"});
        person.SeeWindow("项目期初");
        person.Type("8");
        person.See("typed over", [&] { return form.grid.EditText() == "8"; });
        person.Keys({"Escape"});
        person.See("closed", [&] { return !form.grid.IsEditing(); });
    });
}

TEST(DesktopMessage, InAnUnloadKeepsTheWindowUntilItIsAnswered) {
    class ReminderForm : public ListForm {
    protected:
        void Form_Unload() override {
            Windows().ShowMessage(
                {"请重新做分配计算！", kCaption, MessageIcon::Exclamation, MessageButtons::Ok, {}});
        }
    };
    ReminderForm form;
    ShowTo(form, [&](Person& person) {
        person.Keys({"alt+F4"});
        person.SeeWindow(kCaption);
        EXPECT_TRUE(person.Look([&] { return form.IsLoaded(); }));
        person.Keys({"Return"});
        person.See("unloaded", [&] { return !form.IsLoaded(); });
    });
}

}  // namespace kelvane::test
