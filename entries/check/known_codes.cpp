#include "entries/check/known_codes.h"

#include "data/text_conversion.h"
#include "platform/letter_case.h"

namespace kelvane::entries {

const std::string& ComparedTexts::Of(const std::string& text) {
    const auto known = mKnown.find(text);
    if (known != mKnown.end()) return known->second;
    return mKnown.emplace(text, platform::ComparedText(text)).first->second;
}

void KnownCodes::Add(const std::string& code) {
    mExact.emplace(code, code);
    const auto [known, isNew] = mCodes.emplace(mCompared.Of(code), code);
    if (!isNew && code < known->second) known->second = code;
}

KnownCodes::Match KnownCodes::Find(const std::string& code) const {
    const auto exact = mExact.find(code);
    if (exact != mExact.end()) return {&exact->second, nullptr};
    const auto same = mCodes.find(mCompared.Of(code));
    if (same != mCodes.end()) return {&same->second, &same->second};
    // A blank in front makes it another code.
    const auto similar = mCodes.find(mCompared.Of(data::Trim(code)));
    if (similar == mCodes.end()) return {};
    return {nullptr, &similar->second};
}

}  // namespace kelvane::entries
