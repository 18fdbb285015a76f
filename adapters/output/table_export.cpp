#include "adapters/output/table_export.h"

#include <algorithm>

namespace kelvane::output {

namespace {

// Letter case of ASCII does not count.
bool SameEnding(std::string_view left, std::string_view right) {
    const auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [&](char a, char b) { return small(a) == small(b); });
}

}  // namespace

std::size_t Export::Rows() const {
    return static_cast<std::size_t>(std::count(dataText.begin(), dataText.end(), '\n'));
}

const std::vector<FileFormat>& FileFormats() {
    static const std::vector<FileFormat> formats{
        {"xlsx", "Excel 工作簿", WriteXlsx},
        {"csv", "CSV 文本", WriteCsv},
        {"pdf", "PDF 文档", WritePdfExport},
        {"xml", "XML 文档", WriteXml},
    };
    return formats;
}

const FileFormat* FindFormat(std::string_view path) {
    const std::string_view name = path.substr(path.find_last_of('/') + 1);
    const std::size_t point = name.find_last_of('.');
    if (point == std::string_view::npos) return nullptr;
    const auto& formats = FileFormats();
    const auto found = std::find_if(formats.begin(), formats.end(), [&](const FileFormat& format) {
        return SameEnding(format.ending, name.substr(point + 1));
    });
    return found == formats.end() ? nullptr : &*found;
}

}  // namespace kelvane::output
