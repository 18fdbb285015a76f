#include "adapters/tables/open_table.h"

#include <string_view>
#include <utility>

#include "adapters/tables/byte_source.h"
#include "adapters/tables/refusal.h"
#include "adapters/tables/text_table.h"
#include "adapters/tables/workbook.h"

namespace kelvane::tables {

using namespace std::string_view_literals;

namespace {

constexpr std::string_view kZip = "PK\x03\x04";
// The container of the older formats, and of encrypted files of the present one.
constexpr std::string_view kContainer = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::string_view kCopiedName = "剪贴板";

// Whether the container, whose directory says where its streams lie, has an encrypted workbook in
// it.
bool IsEncrypted(ByteSource& source) {
    // The name of the stream, in UTF-16.
    constexpr auto kName = "E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0"sv;
    constexpr std::size_t kHeader = 512;
    constexpr std::size_t kDirectoryAt = 48;
    constexpr std::size_t kLooked = 4096;
    const std::string header = FirstBytes(source, kHeader);
    if (header.size() < kHeader) return false;
    std::uint64_t sector = 0;
    for (std::size_t at = 4; at-- > 0;) {
        sector = sector << 8U | static_cast<unsigned char>(header[kDirectoryAt + at]);
    }
    const unsigned shift = static_cast<unsigned char>(header[30]) & 15U;
    std::string directory(kLooked, '\0');
    directory.resize(source.Read((sector + 1) << shift, directory.data(), kLooked));
    return directory.find(kName) != std::string::npos;
}

std::unique_ptr<platform::TableReader> Open(std::unique_ptr<ByteSource> source,
                                            const std::string& name, TextEncoding encoding) {
    const std::string begin = FirstBytes(*source, kContainer.size());
    if (begin == kContainer) {
        throw Refusal(IsEncrypted(*source) ? "已加密，请取消密码后另存"
                                           : "是旧格式（.xls），请另存为 .xlsx");
    }
    if (begin.starts_with(kZip)) return ReadWorkbook(std::move(source), name);
    return ReadTextTable(std::move(source), name, encoding);
}

}  // namespace

std::unique_ptr<platform::TableReader> OpenTable(const std::string& path, TextEncoding encoding) {
    return WithName(path, [&] { return Open(OpenFileBytes(path), path, encoding); });
}

std::unique_ptr<platform::TableReader> OpenTableBytes(std::string bytes, const std::string& name,
                                                      TextEncoding encoding) {
    return WithName(name, [&] { return Open(BytesOfText(std::move(bytes)), name, encoding); });
}

std::unique_ptr<platform::TableReader> OpenCopiedTable(std::string text) {
    const std::string name(kCopiedName);
    return WithName(name, [&] { return ReadCopiedTable(BytesOfText(std::move(text)), name); });
}

}  // namespace kelvane::tables
