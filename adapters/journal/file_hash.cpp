#include "adapters/journal/file_hash.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <stdexcept>

#include "adapters/journal/failures.h"
#include "adapters/journal/sha256.h"
#include "platform/native_path.h"

namespace kelvane::journal {

std::string HashOfText(std::string_view bytes) {
    Sha256 hash;
    hash.Add(bytes);
    return hash.Finish();
}

std::string HashOfFile(const std::string& path) {
    errno = 0;
    std::ifstream file(platform::PathOf(path), std::ios::binary);
    Sha256 hash;
    std::array<char, 1U << 16U> buffer{};
    while (file) {
        file.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
        hash.Add({buffer.data(), static_cast<std::size_t>(file.gcount())});
    }
    if (!file.eof()) {
        throw std::runtime_error("文件 " + path + ' ' + ReasonOf({errno, std::generic_category()}));
    }
    return hash.Finish();
}

}  // namespace kelvane::journal
