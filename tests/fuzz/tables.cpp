// Any bytes as a table's file, and as a copied text: it is read, or it is refused, and nothing else
// happens. Called by libFuzzer (scripts/fuzz), and by replay.cpp in the tests.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "adapters/tables/open_table.h"
#include "entries/bulk/table_reading.h"

using namespace kelvane;

namespace {

void ReadAll(platform::TableReader& reader) {
    for (std::size_t sheet = 0; sheet < reader.Sheets().size(); ++sheet) {
        int before = 0;
        reader.Read(sheet, [&](const platform::TableRow& row) {
            // What every reader promises.
            if (row.number <= before || row.cells.empty()) std::abort();
            before = row.number;
            int column = 0;
            for (const platform::TableCell& cell : row.cells) {
                if (cell.column <= column || cell.kind == platform::CellKind::Blank) std::abort();
                column = cell.column;
            }
            return true;
        });
    }
}

void ReadAsEntries(platform::TableReader& reader) {
    entries::TableReading how;
    how.hidden = entries::HiddenRows::Take;
    entries::ReadBulkTable(reader, entries::EntryTableShape("", {}, false), how);
    entries::ReadBulkTable(reader, entries::LineTableShape(), how);
}

template <typename Open>
void Try(const Open& open) {
    try {
        const std::unique_ptr<platform::TableReader> reader = open();
        ReadAll(*reader);
        reader->Properties();
        ReadAsEntries(*reader);
    } catch (const platform::TableRefused&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string content(reinterpret_cast<const char*>(bytes), size);
    Try([&] { return tables::OpenTableBytes(content, "a"); });
    Try([&] { return tables::OpenTableBytes(content, "a", tables::TextEncoding::Gb18030); });
    Try([&] { return tables::OpenCopiedTable(content); });
    return 0;
}
