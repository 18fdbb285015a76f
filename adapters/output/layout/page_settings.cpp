#include "adapters/output/layout/page_settings.h"

#include <algorithm>

namespace kelvane::output {

namespace {

constexpr int kMinWidth = 500;
constexpr int kMinHeight = 700;

const Paper* FindPaper(std::string_view name) {
    const auto* found = std::find_if(kPapers.begin(), kPapers.end(),
                                     [name](const Paper& paper) { return paper.name == name; });
    return found == kPapers.end() ? nullptr : found;
}

const Paper& PaperOf(const PageSettings& settings) {
    const Paper* paper = FindPaper(settings.paper);
    return paper == nullptr ? kPapers.front() : *paper;
}

}  // namespace

int PageWidth(const PageSettings& settings) {
    const Paper& paper = PaperOf(settings);
    return settings.landscape ? paper.height : paper.width;
}

int PageHeight(const PageSettings& settings) {
    const Paper& paper = PaperOf(settings);
    return settings.landscape ? paper.width : paper.height;
}

int PrintableWidth(const PageSettings& settings) {
    return PageWidth(settings) - settings.marginLeft - settings.marginRight;
}

int PrintableHeight(const PageSettings& settings) {
    return PageHeight(settings) - settings.marginTop - settings.marginBottom;
}

bool IsMargin(int tenths) {
    return tenths >= 0 && tenths <= kMaxMargin;
}

bool IsLetterSize(int tenths) {
    return tenths >= kMinLetters && tenths <= kMaxLetters;
}

bool IsUsable(const PageSettings& settings) {
    if (FindPaper(settings.paper) == nullptr) return false;
    const bool margins = IsMargin(settings.marginLeft) && IsMargin(settings.marginTop) &&
                         IsMargin(settings.marginRight) && IsMargin(settings.marginBottom);
    const bool letters = IsLetterSize(settings.titleSize) && IsLetterSize(settings.headSize) &&
                         IsLetterSize(settings.bodySize);
    return margins && letters && PrintableWidth(settings) >= kMinWidth &&
           PrintableHeight(settings) >= kMinHeight;
}

}  // namespace kelvane::output
