#include "adapters/output/layout/page_head.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "adapters/output/layout/line_breaking.h"

namespace kelvane::output {

using platform::PageAlignment;
using platform::PageBox;

namespace {

constexpr int kItemGap = 20;
constexpr int kAroundFoot = 20;
constexpr int kThousandths = 100;  // of a millimetre in a tenth

// Appends `text` broken to `width`; returns the lower end.
int AppendLines(std::vector<platform::PageText>& texts, std::string_view text, Letters letters,
                PageBox place, PageAlignment alignment, TextMeasurer& measurer) {
    // A text that would need letters of less than half their size is broken into lines instead.
    const int fitting = FittingSize(text, letters, place.width, measurer);
    letters.size = std::max(letters.size / 2, fitting);
    place.height = LineHeight(letters.size);
    for (const auto line : BreakLines(text, letters, place.width * kThousandths, measurer)) {
        texts.push_back({std::string(line), place, alignment, letters.size, letters.bold});
        place.top += place.height;
    }
    return place.top;
}

// The items where they stand on the paper: as far apart as they were given, or closer together
// when the paper is too narrow for that.
std::vector<SheetItem> FitTo(int printable, std::vector<SheetItem> items) {
    int extent = printable;
    for (const SheetItem& item : items) {
        extent = std::max(extent, item.position.left + item.width);
    }
    for (SheetItem& item : items) {
        item.position.left = item.position.left * printable / extent;
        item.width = std::max(1, item.width * printable / extent);
    }
    return items;
}

// An item's own width, or all that its line leaves up to the next item.
int RoomOf(const SheetItem& item, const std::vector<SheetItem>& items, int printable) {
    int end = printable;
    for (const SheetItem& other : items) {
        const bool behind =
            other.position.top == item.position.top && other.position.left > item.position.left;
        if (behind) end = std::min(end, other.position.left - kItemGap);
    }
    return std::max(item.width, end - item.position.left);
}

int AppendItems(std::vector<platform::PageText>& texts, const std::vector<SheetItem>& given,
                const PageSettings& settings, int above, TextMeasurer& measurer) {
    const int printable = PrintableWidth(settings);
    const std::vector<SheetItem> items = FitTo(printable, given);
    int end = 0;
    for (const SheetItem& item : items) {
        const PageBox place{settings.marginLeft + item.position.left, above + item.position.top,
                            RoomOf(item, items, printable), 0};
        end = std::max(
            end, AppendLines(texts, item.caption + "：" + item.value, {settings.bodySize, false},
                             place, PageAlignment::Left, measurer));
    }
    return end;
}

int EndOf(const PageBox& box) {
    return box.top + box.height;
}

// Whether a header item stands above the title, whose room ends at `titleEnd`, and not beside or
// below it.
bool StandsAbove(const platform::PageText& item, int titleEnd) {
    return EndOf(item.box) <= titleEnd / 2;
}

}  // namespace

int FittingSize(std::string_view text, Letters letters, int width, TextMeasurer& measurer) {
    const std::int64_t needed = measurer.Width(text, letters);
    const std::int64_t room = std::int64_t{width} * kThousandths;
    if (needed <= room) return letters.size;
    return static_cast<int>(std::max<std::int64_t>(1, letters.size * room / needed));
}

TextBlock MakeHead(const Sheet& sheet, TextMeasurer& measurer) {
    TextBlock head;
    const PageSettings& settings = sheet.settings;
    const Letters letters{settings.titleSize, true};
    const int left = std::clamp(sheet.titleEnd.left, 0, PrintableWidth(settings) - 1);
    std::vector<platform::PageText> items;
    head.height = AppendItems(items, sheet.header, settings, 0, measurer);
    int start = 0;
    for (const platform::PageText& item : items) {
        if (StandsAbove(item, sheet.titleEnd.top)) start = std::max(start, EndOf(item.box));
    }
    const PageBox band{settings.marginLeft + left, start, PrintableWidth(settings) - left, 0};
    const int end =
        AppendLines(head.texts, sheet.title, letters, band, PageAlignment::Center, measurer);
    const int free = std::max(0, sheet.titleEnd.top - end) / 2;
    for (platform::PageText& line : head.texts) line.box.top += free;
    // A title that needs more than its room moves what stands below it.
    const int beyond = std::max(0, end - sheet.titleEnd.top);
    for (platform::PageText& item : items) {
        if (!StandsAbove(item, sheet.titleEnd.top)) item.box.top += beyond;
    }
    head.texts.insert(head.texts.end(), items.begin(), items.end());
    std::stable_sort(head.texts.begin(), head.texts.end(),
                     [](const auto& a, const auto& b) { return a.box.top < b.box.top; });
    head.height = std::max({head.height + beyond, end + free, sheet.table.top});
    return head;
}

TextBlock MakeFoot(const Sheet& sheet, TextMeasurer& measurer) {
    TextBlock foot;
    if (sheet.footer.empty()) return foot;
    foot.height = AppendItems(foot.texts, sheet.footer, sheet.settings, kAroundFoot, measurer);
    return foot;
}

platform::PageText MakePageNumber(const PageSettings& settings, int number, int count) {
    constexpr int kSize = 80;
    const int middle = PageHeight(settings) - settings.marginBottom - kPageNumberHeight / 2;
    return {.text = "第 " + std::to_string(number) + " 页 共 " + std::to_string(count) + " 页",
            .box = {settings.marginLeft, middle - LineHeight(kSize) / 2, PrintableWidth(settings),
                    LineHeight(kSize)},
            .alignment = PageAlignment::Center,
            .size = kSize};
}

}  // namespace kelvane::output
