#include "adapters/headless/headless_windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/headless/sample_window.h"

namespace kelvane::headless {
namespace {

using testing::ElementsAre;

// An operator that does nothing and notes everything.
class QuietOperator : public drive::Operator {
public:
    std::vector<std::string> notes;
    std::function<bool(controls::Form&)> act = [](controls::Form&) { return false; };

    bool Act(controls::Form& topmost) override { return act(topmost); }
    void Opened(const std::string& window) override { notes.push_back("open " + window); }
    void Closed(const std::string& window) override { notes.push_back("close " + window); }
    void Focused(const std::string& control) override { notes.push_back("focus " + control); }
    void Refused(int row, int column) override {
        notes.push_back("refused " + std::to_string(row) + " " + std::to_string(column));
    }
    void Beeped() override { notes.emplace_back("beep"); }
    platform::MessageAnswer Answer(const platform::Message& message) override {
        notes.push_back(message.text);
        return platform::MessageAnswer::Ok;
    }
    std::optional<std::size_t> Pick(
        const std::vector<std::string>& /*titles*/,
        const std::vector<std::vector<std::string>>& /*rows*/) override {
        return std::nullopt;
    }
    std::optional<std::string> ChooseFile() override { return std::nullopt; }
};

class LoadingForm : public controls::Form {
public:
    LoadingForm() : Form("Loading") {}
    controls::EditBox box{*this, "Box"};
    bool leaveAtOnce = false;

protected:
    void Form_Load() override {
        box.SetFocus();
        if (leaveAtOnce) Unload();
    }
    void Form_Activate() override { box.SetFocus(); }
};

// Refuses to close however it is asked.
class StubbornForm : public controls::Form {
public:
    StubbornForm() : Form("Stubborn") {}
    int asked = 0;

protected:
    void Form_QueryUnload(bool& cancel, controls::UnloadMode /*mode*/) override {
        ++asked;
        cancel = true;
    }
};

TEST(HeadlessWindows, AWindowIsSeenAfterItsLoadAndBeforeItsActivation) {
    QuietOperator person;
    HeadlessWindows windows(person);
    LoadingForm form;
    windows.ShowModal(form);
    EXPECT_THAT(person.notes, ElementsAre("open Loading", "focus Box", "close Loading"));
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_FALSE(form.FocusMoved);
    EXPECT_FALSE(form.Refused);
}

TEST(HeadlessWindows, AWindowThatUnloadsItselfWhileLoadingIsNeverSeen) {
    QuietOperator person;
    HeadlessWindows windows(person);
    LoadingForm form;
    form.leaveAtOnce = true;
    windows.ShowModal(form);
    EXPECT_TRUE(person.notes.empty());
}

TEST(HeadlessWindows, AWindowThatNeverClosesIsTakenDown) {
    QuietOperator person;
    HeadlessWindows windows(person);
    StubbornForm form;
    windows.ShowModal(form);
    EXPECT_EQ(form.asked, 2);
    EXPECT_THAT(person.notes, ElementsAre("open Stubborn", "close Stubborn"));
}

TEST(HeadlessWindows, OnlyAFormThatIsNotShownCanBeShown) {
    QuietOperator person;
    HeadlessWindows windows(person);
    LoadingForm form;
    person.act = [&](controls::Form&) {
        EXPECT_THROW(windows.ShowModal(form), std::logic_error);
        return false;
    };
    windows.ShowModal(form);
}

TEST(HeadlessWindows, SentKeysGoToTheWindowThatIsTopmostThen) {
    QuietOperator person;
    HeadlessWindows windows(person);
    LoadingForm outer;
    LoadingForm inner;
    person.act = [&](controls::Form& topmost) {
        if (&topmost == &inner) return false;
        if (inner.box.Text().empty()) {
            windows.SendKeys("ab");
            windows.ShowModal(inner);
            return true;
        }
        return false;
    };
    windows.ShowModal(outer);
    EXPECT_EQ(inner.box.Text(), "ab");
    EXPECT_EQ(outer.box.Text(), "");
}

TEST(HeadlessWindows, KeysThatNobodyTookAreForgottenWithTheLastWindow) {
    QuietOperator person;
    HeadlessWindows windows(person);
    LoadingForm form;
    person.act = [&](controls::Form&) {
        windows.SendKeys("x");
        return false;
    };
    windows.ShowModal(form);
    windows.ShowModal(form);
    EXPECT_EQ(form.box.Text(), "");
}

TEST(HeadlessWindows, AGridsOwnBeepIsLeftAlone) {
    QuietOperator person;
    HeadlessWindows windows(person);
    controls::Form form("Form");
    controls::Grid silent(form, "Silent");
    controls::Grid loud(form, "Loud");
    int heard = 0;
    silent.Beep = [&] { ++heard; };
    person.act = [&](controls::Form&) {
        silent.Beep();
        loud.Beep();
        return false;
    };
    windows.ShowModal(form);
    EXPECT_EQ(heard, 1);
    EXPECT_THAT(person.notes, ElementsAre("open Form", "beep", "close Form"));
    EXPECT_TRUE(silent.Beep);
    EXPECT_FALSE(loud.Beep);
}

TEST(HeadlessWindows, TheScreenHasFixedMeasures) {
    QuietOperator person;
    const HeadlessWindows windows(person);
    EXPECT_EQ(windows.TwipsPerPixelX(), 15);
    EXPECT_EQ(windows.TwipsPerPixelY(), 15);
    EXPECT_EQ(windows.ScreenWidth(), 19200);
    EXPECT_EQ(windows.ScreenHeight(), 15360);
}

}  // namespace
}  // namespace kelvane::headless
