#include "host/bulk/editable_book.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "data/date_text.h"
#include "data/login_context.h"
#include "entries/bulk/table_shape.h"
#include "entries/bulk/workbook_sheets.h"
#include "entries/entry_record.h"
#include "platform/decimal.h"
#include "platform/statement_text.h"

namespace kelvane::host {

using entries::DetailKind;
using entries::EntryRecord;
using platform::NumberCell;
using platform::StatementText;
using platform::TableCell;
using platform::TableFileSheet;
using platform::TextCell;

namespace {

// What the master data says of a code beside it: name, model and unit.
struct CodeTexts {
    std::string name;
    std::string model;
    std::string unit;
};
using Codes = std::map<std::string, CodeTexts>;

struct Element {
    std::string code;
    std::int16_t detail = 0;
    bool twice = false;  // another one has the name, too
};

template <typename Take>
void ForEachRow(const StatementText& statement, const Take& take) {
    const auto rows = data::gEnv->DataAccess().Query(statement);
    for (; !rows->EndOfFile(); rows->MoveNext()) take(*rows);
}

Codes CodesOf(const StatementText& statement) {
    Codes codes;
    ForEachRow(statement, [&](const platform::RecordSet& row) {
        const auto text = [&](int field) {
            return field < row.FieldCount() ? row.Field(field).ToText() : std::string();
        };
        codes.emplace(text(0), CodeTexts{text(1), text(2), text(3)});
    });
    return codes;
}

// Cells by the columns in which a sheet of the shape is written.
class Places {
public:
    Places(const entries::TableShape& shape, int last) {
        for (const auto& column : WrittenColumns(shape, last)) mColumns.push_back(column.column);
    }
    // 0: it is not written.
    int Of(int column) const {
        const auto found = std::ranges::find(mColumns, column);
        return found == mColumns.end() ? 0 : static_cast<int>(found - mColumns.begin()) + 1;
    }

private:
    std::vector<int> mColumns;
};

class Making {
public:
    explicit Making(const entries::AccountTitles& titles)
        : mPlaces(entries::EntryTableShape(titles.itemName, titles.keywords, true),
                  entries::kCheckColumn),
          mKeywords(titles.keywords.size()) {
        ReadElements();
    }

    void Add(const EntryRecord& record, TableFileSheet& entries, TableFileSheet& lines) const;
    bool CanName(const EntryRecord& record) const;

private:
    void ReadElements();
    void AddLine(const std::string& label, DetailKind kind, const entries::DetailLine& line,
                 TableFileSheet& lines) const;

    Places mPlaces;
    std::size_t mKeywords;
    std::map<std::string, Element> mElements;  // by name
    Codes mItems = CodesOf(StatementText("select citemcode,citemname from fitemss97"));
    Codes mEquipment =
        CodesOf(StatementText("select cEquipCode,cEquipName,cEquipModel from pm_equipment"));
    Codes mInventory = CodesOf(
        StatementText("select a.cInvCode,a.cInvName,a.cInvStd,b.cComUnitName from inventory "
                      "a left join computationunit b on a.cSAComUnitCode=b.cComUnitCode"));
};

void Making::ReadElements() {
    ForEachRow(StatementText("select cElementCode,cElementName,iElementDetail from PM_ItemElement"),
               [&](const platform::RecordSet& row) {
                   const auto detail = static_cast<std::int16_t>(row.Field(2).ToInteger());
                   const auto [place, isNew] = mElements.try_emplace(
                       row.Field(1).ToText(), Element{row.Field(0).ToText(), detail, false});
                   if (!isNew) place->second.twice = true;
               });
}

bool Making::CanName(const EntryRecord& record) const {
    const entries::Entry& entry = record.entry;
    const auto element = mElements.find(entry.elementName);
    if (element == mElements.end() || element->second.twice) return false;
    return (mKeywords > 0 || entry.key1.empty()) && (mKeywords > 1 || entry.key2.empty());
}

void Making::AddLine(const std::string& label, DetailKind kind, const entries::DetailLine& line,
                     TableFileSheet& lines) const {
    const Codes& codes = kind == DetailKind::Equipment ? mEquipment : mInventory;
    const auto known = codes.find(line.code);
    const CodeTexts texts = known == codes.end() ? CodeTexts() : known->second;
    const auto quantity = platform::Decimal::FromDouble(line.quantity);
    lines.rows.push_back(
        {TextCell(entries::kLineRowNumberColumn, label),
         TextCell(entries::kLineCodeColumn, line.code),
         TextCell(entries::kLineNameColumn, texts.name),
         TextCell(entries::kLineModelColumn, texts.model),
         TextCell(entries::kLineUnitColumn, texts.unit),
         NumberCell(entries::kLinePriceColumn, line.price.ToText()),
         NumberCell(entries::kLineQuantityColumn, quantity ? quantity->Text() : std::string()),
         NumberCell(entries::kLineAmountColumn, line.amount.ToText())});
}

void Making::Add(const EntryRecord& record, TableFileSheet& entries, TableFileSheet& lines) const {
    const entries::Entry& entry = record.entry;
    const std::string label = std::to_string(entry.identity);
    const auto item = mItems.find(entry.itemCode);
    auto& row = entries.rows.emplace_back();
    const auto add = [&](int column, std::string text) {
        if (mPlaces.Of(column) > 0) row.push_back(TextCell(mPlaces.Of(column), std::move(text)));
    };
    if (entry.date != data::kNullDate) {
        const platform::DateTime day{entry.date.year, entry.date.month, entry.date.day};
        row.push_back(platform::DateCell(mPlaces.Of(entries::kDateColumn), day));
    }
    add(entries::kCenterColumn, entry.centerCode);
    add(entries::kItemColumn, entry.itemCode);
    add(entries::kItemNameColumn, item == mItems.end() ? std::string() : item->second.name);
    add(entries::kKey1Column, entry.key1);
    add(entries::kKey2Column, entry.key2);
    add(entries::kElementColumn, entry.elementName);
    add(entries::kDigestColumn, entry.digest);
    row.push_back(NumberCell(mPlaces.Of(entries::kAmountColumn), entry.amount.ToText()));
    add(entries::kRowNumberColumn, label);
    add(entries::kIdentityColumn, label);
    add(entries::kCheckColumn, CheckValueOf(record));
    const DetailKind kind = entries::KindOfDetail(mElements.at(entry.elementName).detail);
    for (const entries::DetailLine& line : record.lines) AddLine(label, kind, line, lines);
}

}  // namespace

EditableBook MakeEditableBook(const entries::AccountTitles& titles,
                              const entries::AccountChoices& choices, const std::string& account) {
    EditableBook book;
    TableFileSheet entries = EntrySheet(titles, choices, entries::kCheckColumn);
    TableFileSheet lines = LineSheet(choices);
    const entries::EntryRecords records = entries::ReadEntryRecords();
    std::vector<const EntryRecord*> ordered;
    for (const auto& [identity, record] : records) ordered.push_back(&record);
    std::ranges::stable_sort(ordered, {},
                             [](const EntryRecord* record) { return record->entry.itemCode; });
    const Making making(titles);
    for (const EntryRecord* record : ordered) {
        if (making.CanName(*record)) {
            making.Add(*record, entries, lines);
        } else {
            book.leftOut.push_back(record->entry.identity);
        }
    }
    std::ranges::sort(book.leftOut);
    book.file.sheets.push_back(std::move(entries));
    book.file.sheets.push_back(std::move(lines));
    book.file.properties = {
        {std::string(entries::kAccountProperty), account},
        {std::string(entries::kLayoutProperty), std::string(entries::kLayoutVersion)}};
    return book;
}

}  // namespace kelvane::host
