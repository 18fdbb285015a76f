#include "adapters/tables/string_items.h"

#include <charconv>

#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"
#include "platform/utf8.h"

namespace kelvane::tables {

namespace {

constexpr std::size_t kBlock = 1U << 20U;
static_assert(kBlock >= kMaxCellBytes);

class SharedReader : public XmlHandler {
public:
    explicit SharedReader(SharedStrings& strings) : mStrings(strings) {}

    bool Begin(std::string_view name, const XmlAttributes& attributes) override {
        if (mInItem) return mItem.Begin(name, attributes);
        mInItem = name == "si";
        return mInItem;
    }

    void End(std::string_view name) override {
        if (name != "si") return mItem.End(name);
        mInItem = false;
        mStrings.Add(mItem.Take());
    }

    void Text(std::string_view text) override {
        if (mInItem) mItem.Append(text);
    }

private:
    SharedStrings& mStrings;
    StringItem mItem;
    bool mInItem = false;
};

}  // namespace

std::string WithWrittenCharacters(std::string_view text) {
    constexpr std::string_view kMark = "_x";
    constexpr std::size_t kLength = 7;  // "_x000D_"
    constexpr std::size_t kDigits = 4;
    std::string whole;
    for (std::size_t at = text.find(kMark); at != std::string_view::npos; at = text.find(kMark)) {
        whole += text.substr(0, at);
        text.remove_prefix(at);
        std::uint32_t value = 0;
        const char* digits = text.data() + kMark.size();
        const bool complete = text.size() >= kLength && text[kLength - 1] == '_';
        const bool isWritten =
            complete &&
            std::from_chars(digits, digits + kDigits, value, 16).ptr == digits + kDigits;
        if (isWritten) {
            platform::AppendCharacter(whole, value);
        } else {
            whole += kMark;
        }
        text.remove_prefix(isWritten ? kLength : kMark.size());
    }
    return whole.append(text);
}

void StringItem::Clear() {
    mInText = false;
    mText.clear();
    mRun.clear();
}

bool StringItem::Begin(std::string_view name, const XmlAttributes& attributes) {
    if (name == "r") return true;
    if (name != "t") return false;
    mInText = true;
    mKeepsBlanks = attributes.Find("space", "/namespace") == "preserve";
    return true;
}

void StringItem::End(std::string_view name) {
    if (name != "t") return;
    mInText = false;
    mText += mKeepsBlanks ? mRun : WithoutXmlBlanks(mRun);
    mRun.clear();
}

void StringItem::Append(std::string_view text) {
    if (!mInText) return;
    mRun += text;
    if (mRun.size() + mText.size() > kMaxCellBytes) throw Refusal("一个单元格中的文字太长");
}

std::string StringItem::Take() {
    std::string text =
        mText.find("_x") == std::string::npos ? std::move(mText) : WithWrittenCharacters(mText);
    Clear();
    return text;
}

void SharedStrings::Read(ZipArchive& archive, std::string_view name) {
    SharedReader reader(*this);
    ReadXml(archive, name, "sst", reader);
}

void SharedStrings::Add(std::string_view text) {
    if (mPlaces.size() == kMaxSharedTexts) throw Refusal("文字太多");
    if (mBlocks.empty() || mBlocks.back().size() + text.size() > kBlock) {
        if ((mBlocks.size() + 1) * kBlock > kMaxSharedBytes) throw Refusal("文字太多");
        mBlocks.emplace_back().reserve(kBlock);
    }
    const std::size_t begin = (mBlocks.size() - 1) * kBlock + mBlocks.back().size();
    mPlaces.push_back({static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(text.size())});
    mBlocks.back() += text;
}

std::string_view SharedStrings::At(int number) const {
    const auto at = static_cast<std::size_t>(number);
    if (at >= mPlaces.size()) throw Refusal("已损坏：缺少单元格的文字");
    const Place& place = mPlaces[at];
    return std::string_view(mBlocks[place.begin / kBlock])
        .substr(place.begin % kBlock, place.length);
}

}  // namespace kelvane::tables
