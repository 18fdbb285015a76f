#include "ui/common/copied_table.h"

#include "data/login_context.h"
#include "platform/table.h"

namespace kelvane::ui {

bool IsCopiedTable(const std::string& text) {
    if (text.find('\t') != std::string::npos) return true;
    const std::size_t end = text.find('\n');
    if (end == std::string::npos || text.find_first_not_of("\r\n", end) == std::string::npos) {
        return false;
    }
    if (!text.starts_with('"')) return true;
    // One cell with a line break in it is copied in quotation marks.
    int rows = 0;
    try {
        const auto reader = data::gServices->tableImport->OpenCopied(text);
        reader->Read(0, [&rows](const platform::TableRow& /*row*/) { return ++rows < 2; });
    } catch (const platform::TableRefused&) {
        return true;
    }
    return rows > 1;
}

}  // namespace kelvane::ui
