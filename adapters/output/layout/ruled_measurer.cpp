#include "adapters/output/layout/ruled_measurer.h"

#include "adapters/output/layout/readable_text.h"

namespace kelvane::output {

namespace {

constexpr std::int64_t kNotAsked = -1;

// Letters that stand side by side whatever stands next to them.
bool StandsAlone(char32_t character) {
    struct Range {
        char32_t first;
        char32_t last;
    };
    static constexpr Range kRanges[] = {
        {0x20, 0x7E},     {0xA0, 0x2AF},    {0x391, 0x3C9},   {0x400, 0x45F},     {0x2010, 0x2027},
        {0x2030, 0x205E}, {0x20A0, 0x20BF}, {0x2100, 0x27BF}, {0x3000, 0x9FFF},   {0xF900, 0xFAFF},
        {0xFE30, 0xFE4F}, {0xFF00, 0xFFEF}, {0xFFFD, 0xFFFD}, {0x20000, 0x3FFFF},
    };
    for (const Range& range : kRanges) {
        if (character >= range.first && character <= range.last) return true;
    }
    return false;
}

int ThousandthsOf(std::int64_t units, int size) {
    constexpr std::int64_t kThousandthsOfInch = 25'400;
    constexpr std::int64_t kPointsOfInch = 72;
    return static_cast<int>(
        units * kThousandthsOfInch * size /
        (kPointsOfInch * LetterRuler::kUnitsPerPoint * LetterRuler::kLetterSize));
}

}  // namespace

RuledMeasurer::RuledMeasurer(RulerMaker makeRuler) : mMakeRuler(std::move(makeRuler)) {
    for (Advances& advances : mAdvances) advances.ascii.fill(kNotAsked);
}

LetterRuler& RuledMeasurer::Ruler() {
    if (!mRuler) mRuler = mMakeRuler();
    return *mRuler;
}

std::int64_t RuledMeasurer::AdvanceOf(const platform::Utf8Character& character,
                                      std::string_view bytes, bool bold) {
    Advances& advances = mAdvances[bold ? 1 : 0];
    std::int64_t& known =
        character.value < advances.ascii.size()
            ? advances.ascii[character.value]
            : advances.others.try_emplace(character.value, kNotAsked).first->second;
    if (known == kNotAsked) known = Ruler().Width(ReadableUtf8(bytes), bold);
    return known;
}

int RuledMeasurer::Width(std::string_view text, const Letters& letters) {
    std::int64_t units = 0;
    for (std::string_view rest = text; !rest.empty();) {
        const platform::Utf8Character next = platform::FirstCharacter(rest);
        if (!StandsAlone(next.value)) {
            return ThousandthsOf(Ruler().Width(ReadableUtf8(text), letters.bold), letters.size);
        }
        units += AdvanceOf(next, rest.substr(0, next.length), letters.bold);
        rest.remove_prefix(next.length);
    }
    return ThousandthsOf(units, letters.size);
}

}  // namespace kelvane::output
