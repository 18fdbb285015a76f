#include "controls/key_page.h"

#include <algorithm>

#include "controls/key_lines.h"
#include "controls/place.h"
#include "controls/text_width.h"

namespace kelvane::controls {

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kButtonWidth = 1200;
constexpr int kButtonHeight = 375;
constexpr int kRowHeight = 300;
constexpr int kMostRows = 26;

}  // namespace

KeyPage::KeyPage(const Form& window)
    : Form("frmKeys"), GridKeys(*this, "GridKeys"), cmdClose(*this, "cmdClose") {
    SetCaption("按键 - " + window.Caption());
    SetIconPicture(window.IconPicture());
    cmdClose.SetCaption("关闭");
    cmdClose.SetDefault(true);
    cmdClose.SetCancel(true);
    cmdClose.Click = [this] { Unload(); };

    GridKeys.SetFixedCols(0);
    GridKeys.SetRows(1);
    GridKeys.SetFormat("<按键|<作用");
    GridKeys.SetReadOnly(true);
    GridKeys.SetDefaultRowHeight(kRowHeight);
    int widths[] = {2400, 3600};
    for (const KeyLine& line : KeyLinesOf(window)) {
        GridKeys.AddItem(line.keys + "\t" + line.does);
        widths[0] = std::max(widths[0], EstimateTextWidth(line.keys));
        widths[1] = std::max(widths[1], EstimateTextWidth(line.does));
    }
    for (int col = 0; col < GridKeys.Cols(); ++col) GridKeys.SetColumnWidth(col, widths[col]);
    GridKeys.SetRow(1);

    const int beside = Grid::kScrollBar + 2 * kMargin;
    const int rows = std::min(GridKeys.Rows(), kMostRows) * kRowHeight;
    SetSize(widths[0] + widths[1] + beside + kFrameWidth,
            rows + beside + kMargin + kButtonHeight + kFrameHeight);
    SetMinSize(4500, 3600);
}

void KeyPage::Form_Resize() {
    const int buttonTop = ScaleHeight() - kMargin - kButtonHeight;
    PlaceControl(GridKeys, kMargin, kMargin, ScaleWidth() - 2 * kMargin, buttonTop - 2 * kMargin);
    PlaceControl(cmdClose, std::max(0, ScaleWidth() - kMargin - kButtonWidth),
                 std::max(0, buttonTop), kButtonWidth, kButtonHeight);
}

// The page needs no page of its own. Enter closes it, as there is nothing to type into.
void KeyPage::Form_KeyDown(platform::Key& key, int shift) {
    if (key == platform::Key::F1) key = platform::Key::None;
    if (key != platform::Key::Enter || shift != 0) return;
    key = platform::Key::None;
    cmdClose.Press();
}

}  // namespace kelvane::controls
