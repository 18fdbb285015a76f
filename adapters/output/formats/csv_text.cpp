#include "adapters/output/formats/csv_text.h"

#include "platform/formula_guard.h"

namespace kelvane::output {

void AppendCsvText(std::string& line, std::string_view text) {
    line += platform::BeginsAsFormula(text) ? "\"'" : "\"";
    for (const char c : text) {
        if (c == '"') line += '"';
        line += c;
    }
    line += '"';
}

}  // namespace kelvane::output
