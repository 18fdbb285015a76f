#include "controls/form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/page_view.h"
#include "controls/picture.h"
#include "controls/toolbar_style_control.h"

namespace kelvane::controls {
namespace {

using platform::Key;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

// Notes its events, and does what it is told in them.
class EventForm : public Form {
public:
    EventForm() : Form("frmEvents") {}

    std::vector<std::string> events;
    bool cancelUnload = false;
    bool throwing = false;
    Key replaceKey = Key::None;
    bool dropsKeys = false;

protected:
    void Form_Load() override {
        Note("load");
        if (throwing) throw std::runtime_error("no account");
    }
    void Form_Activate() override { Note("activate"); }
    void Form_Resize() override { Note("resize"); }
    void Form_QueryUnload(bool& cancel, UnloadMode mode) override {
        Note(mode == UnloadMode::CloseBox ? "query close box" : "query code");
        cancel = cancelUnload;
        EXPECT_FALSE(Unload()) << "a form is unloaded once at a time";
    }
    void Form_Unload() override { Note("unload"); }
    void Form_KeyDown(Key& key, int shift) override {
        Note("down " + std::to_string(static_cast<int>(key)) + " " + std::to_string(shift));
        if (dropsKeys) key = Key::None;
        if (replaceKey != Key::None) key = replaceKey;
    }
    void Form_KeyPress(char32_t& character) override {
        Note("press");
        if (dropsKeys) character = 0;
    }
    void Form_KeyUp(Key& key, int /*shift*/) override {
        Note("up");
        if (dropsKeys) key = Key::None;
    }
    void Trapped(std::string_view place, std::string_view detail) noexcept override {
        Note("trapped " + std::string(place) + ": " + std::string(detail));
    }

private:
    void Note(const std::string& event) { events.push_back(event); }
};

TEST(FormLife, LoadingRunsLoadAndThenResizeOnce) {
    EventForm form;
    form.Load();
    form.Load();
    form.Activate();
    EXPECT_THAT(form.events, ElementsAre("load", "resize", "activate"));
    EXPECT_TRUE(form.IsLoaded());
}

TEST(FormLife, UnloadingAsksFirst) {
    EventForm form;
    EXPECT_FALSE(form.Unload());
    form.Load();
    form.events.clear();
    form.cancelUnload = true;
    EXPECT_FALSE(form.Unload(UnloadMode::CloseBox));
    EXPECT_TRUE(form.IsLoaded());
    form.cancelUnload = false;
    EXPECT_TRUE(form.Unload());
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_THAT(form.events, ElementsAre("query close box", "query code", "unload"));
    form.Load();
    EXPECT_TRUE(form.IsLoaded());
}

TEST(FormLife, AnExceptionIsTrappedAndGoesNoFurther) {
    EventForm form;
    form.throwing = true;
    form.Load();
    EXPECT_THAT(form.events, ElementsAre("load", "trapped Form_Load: no account", "resize"));
    form.events.clear();
    form.RunEvent("Place", [] { throw 5; });
    EXPECT_THAT(form.events, ElementsAre("trapped Place: unknown error"));
}

TEST(FormLife, ALoadedFormHasAnActiveControl) {
    EventForm form;
    Label label(form, "Label");
    EditBox hidden(form, "Hidden");
    EditBox first(form, "First");
    EditBox second(form, "Second");
    hidden.SetVisible(false);
    form.Load();
    EXPECT_EQ(form.ActiveControl(), &first);
}

TEST(FormLife, AFormOpenedAgainBeginsAtItsFirstControl) {
    EventForm form;
    EditBox first(form, "First");
    EditBox second(form, "Second");
    form.Load();
    second.SetFocus();
    form.Unload();
    form.Load();
    EXPECT_EQ(form.ActiveControl(), &first);
}

TEST(FormSize, ResizeRunsWhenTheSizeChanges) {
    EventForm form;
    form.SetSize(9195, 6190);
    EXPECT_THAT(form.events, IsEmpty());
    form.SetSize(10000, 7000);
    EXPECT_THAT(form.events, ElementsAre("resize"));
    EXPECT_EQ(form.ScaleWidth(), 10000 - Form::kFrameWidth);
    EXPECT_EQ(form.ScaleHeight(), 7000 - Form::kFrameHeight);
}

TEST(FormControls, AreKnownByNameInTheOrderTheyJoined) {
    EventForm form;
    EditBox one(form, "One");
    EditBox two(form, "Two");
    EXPECT_THAT(form.Controls(), ElementsAre(&one, &two));
    EXPECT_EQ(form.Find("Two"), &two);
    EXPECT_EQ(form.Find("two"), nullptr);
    EXPECT_EQ(&one.Owner(), &form);
}

TEST(FormControls, AMovedFocusIsTold) {
    EventForm form;
    EditBox one(form, "One");
    std::vector<std::string> moved;
    form.FocusMoved = [&](Control& control) { moved.push_back(control.Name()); };
    one.SetFocus();
    EXPECT_EQ(form.ActiveControl(), &one);
    EXPECT_THAT(moved, ElementsAre("One"));
}

TEST(FormControls, EveryChangeThatCanBeSeenIsTold) {
    EventForm form;
    Label label(form, "Label");
    int changes = 0;
    form.ViewChanged = [&] { ++changes; };
    const auto revision = form.Revision();
    label.SetCaption("期初");
    label.SetCaption("期初");
    label.SetLeft(15);
    form.SetNotice("保存失败");
    form.SetNotice("保存失败");
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(form.Revision(), revision + 3);
    EXPECT_EQ(form.Notice(), "保存失败");
}

TEST(FormKeys, TheFormSeesKeysBeforeItsActiveControl) {
    EventForm form;
    EditBox box(form, "Box");
    form.Load();
    form.events.clear();
    EXPECT_FALSE(form.KeyDown(Key::A, platform::kShift));
    EXPECT_TRUE(form.KeyPress(U'A'));
    EXPECT_FALSE(form.KeyUp(Key::A, 0));
    EXPECT_THAT(form.events, ElementsAre("down 65 1", "press", "up"));
    EXPECT_EQ(box.Text(), "A");
}

TEST(FormKeys, WhatTheFormDropsDoesNotReachTheControl) {
    EventForm form;
    EditBox box(form, "Box");
    box.SetText("x");
    form.Load();
    form.dropsKeys = true;
    EXPECT_TRUE(form.KeyDown(Key::Backspace, 0));
    EXPECT_TRUE(form.KeyPress(U'A'));
    EXPECT_TRUE(form.KeyUp(Key::A, 0));
    EXPECT_EQ(box.Text(), "x");
}

TEST(FormKeys, AReplacedKeyIsTheOneTheControlSees) {
    EventForm form;
    EditBox box(form, "Box");
    box.SetText("xy");
    form.Load();
    form.replaceKey = Key::Backspace;
    EXPECT_TRUE(form.KeyDown(Key::F9, 0));
    EXPECT_EQ(box.Text(), "x");
}

TEST(FormKeys, AFormWithoutAnActiveControlUsesNoKey) {
    EventForm form;
    form.Load();
    EXPECT_FALSE(form.KeyDown(Key::A, 0));
    EXPECT_FALSE(form.KeyPress(U'A'));
}

TEST(Form, AKeyRunsTheActionThatIsPossibleBeforeTheFormSeesIt) {
    EventForm form;
    std::string ran;
    bool possible = true;
    form.AddAction({.stroke = {Key::Z, platform::kCtrl},
                    .caption = "first",
                    .possible = [&] { return possible; },
                    .run = [&] { ran += "1"; }});
    form.AddAction({.stroke = {Key::Z, platform::kCtrl | platform::kShift},
                    .caption = "other",
                    .run = [&] { ran += "2"; }});
    EXPECT_TRUE(form.KeyDown(Key::Z, platform::kCtrl));
    EXPECT_EQ(ran, "1");
    EXPECT_THAT(form.events, IsEmpty());
    possible = false;
    EXPECT_FALSE(form.KeyDown(Key::Z, platform::kCtrl));
    EXPECT_EQ(ran, "1");
    EXPECT_THAT(form.events, Not(IsEmpty()));
    EXPECT_TRUE(form.KeyDown(Key::Z, platform::kCtrl | platform::kShift));
    EXPECT_EQ(ran, "12");
    EXPECT_EQ(form.Actions().size(), 2U);
}

TEST(Form, AnActionThatThrowsIsTrapped) {
    EventForm form;
    form.AddAction({.stroke = {Key::Z, platform::kCtrl}, .caption = "fails", .run = [] {
                        throw std::runtime_error("broken");
                    }});
    EXPECT_TRUE(form.KeyDown(Key::Z, platform::kCtrl));
    EXPECT_THAT(form.events, ElementsAre("trapped Action: broken"));
}

// Notes which control it was handed, and as what.
class NotingVisitor : public ControlVisitor {
public:
    std::vector<std::string> seen;
    void Visit(Button& it) override { seen.push_back("button " + it.Name()); }
    void Visit(ComboBox& it) override { seen.push_back("combo box " + it.Name()); }
    void Visit(EditBox& it) override { seen.push_back("edit box " + it.Name()); }
    void Visit(Grid& it) override { seen.push_back("grid " + it.Name()); }
    void Visit(Label& it) override { seen.push_back("label " + it.Name()); }
    void Visit(PageView& it) override { seen.push_back("pages " + it.Name()); }
    void Visit(Picture& it) override { seen.push_back("picture " + it.Name()); }
    void Visit(Toolbar& it) override { seen.push_back("toolbar " + it.Name()); }
    void Visit(ToolbarStyleControl& it) override { seen.push_back("toolbar style " + it.Name()); }
};

TEST(Form, HandsEachControlOverAsWhatItIs) {
    EventForm form;
    const Button button(form, "a");
    const ComboBox combo(form, "b");
    const EditBox edit(form, "c");
    const Grid grid(form, "d");
    const Label label(form, "e");
    const PageView pages(form, "f");
    const Picture picture(form, "g");
    const Toolbar toolbar(form, "h");
    const ToolbarStyleControl style(form, "i");
    platform::Window& window = form;
    NotingVisitor visitor;
    for (Control* control : window.AsForm().Controls()) control->Accept(visitor);
    EXPECT_THAT(visitor.seen,
                ElementsAre("button a", "combo box b", "edit box c", "grid d", "label e", "pages f",
                            "picture g", "toolbar h", "toolbar style i"));
    EXPECT_EQ(form.AsPickWindow(), nullptr);
}

}  // namespace
}  // namespace kelvane::controls
