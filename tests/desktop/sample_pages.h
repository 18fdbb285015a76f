// Pages to look at and to print: each says its number, and is told apart by its colour.
#pragma once

#include <string>

#include "controls/form.h"
#include "controls/page_view.h"
#include "platform/page.h"

namespace kelvane::test {

// Red, green and blue pages in turn: a coloured area from 20 mm to 60 mm both ways, a line below
// it, and the texts "第 n 页" and "12,345.67".
class SamplePages : public platform::PageSource {
public:
    SamplePages(int count, int width, int height) : mCount(count), mWidth(width), mHeight(height) {}

    std::string Title() const override { return "样张"; }
    int PageWidth() const override { return mWidth; }
    int PageHeight() const override { return mHeight; }
    int PageCount() const override { return mCount; }
    platform::Page MakePage(int number) const override;

    // 0xBBGGRR
    static std::uint32_t ColorOf(int number);

private:
    int mCount;
    int mWidth;
    int mHeight;
};

// A window with nothing but a page view.
class PageForm : public controls::Form {
public:
    explicit PageForm(const platform::PageSource& source);

    controls::PageView pages{*this, "Pages"};

    void Form_Resize() override;
};

}  // namespace kelvane::test
