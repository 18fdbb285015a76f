#include "ui/common/ways_back.h"

#include <utility>

namespace kelvane::ui {

using platform::Key;
using WayOut = RowHistory::WayOut;

namespace {

constexpr const char* kGoBack = "恢复为更改前的内容";

std::string HelpAgainst(const controls::Grid& grid, const RowHistory& history, RowPlace place,
                        const RowWords& words) {
    if (grid.IsEditing()) return "放弃此单元格的更改";
    if (place.isNew) return "放弃" + std::string(words.newRow);
    if (history.IsInDoubt(place.key)) return {};
    if (history.HasSteps(place.key)) return kGoBack;
    return "后可" + std::string(words.leaveFreely);
}

}  // namespace

void AddWaysBack(controls::Form& form, WaysBack ways) {
    form.AddAction({.stroke = {.key = platform::KeyOfCharacter(U'Z'), .shift = platform::kCtrl},
                    .caption = "撤消上一次更改",
                    .inMenu = true,
                    .startsGroup = true,
                    .possible = std::move(ways.canUndo),
                    .run = std::move(ways.undo)});
    form.AddAction({.stroke = {.key = Key::Escape},
                    .caption = kGoBack,
                    .inMenu = true,
                    .possible = std::move(ways.canGoBack),
                    .run = std::move(ways.goBack)});
}

std::string BackHint(const RowWords& words, std::string_view but) {
    return "已" + std::string(kGoBack) + (but.empty() ? "。" : "，但" + std::string(but)) +
           "再按 Esc 可" + std::string(words.leaveFreely) + "。";
}

std::string WayOutHint(const controls::Grid& grid, const RowHistory& history, RowPlace place,
                       const std::string& refusal, const RowWords& words) {
    if (grid.RefusedCell().row == place.row && !refusal.empty()) {
        const std::string help = HelpAgainst(grid, history, place, words);
        return help.empty() ? refusal : refusal + "   按 Esc " + help + "。";
    }
    switch (history.WayOutOf(place.key)) {
        case WayOut::CheckedAfterReturn:
            return BackHint(words);
        case WayOut::Free:
            return "现在可" + std::string(words.leaveFreely) + "。";
        case WayOut::Checked:
            break;
    }
    return {};
}

}  // namespace kelvane::ui
