// Texts as a workbook keeps them: plain or in runs of several fonts, with hints of how they are
// spoken, which are no part of them, and characters that XML does not have written as "_x000D_".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/tables/xml_stream.h"
#include "adapters/tables/zip_archive.h"

namespace kelvane::tables {

// `text` with the characters that were written by their numbers.
std::string WithWrittenCharacters(std::string_view text);

// Gathers the text of one item, whose <t> stand in it or in its runs <r>.
class StringItem {
public:
    void Clear();
    // What happens right within the item; answers as an XmlHandler does.
    bool Begin(std::string_view name, const XmlAttributes& attributes);
    void End(std::string_view name);
    // Throws Refusal when there is too much of it.
    void Append(std::string_view text);

    std::string Take();

private:
    bool mInText = false;
    bool mKeepsBlanks = false;
    std::string mText;
    std::string mRun;
};

// The texts that all sheets share, by their number.
class SharedStrings {
public:
    // Reads the part `name`. Throws Refusal.
    void Read(ZipArchive& archive, std::string_view name);

    // Throws Refusal when there is none of that number.
    std::string_view At(int number) const;
    std::size_t Count() const { return mPlaces.size(); }

    void Add(std::string_view text);

private:
    struct Place {
        std::uint32_t begin = 0;  // counted through all blocks
        std::uint32_t length = 0;
    };

    std::vector<std::string> mBlocks;
    std::vector<Place> mPlaces;
};

}  // namespace kelvane::tables
