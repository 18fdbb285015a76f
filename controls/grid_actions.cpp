#include "controls/grid_actions.h"

#include <array>
#include <utility>

#include "controls/grid_copy.h"

namespace kelvane::controls {

using platform::kCtrl;
using platform::Key;
using platform::kShift;

namespace {

struct SelectingKey {
    Key key;
    int shift;
    const char* caption;
};

constexpr std::array kSelectingKeys{
    SelectingKey{Key::Left, kShift, "选定范围：向左"},
    SelectingKey{Key::Right, kShift, "选定范围：向右"},
    SelectingKey{Key::Up, kShift, "选定范围：向上"},
    SelectingKey{Key::Down, kShift, "选定范围：向下"},
    SelectingKey{Key::PageUp, kShift, "选定范围：向上一页"},
    SelectingKey{Key::PageDown, kShift, "选定范围：向下一页"},
    SelectingKey{Key::Home, kShift, "选定范围：到行首"},
    SelectingKey{Key::End, kShift, "选定范围：到行尾"},
    SelectingKey{Key::Home, kCtrl | kShift, "选定范围：到第一行"},
    SelectingKey{Key::End, kCtrl | kShift, "选定范围：到最后一行"},
};

}  // namespace

void AddGridActions(Form& form, Grid& grid, std::function<platform::Windows&()> windows) {
    const auto copy = [&grid, windows = std::move(windows)](bool withTitles) {
        windows().SetClipboardText(CopiedText(grid, grid.Selected(), withTitles));
    };
    // A grid that takes no keys leaves them to the fields that do.
    const auto stroke = [&grid](Key key, int shift) {
        return grid.TakesFocus() ? platform::KeyStroke{key, shift} : platform::KeyStroke{};
    };
    const auto possible = [&form, &grid] {
        return grid.CanSelect() && (form.ActiveControl() == &grid || !grid.TakesFocus());
    };
    form.AddAction({.stroke = stroke(platform::KeyOfCharacter(U'C'), kCtrl),
                    .caption = "复制",
                    .inMenu = true,
                    .startsGroup = true,
                    .possible = possible,
                    .run = [copy] { copy(false); }});
    form.AddAction(
        {.caption = "复制（带标题）", .inMenu = true, .possible = possible, .run = [copy] {
             copy(true);
         }});
    form.AddAction({.caption = "选定整行",
                    .inMenu = true,
                    .startsGroup = true,
                    .possible = possible,
                    .run = [&grid] { grid.SelectRowsTo(grid.Row()); }});
    form.AddAction({.stroke = stroke(Key::A, kCtrl),
                    .caption = "全选",
                    .inMenu = true,
                    .possible = possible,
                    .run = [&grid] { grid.SelectAll(); }});
    if (!grid.TakesFocus()) return;
    for (const SelectingKey& each : kSelectingKeys) {
        form.AddAction({.stroke = {each.key, each.shift},
                        .caption = each.caption,
                        .possible = possible,
                        .run = [&grid, each] { grid.ExtendSelection(each.key, each.shift); }});
    }
}

}  // namespace kelvane::controls
