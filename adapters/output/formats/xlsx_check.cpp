#include "adapters/output/formats/xlsx_check.h"

#include <minizip/unzip.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::output {

namespace {

constexpr std::size_t kBlock = 1U << 18U;
// How much of a part's two ends is looked at.
constexpr std::size_t kEndSize = 512;

struct Closer {
    void operator()(void* archive) const { unzClose(archive); }
};

// The name of the document's root element, which stands behind the declaration.
std::string RootName(std::string_view head) {
    const std::size_t declaration = head.find("?>");
    const std::size_t begin = head.find('<', std::min(declaration, head.size()));
    if (begin == std::string_view::npos) return {};
    head.remove_prefix(begin + 1);
    return std::string(head.substr(0, head.find_first_of(" />\n")));
}

bool IsComplete(std::string_view head, std::string_view tail, std::size_t length) {
    const std::string root = RootName(head);
    if (root.empty()) return false;
    tail = tail.substr(0, tail.find_last_not_of("\r\n ") + 1);
    // A document of nothing but its root is short enough to be seen as a whole.
    const bool alone = length == head.size() && tail.ends_with("/>") &&
                       std::count(head.begin(), head.end(), '<') == 2;
    return alone || tail.ends_with("</" + root + ">");
}

// Reads the present part to its end, with its checksum.
bool IsPartComplete(unzFile archive, std::vector<char>& block) {
    if (unzOpenCurrentFile(archive) != UNZ_OK) return false;
    std::string head;
    std::string tail;
    std::size_t length = 0;
    int count = 0;
    do {
        count = unzReadCurrentFile(archive, block.data(), static_cast<unsigned>(block.size()));
        if (count <= 0) break;
        const std::string_view read(block.data(), static_cast<std::size_t>(count));
        if (length == 0) head = read.substr(0, kEndSize);
        tail += read.substr(read.size() - std::min(read.size(), kEndSize));
        tail.erase(0, tail.size() - std::min(tail.size(), kEndSize));
        length += read.size();
    } while (true);
    return unzCloseCurrentFile(archive) == UNZ_OK && count == 0 && IsComplete(head, tail, length);
}

}  // namespace

void CheckXlsx(const SafeFile& file) {
    const std::unique_ptr<void, Closer> archive(unzOpen64(file.Draft().c_str()));
    std::vector<char> block(kBlock);
    bool complete = archive != nullptr && unzGoToFirstFile(archive.get()) == UNZ_OK;
    int step = UNZ_OK;
    while (complete && step == UNZ_OK) {
        complete = IsPartComplete(archive.get(), block);
        step = unzGoToNextFile(archive.get());
    }
    if (!complete || step != UNZ_END_OF_LIST_OF_FILE) file.Fail("the disk has no more room");
}

}  // namespace kelvane::output
