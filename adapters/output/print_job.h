// PrintJob: one sheet with its pages, and the settings that the operator may still change.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "adapters/output/layout/sheet.h"
#include "adapters/output/layout/sheet_pages.h"
#include "adapters/output/style/style_service.h"

namespace kelvane::output {

class PrintJob {
public:
    // `measurer` outlives the job.
    PrintJob(Sheet sheet, std::string styleName, TextMeasurer& measurer)
        : mSheet(std::move(sheet)), mStyleName(std::move(styleName)), mMeasurer(measurer) {}

    const Sheet& Content() const { return mSheet; }
    const PageSettings& Settings() const { return mSheet.settings; }

    // The pages are made anew. Throws std::invalid_argument for unusable settings.
    void ChangeSettings(const PageSettings& settings) {
        mSheet.settings = settings;
        mPages = std::make_unique<SheetPages>(mSheet, mMeasurer);
    }

    // Laid out when they are asked for first; valid until the settings change.
    const SheetPages& Pages() {
        if (!mPages) mPages = std::make_unique<SheetPages>(mSheet, mMeasurer);
        return *mPages;
    }

    // What keeps the present settings in the style file.
    StyleTexts Texts() const { return TextsOf(mSheet, mStyleName); }

private:
    Sheet mSheet;
    std::string mStyleName;
    TextMeasurer& mMeasurer;
    std::unique_ptr<SheetPages> mPages;
};

}  // namespace kelvane::output
