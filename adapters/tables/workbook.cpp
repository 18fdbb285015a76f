#include "adapters/tables/workbook.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "adapters/tables/cell_reference.h"
#include "adapters/tables/cell_styles.h"
#include "adapters/tables/custom_properties.h"
#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"
#include "adapters/tables/relationships.h"
#include "adapters/tables/sheet_reader.h"
#include "adapters/tables/xml_stream.h"
#include "adapters/tables/zip_archive.h"

namespace kelvane::tables {

using platform::CellRange;
using platform::TableRow;
using platform::TableSheet;

namespace {

// The list of sheets, each with the relationship that leads to it.
class WorkbookHandler : public XmlHandler {
public:
    struct Sheet {
        TableSheet shown;
        std::string relationship;
    };

    bool Begin(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "workbookPr" && IsTrue(attributes.Find("date1904"))) {
            dates = DateSystem::From1904;
        }
        if (name == "sheet") {
            if (sheets.size() == kMaxSheets) throw Refusal("工作表太多");
            const std::string_view state = attributes.Find("state");
            sheets.push_back(
                {{std::string(attributes.Find("name")), !state.empty() && state != "visible"},
                 std::string(attributes.Find("id", "/relationships"))});
        }
        return name == "sheets";
    }

    DateSystem dates = DateSystem::From1900;
    std::vector<Sheet> sheets;
};

class Workbook : public platform::TableReader {
public:
    Workbook(std::unique_ptr<ByteSource> source, std::string name)
        : mSource(std::move(source)), mName(std::move(name)), mArchive(*mSource) {
        ReadParts();
    }

    const std::vector<TableSheet>& Sheets() const override { return mSheets; }
    bool HasTypedCells() const override { return true; }

    std::vector<CellRange> Read(std::size_t sheet,
                                const std::function<bool(const TableRow&)>& take) override {
        const std::string& part = mParts.at(sheet);
        return WithName(mName, [&] { return ReadSheet(mArchive, part, Content(), take); });
    }

    std::map<std::string, std::string> Properties() override {
        if (mProperties.empty()) return {};
        return WithName(mName, [&] { return ReadProperties(mArchive, mProperties); });
    }

    std::string Place(std::size_t sheet, int row, int column,
                      std::string_view /*title*/) const override {
        std::string place = mSheets.at(sheet).name;
        if (row <= 0) return place;
        return place + "!" + ColumnName(column > 0 ? column : 1) + std::to_string(row);
    }

private:
    void ReadParts();
    // What the sheets share is read when the first of them is.
    const WorkbookContent& Content();
    std::string TargetOf(const WorkbookHandler::Sheet& sheet) const;

    std::unique_ptr<ByteSource> mSource;
    std::string mName;
    ZipArchive mArchive;
    std::vector<Relationship> mRelationships;
    std::vector<TableSheet> mSheets;
    std::vector<std::string> mParts;
    std::string mProperties;  // the part that has them; empty: there are none
    DateSystem mDates = DateSystem::From1900;
    std::optional<WorkbookContent> mContent;
};

std::string Workbook::TargetOf(const WorkbookHandler::Sheet& sheet) const {
    const auto found =
        std::find_if(mRelationships.begin(), mRelationships.end(),
                     [&](const Relationship& each) { return each.id == sheet.relationship; });
    if (found == mRelationships.end() || found->external) {
        throw Refusal("已损坏：工作表“" + sheet.shown.name + "”不在文件中");
    }
    // A sheet of nothing but a chart is no table.
    return found->type.ends_with("/worksheet") ? found->target : std::string();
}

void Workbook::ReadParts() {
    if (!mArchive.Has("_rels/.rels")) throw Refusal("不是 .xlsx 工作簿");
    const auto roots = ReadRelationships(mArchive, "");
    const Relationship* book = FindRelationship(roots, "officeDocument");
    if (book == nullptr || book->external || !mArchive.Has(book->target)) {
        throw Refusal("不是 .xlsx 工作簿");
    }
    mProperties = PartOfProperties(roots);
    mRelationships = ReadRelationships(mArchive, book->target);
    WorkbookHandler handler;
    ReadXml(mArchive, book->target, "workbook", handler);
    mDates = handler.dates;
    for (WorkbookHandler::Sheet& sheet : handler.sheets) {
        std::string part = TargetOf(sheet);
        if (part.empty()) continue;
        if (std::find(mParts.begin(), mParts.end(), part) != mParts.end()) {
            throw Refusal("已损坏：两个工作表有同样的内容");
        }
        mSheets.push_back(std::move(sheet.shown));
        mParts.push_back(std::move(part));
    }
    if (mSheets.empty()) throw Refusal("没有工作表");
}

const WorkbookContent& Workbook::Content() {
    if (mContent) return *mContent;
    WorkbookContent content;
    content.dates = mDates;
    if (const auto* styles = FindRelationship(mRelationships, "styles")) {
        content.dateStyles = ReadDateStyles(mArchive, styles->target);
    }
    if (const auto* strings = FindRelationship(mRelationships, "sharedStrings")) {
        content.strings.Read(mArchive, strings->target);
    }
    return mContent.emplace(std::move(content));
}

}  // namespace

std::unique_ptr<platform::TableReader> ReadWorkbook(std::unique_ptr<ByteSource> source,
                                                    std::string name) {
    return std::make_unique<Workbook>(std::move(source), std::move(name));
}

}  // namespace kelvane::tables
