#include "adapters/output/formats/table_export.h"

#include <algorithm>

#include "platform/native_path.h"

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
        {"pdf", "PDF 文档", PdfWriter()},
        {"xml", "XML 文档", WriteXml},
    };
    return formats;
}

const FileFormat* FindFormat(std::string_view path, std::span<const FileFormat> formats) {
    const std::string name = platform::Utf8Of(platform::PathOf(path).filename());
    const std::size_t point = name.find_last_of('.');
    if (point == std::string::npos) return nullptr;
    const auto ending = std::string_view(name).substr(point + 1);
    const auto found = std::find_if(formats.begin(), formats.end(), [&](const FileFormat& format) {
        return SameEnding(format.ending, ending);
    });
    return found == formats.end() ? nullptr : &*found;
}

std::string WrittenEndings(std::span<const FileFormat> formats) {
    std::vector<std::string> endings;
    for (const FileFormat& format : formats) {
        if (format.write != nullptr) endings.push_back("." + std::string(format.ending));
    }
    std::string text;
    for (std::size_t at = 0; at < endings.size(); ++at) {
        if (at > 0) text += at + 1 < endings.size() ? ", " : " or ";
        text += endings[at];
    }
    return text;
}

}  // namespace kelvane::output
