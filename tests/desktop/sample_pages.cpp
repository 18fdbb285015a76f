#include "tests/desktop/sample_pages.h"

#include <stdexcept>

namespace kelvane::test {

using platform::Page;
using platform::PageAlignment;

Page SamplePages::MakePage(int number) const {
    if (number < 1 || number > mCount) throw std::out_of_range("no such page");
    Page page;
    page.areas.push_back({{200, 200, 400, 400}, ColorOf(number)});
    page.lines.push_back({.left = 200, .top = 700, .right = 600, .bottom = 700, .width = 2});
    page.texts.push_back({.text = "第 " + std::to_string(number) + " 页",
                          .box = {200, 800, 600, 80},
                          .alignment = PageAlignment::Center,
                          .size = 140,
                          .bold = true});
    page.texts.push_back(
        {.text = "12,345.67", .box = {200, 900, 600, 50}, .alignment = PageAlignment::Right});
    return page;
}

std::uint32_t SamplePages::ColorOf(int number) {
    static constexpr std::uint32_t kColors[] = {0x0000FF, 0x00FF00, 0xFF0000};
    return kColors[(number - 1) % 3];
}

PageForm::PageForm(const platform::PageSource& source) : Form("frmPages") {
    SetCaption("样张");
    SetSize(12000 + kFrameWidth, 9000 + kFrameHeight);
    pages.SetSource(&source);
    SetFocus(pages);
}

void PageForm::Form_Resize() {
    pages.SetWidth(ScaleWidth());
    pages.SetHeight(ScaleHeight());
}

}  // namespace kelvane::test
