#include "ui/common/toolbar_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "controls/form.h"

namespace kelvane::ui {
namespace {

using testing::ElementsAre;

struct Command {
    ToolbarEntry entry;
    int number = 0;
};

constexpr std::array kCommands{
    Command{{"Print", "打印", "Printer", 100}, 1},
    Command{},
    Command{{"Exit", "退出", "Quit", 107}, 2},
};

class ToolbarTableTest : public testing::Test {
protected:
    ToolbarTableTest() { AddToolbarButtons(toolbar, kCommands); }

    controls::Form form{"frmSample"};
    controls::Toolbar toolbar{form, "Toolbar1"};
};

TEST_F(ToolbarTableTest, ButtonsStandInTheTablesOrder) {
    std::vector<std::string> buttons;
    for (const controls::ToolbarButton& button : toolbar.Buttons()) {
        buttons.push_back(button.IsSeparator() ? "-" : button.Key() + " " + button.Caption());
    }
    EXPECT_THAT(buttons, ElementsAre("Print 打印", "-", "Exit 退出"));
}

TEST_F(ToolbarTableTest, ImagesAreLoadedAnewEachTime) {
    for (int time = 0; time < 2; ++time) {
        ShowToolbarImages(toolbar, kCommands);
        std::vector<std::string> images;
        for (const controls::ToolbarImage& image : toolbar.Images()) {
            images.push_back(image.key + " " + std::to_string(image.picture));
        }
        EXPECT_THAT(images, ElementsAre("Printer 100", "Quit 107"));
        EXPECT_EQ(toolbar.Button("Print")->Image(), "Printer");
        EXPECT_EQ(toolbar.Button("Exit")->Image(), "Quit");
    }
}

TEST_F(ToolbarTableTest, ASeparatorIsNoCommand) {
    EXPECT_EQ(FindToolbarCommand(kCommands, "Exit")->number, 2);
    EXPECT_EQ(FindToolbarCommand(kCommands, "exit"), nullptr);
    EXPECT_EQ(FindToolbarCommand(kCommands, ""), nullptr);
}

}  // namespace
}  // namespace kelvane::ui
