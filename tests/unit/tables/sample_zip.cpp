#include "tests/unit/tables/sample_zip.h"

#include <zlib.h>

#include <cstddef>
#include <stdexcept>

namespace kelvane::tables_test {

namespace {

void Append(std::string& bytes, std::uint64_t value, int count) {
    for (; count > 0; --count, value >>= 8U) bytes += static_cast<char>(value & 0xFFU);
}

std::string Deflated(const std::string& content) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, -MAX_WBITS, 9, Z_DEFAULT_STRATEGY) !=
        Z_OK) {
        throw std::runtime_error("zlib cannot begin");
    }
    std::string packed(deflateBound(&stream, content.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
    stream.avail_in = static_cast<uInt>(content.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    const int result = deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    if (result != Z_STREAM_END) throw std::runtime_error("zlib cannot end");
    return packed;
}

}  // namespace

std::string MakeZip(const std::vector<ZipPart>& parts) {
    constexpr std::uint16_t kDeflate = 8;
    std::string bytes;
    std::string directory;
    for (const ZipPart& part : parts) {
        const std::string packed = part.deflated ? Deflated(part.content) : part.content;
        const auto* content = reinterpret_cast<const Bytef*>(part.content.data());
        std::string facts;
        Append(facts, 20, 2);
        Append(facts, part.flags, 2);
        Append(facts, part.deflated ? kDeflate : 0, 2);
        Append(facts, 0, 4);
        Append(facts,
               part.saidChecksum.value_or(static_cast<std::uint32_t>(
                   crc32(0, content, static_cast<uInt>(part.content.size())))),
               4);
        Append(facts, packed.size(), 4);
        Append(facts, part.saidSize.value_or(static_cast<std::uint32_t>(part.content.size())), 4);
        Append(facts, part.name.size(), 2);
        Append(facts, 0, 2);
        Append(directory, 0x02014B50, 4);
        Append(directory, 20, 2);
        directory += facts;
        Append(directory, 0, 10);
        Append(directory, bytes.size(), 4);
        directory += part.name;
        Append(bytes, 0x04034B50, 4);
        bytes += facts + part.name + packed;
    }
    const std::size_t begin = bytes.size();
    bytes += directory;
    Append(bytes, 0x06054B50, 4);
    Append(bytes, 0, 4);
    Append(bytes, parts.size(), 2);
    Append(bytes, parts.size(), 2);
    Append(bytes, directory.size(), 4);
    Append(bytes, begin, 4);
    Append(bytes, 0, 2);
    return bytes;
}

}  // namespace kelvane::tables_test
