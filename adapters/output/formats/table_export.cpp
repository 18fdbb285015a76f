#include "adapters/output/formats/table_export.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/native_path.h"

namespace kelvane::output {

std::size_t Export::Rows() const {
    return static_cast<std::size_t>(std::count(dataText.begin(), dataText.end(), '\n'));
}

const std::vector<FileFormat>& FileFormats() {
    static const std::vector<FileFormat> formats{
        {"xlsx", "Excel 工作簿", WriteXlsx},
        {"csv", "CSV 文本", WriteCsv},
        {"pdf", "PDF 文档", WritePdf},
        {"xml", "XML 文档", WriteXml},
    };
    return formats;
}

const FileFormat* FindFormat(std::string_view path) {
    const std::vector<FileFormat>& formats = FileFormats();
    const std::string name = platform::Utf8Of(platform::PathOf(path).filename());
    const std::size_t point = name.find_last_of('.');
    if (point == std::string::npos) return nullptr;
    const auto extension = std::string_view(name).substr(point + 1);
    const auto found = std::find_if(formats.begin(), formats.end(), [&](const FileFormat& format) {
        return platform::EqualIgnoringCase(format.extension, extension);
    });
    return found == formats.end() ? nullptr : &*found;
}

std::string WrittenExtensions() {
    std::string text;
    for (const FileFormat& format : FileFormats()) {
        if (!text.empty()) text += ", ";
        text += "." + std::string(format.extension);
    }
    return text;
}

}  // namespace kelvane::output
