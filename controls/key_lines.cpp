#include "controls/key_lines.h"

#include <algorithm>
#include <string>

#include "controls/button.h"
#include "controls/toolbar.h"
#include "platform/key_names.h"

namespace kelvane::controls {

namespace {

class Collector : public ControlVisitor {
public:
    using ControlVisitor::Visit;
    std::vector<KeyLine> toolbar;
    std::vector<KeyLine> buttons;
    std::vector<KeyLine> grid;

    void Visit(Toolbar& bar) override {
        for (const ToolbarButton& button : bar.Buttons()) {
            const std::string keys = platform::NameOfKey(button.Stroke());
            if (!keys.empty() && button.Visible()) toolbar.push_back({keys, button.Caption()});
        }
    }
    void Visit(Button& button) override {
        if (!button.Visible()) return;
        if (button.IsDefault()) buttons.push_back({"Enter", button.Caption()});
        if (button.IsCancel()) buttons.push_back({"Esc", button.Caption()});
    }
    void Visit(Grid& of) override {
        if (!of.TakesFocus()) return;
        for (const GridKeys& each : KeysOfGrid()) {
            if (each.onlyEditing && of.ReadOnly()) continue;
            std::string keys(each.keys);
            for (std::size_t blank = keys.find(' '); blank != std::string::npos;
                 blank = keys.find(' ', blank)) {
                keys.replace(blank, 1, "、");
            }
            grid.push_back({keys, std::string(each.does)});
        }
    }
};

// Keys stand once, with all that they do.
void AppendLine(std::vector<KeyLine>& lines, const KeyLine& more) {
    const auto known = std::find_if(lines.begin(), lines.end(),
                                    [&](const KeyLine& line) { return line.keys == more.keys; });
    if (known == lines.end()) {
        lines.push_back(more);
    } else if (known->does.find(more.does) == std::string::npos) {
        known->does += "；" + more.does;
    }
}

void Append(std::vector<KeyLine>& lines, const std::vector<KeyLine>& more) {
    for (const KeyLine& line : more) AppendLine(lines, line);
}

}  // namespace

const std::vector<GridKeys>& KeysOfGrid() {
    static const std::vector<GridKeys> kKeys{
        {"Up Down Left Right", "移到相邻的单元格"},
        {"PageUp PageDown", "上翻、下翻一页"},
        {"Home End", "到本行第一个、最后一个单元格"},
        {"Ctrl+Home Ctrl+End", "到第一行、最后一行"},
        {"Tab Enter", "到下一个可录入的单元格"},
        {"Shift+Tab", "到上一个可录入的单元格"},
        {"F2 Space", "打开单元格；再按 F2 打开参照", true},
        {"Delete", "清除单元格的内容", true},
        {"Esc", "放弃正在录入的内容", true},
    };
    return kKeys;
}

std::vector<KeyLine> KeyLinesOf(const Form& form) {
    Collector found;
    for (Control* control : form.Controls()) control->Accept(found);
    std::vector<KeyLine> lines = std::move(found.toolbar);
    for (const WindowAction& action : form.Actions()) {
        const std::string keys = platform::NameOfKey(action.stroke);
        if (!keys.empty() && !action.caption.empty()) AppendLine(lines, {keys, action.caption});
    }
    Append(lines, form.OwnKeys());
    Append(lines, found.buttons);
    Append(lines, found.grid);
    if (!form.MenuActions().empty()) AppendLine(lines, {"Shift+F10、Menu", "打开菜单"});
    Append(lines, {{"F1", "帮助"}, {"Alt+F4", "关闭窗口"}});
    return lines;
}

}  // namespace kelvane::controls
