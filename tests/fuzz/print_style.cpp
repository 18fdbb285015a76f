// Any bytes as the file of print styles: it is read, wholly or in part, or refused with a reason;
// what was read is written in texts that are read as the same.
#include <filesystem>
#include <fstream>

#include "adapters/output/style/stored_style.h"
#include "tests/database/sqlite_account.h"
#include "tests/fuzz/fuzz.h"

using namespace kelvane;
using fuzz::Require;

namespace {

constexpr std::string_view kName = "Default";

bool SamePlaces(const std::map<std::string, output::ItemPlace>& a,
                const std::map<std::string, output::ItemPlace>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.first == y.first && x.second.position == y.second.position &&
               x.second.width == y.second.width;
    });
}

std::string Written(const std::string& path, const output::StyleTexts& texts) {
    std::ofstream(path, std::ios::binary)
        << "<格式>" << texts.settings << texts.layout << "</格式>";
    return texts.settings + texts.layout;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const database_test::ScratchFolder folder;
    const std::string path = folder.Path("styles.xml");
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    output::StoredStyle read = output::ReadStyle(path, kName);
    if (!read.settings) read.settings = output::PageSettings();
    Require(output::IsUsable(*read.settings), "settings that are read can be used");
    if (!read.refusal.empty()) {
        Require(read.header.empty() && read.footer.empty() && read.columnGroups.empty(),
                "nothing of a refused file is taken", read.refusal);
    }

    const output::StyleTexts texts = output::WriteStyle(read, kName);
    if (!output::IsReadableStyle(texts)) return 0;
    const std::string text = Written(path, texts);
    const output::StoredStyle again = output::ReadStyle(path, kName);
    Require(again.refusal.empty(), "what is written is read", text + again.refusal);
    Require(again.settings == read.settings, "settings are read as they were written", text);
    Require(again.titleEnd == read.titleEnd && again.table == read.table,
            "places are read as they were written", text);
    Require(SamePlaces(again.header, read.header) && SamePlaces(again.footer, read.footer),
            "items are read as they were written", text);
    Require(again.columnGroups.size() == read.columnGroups.size(),
            "columns are read as they were written", text);
    return 0;
}
