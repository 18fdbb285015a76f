// KnownCodes: the codes of one kind of master data, and how near a stored code comes to one of
// them.
#pragma once

#include <string>
#include <unordered_map>

namespace kelvane::entries {

// ComparedText() of texts that come again and again.
class ComparedTexts {
public:
    const std::string& Of(const std::string& text);

private:
    std::unordered_map<std::string, std::string> mKnown;
};

class KnownCodes {
public:
    // `compared` outlives this.
    explicit KnownCodes(ComparedTexts& compared) : mCompared(compared) {}

    void Add(const std::string& code);

    struct Match {
        const std::string* known = nullptr;    // what the account takes it for; null: nothing
        const std::string* similar = nullptr;  // differs in blanks or letter case; null: nothing
    };
    Match Find(const std::string& code) const;

private:
    ComparedTexts& mCompared;
    std::unordered_map<std::string, std::string> mExact;
    // By the compared text; of several the first in the order of their bytes.
    std::unordered_map<std::string, std::string> mCodes;
};

}  // namespace kelvane::entries
