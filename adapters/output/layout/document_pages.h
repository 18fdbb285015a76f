// DocumentPages: a document of several tables, one behind the other, each beneath its heading. A
// table that is longer than its page goes on on the next one, with its titles again.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "adapters/output/layout/page_settings.h"
#include "adapters/output/layout/sheet.h"
#include "adapters/output/layout/table_strip.h"
#include "adapters/output/layout/text_measurer.h"
#include "platform/grid_text.h"
#include "platform/page.h"

namespace kelvane::output {

struct DocumentPart {
    std::string heading;  // empty: none
    std::vector<platform::ColumnText> columns;
    std::vector<std::vector<std::string>> rows;  // a text for each column
    bool hasTitles = true;
    int rowHeight = 0;   // at least, in tenths of a millimetre
    bool whole = false;  // its rows stay on one page if they fit one
};

struct Document {
    PageSettings settings;
    std::string title;
    std::vector<DocumentPart> parts;
};

class DocumentPages final : public platform::PageSource {
public:
    // Throws std::invalid_argument for unusable settings and for a part without shown columns.
    DocumentPages(Document document, TextMeasurer& measurer);

    std::string Title() const override { return mDocument.title; }
    int PageWidth() const override { return output::PageWidth(mDocument.settings); }
    int PageHeight() const override { return output::PageHeight(mDocument.settings); }
    int PageCount() const override { return static_cast<int>(mPages.size()); }
    platform::Page MakePage(int number) const override;

private:
    class Laying;

    Document mDocument;
    std::vector<platform::Page> mPages;  // without their numbers
};

}  // namespace kelvane::output
