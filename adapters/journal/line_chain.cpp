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

std::string LineChain::Start() const {
    return R"({"batch":)" + std::to_string(mBatch) + R"(,"line":)" + std::to_string(mLine) +
           R"(,"previous":")" + mPrevious + '"';
}

std::string LineChain::Seal(const Json& content) {
    return SealText(content.dump());
}

std::string LineChain::SealText(std::string_view content) {
    std::string text = Start();
    text.append(1, ',').append(content.substr(1));
    const std::string checksum = ChecksumOf(text);
    text.pop_back();
    text.append(kSealStart).append(checksum).append(kSealEnd);
    if (text.size() > kMaxLineLength) Fail("太长");
    Advance(checksum);
    text += '\n';
    return text;
}

std::string LineChain::Open(std::string_view line) {
    if (!EndsLine(line)) Fail("已损坏（没有校验值）");
    std::string text = std::string(line.substr(0, line.size() - kSealLength)) + '}';
    const std::string_view checksum = ChecksumIn(line);
    if (ChecksumOf(text) != checksum) Fail("已损坏（校验值不符）");
    NeedPlace(text);
    Advance(checksum);
    return text;
}

Json LineChain::Parsed(const std::string& text) {
    return Json::parse(text);
}

void LineChain::NeedPlace(const std::string& text) const try {
    if (text.starts_with(Start())) return;
    const Json line = Parsed(text);
    const int batch = line.at("batch").get<int>();
    const int place = line.at("line").get<int>();
    if (batch != mBatch) Fail("是第 " + std::to_string(batch) + " 批的");
    if (place != mLine) Fail("不在其位：这是第 " + std::to_string(place) + " 行");
    if (line.at("previous").get<std::string>() != mPrevious) Fail("与上一行不相接");
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
