#include "adapters/tables/text_table.h"

#include <utility>

#include "adapters/tables/csv_parser.h"
#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"

namespace kelvane::tables {

using platform::CellRange;
using platform::TableRow;
using platform::TableSheet;

namespace {

class TextTable : public platform::TableReader {
public:
    TextTable(std::unique_ptr<ByteSource> source, std::string name, TextEncoding encoding,
              char separator)
        : mSource(std::move(source)),
          mName(std::move(name)),
          mEncoding(encoding),
          mSeparator(separator) {}

    const std::vector<TableSheet>& Sheets() const override { return mSheets; }
    bool HasTypedCells() const override { return false; }

    std::vector<CellRange> Read(std::size_t sheet,
                                const std::function<bool(const TableRow&)>& take) override {
        static_cast<void>(mSheets.at(sheet));
        WithName(mName, [&] {
            TextDecoder decoder(*mSource, mEncoding);
            CsvParser parser(mSeparator, [&](const TableRow& row, int /*fields*/) {
                return row.cells.empty() || take(row);
            });
            for (std::string text; decoder.Next(text);) {
                if (!parser.Feed(text)) return;
            }
            parser.Finish();
        });
        return {};
    }

    std::string Place(std::size_t /*sheet*/, int row, int /*column*/,
                      std::string_view title) const override {
        std::string place = mName;
        if (row > 0) place += ":" + std::to_string(row);
        if (row > 0 && !title.empty()) place.append(":").append(title);
        return place;
    }

private:
    std::unique_ptr<ByteSource> mSource;
    std::string mName;
    TextEncoding mEncoding;
    char mSeparator;
    std::vector<TableSheet> mSheets{TableSheet{}};
};

// The first piece of a text, which also shows whether it is one.
std::string Beginning(ByteSource& source, TextEncoding encoding) {
    if (source.Size() > kMaxBytes) throw Refusal("文件太大");
    std::string begin;
    TextDecoder(source, encoding).Next(begin);
    return begin;
}

}  // namespace

std::unique_ptr<platform::TableReader> ReadTextTable(std::unique_ptr<ByteSource> source,
                                                     std::string name, TextEncoding encoding) {
    if (encoding == TextEncoding::Detect) encoding = DetectEncoding(*source);
    const char separator = FindSeparator(Beginning(*source, encoding));
    return std::make_unique<TextTable>(std::move(source), std::move(name), encoding, separator);
}

std::unique_ptr<platform::TableReader> ReadCopiedTable(std::unique_ptr<ByteSource> source,
                                                       std::string name) {
    const std::string begin = Beginning(*source, TextEncoding::Utf8);
    const char separator = begin.find('\t') != std::string::npos ? '\t' : FindSeparator(begin);
    return std::make_unique<TextTable>(std::move(source), std::move(name), TextEncoding::Utf8,
                                       separator);
}

}  // namespace kelvane::tables
