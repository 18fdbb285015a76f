#include "adapters/journal/line_chain.h"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "adapters/journal/crc32.h"

namespace kelvane::journal {

namespace {

constexpr std::size_t kHexLength = 8;
constexpr std::string_view kSealStart = R"(,"crc":")";
constexpr std::string_view kSealEnd = R"("})";
constexpr std::size_t kSealLength = kSealStart.size() + kHexLength + kSealEnd.size();

std::string ChecksumOf(std::string_view text) {
    std::array<char, kHexLength + 1> hex{};
    std::snprintf(hex.data(), hex.size(), "%08x", static_cast<unsigned>(Crc32(text)));
    return hex.data();
}

std::string_view ChecksumIn(std::string_view line) {
    return line.substr(line.size() - kSealEnd.size() - kHexLength, kHexLength);
}

}  // namespace

std::string LineChain::Seal(const Json& content) {
    Json line = {{"batch", mBatch}, {"line", mLine}, {"previous", mPrevious}};
    line.update(content);
    std::string text = line.dump();
    const std::string checksum = ChecksumOf(text);
    text.pop_back();
    text.append(kSealStart).append(checksum).append(kSealEnd);
    if (text.size() > kMaxLineLength) Fail("太长");
    Advance(checksum);
    return text + '\n';
}

Json LineChain::Open(std::string_view line) try {
    if (!EndsLine(line)) Fail("已损坏（没有校验值）");
    const std::string unsealed = std::string(line.substr(0, line.size() - kSealLength)) + '}';
    const std::string_view checksum = ChecksumIn(line);
    if (ChecksumOf(unsealed) != checksum) Fail("已损坏（校验值不符）");
    Json content = Json::parse(unsealed);
    const int batch = content.at("batch").get<int>();
    const int place = content.at("line").get<int>();
    if (batch != mBatch) Fail("是第 " + std::to_string(batch) + " 批的");
    if (place != mLine) Fail("不在其位：这是第 " + std::to_string(place) + " 行");
    if (content.at("previous").get<std::string>() != mPrevious) Fail("与上一行不相接");
    Advance(checksum);
    return content;
} catch (const nlohmann::json::exception& strange) {
    Fail("的内容看不懂");
}

bool LineChain::EndsLine(std::string_view text) {
    return text.size() > kSealLength && text.ends_with(kSealEnd) &&
           text.substr(text.size() - kSealLength).starts_with(kSealStart);
}

void LineChain::Fail(const std::string& what) const {
    throw Fault{"第 " + std::to_string(mLine) + " 行" + what};
}

void LineChain::Advance(std::string_view checksum) {
    ++mLine;
    mPrevious = checksum;
}

}  // namespace kelvane::journal
