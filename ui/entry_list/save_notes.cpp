#include "ui/entry_list/save_notes.h"

#include <algorithm>
#include <cstddef>

namespace kelvane::ui {

namespace {

// How many entries the notice names beside the last one.
constexpr std::size_t kNamed = 5;

}  // namespace

void SaveNotes::AddReplaced(std::int32_t identity, std::string name, ReplacedEntry replaced) {
    mNotes.push_back(
        {.identity = identity, .name = std::move(name), .replaced = std::move(replaced)});
}

void SaveNotes::AddOverrun(std::int32_t identity, std::string name) {
    mNotes.push_back({.identity = identity, .name = std::move(name), .replaced = {}});
}

const ReplacedEntry* SaveNotes::ReplacedIn(std::int32_t identity) const {
    const auto note = std::find_if(mNotes.begin(), mNotes.end(), [&](const Note& candidate) {
        return candidate.replaced && candidate.identity == identity;
    });
    return note == mNotes.end() ? nullptr : &*note->replaced;
}

std::int32_t SaveNotes::LastReplaced() const {
    const auto last = std::find_if(mNotes.rbegin(), mNotes.rend(), [](const Note& candidate) {
        return candidate.replaced && candidate.told;
    });
    return last == mNotes.rend() ? 0 : last->identity;
}

void SaveNotes::Forget(std::int32_t identity) {
    std::erase_if(mNotes, [&](const Note& note) { return note.identity == identity; });
}

void SaveNotes::WasSeen(std::int32_t identity) {
    for (Note& note : mNotes) {
        if (note.replaced && note.identity == identity) note.told = false;
    }
}

void SaveNotes::AllWereSeen() {
    for (Note& note : mNotes) note.told = false;
}

// The last one of its kind, and how many there are besides.
std::string SaveNotes::Named(bool replaced) const {
    std::string last;
    std::string others;
    std::size_t count = 0;
    for (auto note = mNotes.rbegin(); note != mNotes.rend(); ++note) {
        if (!note->told || note->replaced.has_value() != replaced) continue;
        if (last.empty()) {
            last = note->name;
            continue;
        }
        if (count < kNamed) others += (count == 0 ? "" : "、") + std::to_string(note->identity);
        ++count;
    }
    if (count == 0) return last;
    return last + "，此前还有 " + std::to_string(count) + " 行（期初编号 " + others +
           (count > kNamed ? " 等）" : "）");
}

// The keys come before the entries: a line that is too long is cut at its end.
std::string SaveNotes::Text() const {
    const std::string overrun = Named(false);
    const std::string replaced = Named(true);
    std::string text;
    if (!overrun.empty()) {
        text += "与他人同时保存，金额合计已超出项目预算，请核对（Esc 不再提示）：" + overrun + "。";
    }
    if (!replaced.empty()) {
        text +=
            "该行在打开后被他人修改，已按当前内容保存（Ctrl+Z 查看他人的内容，Esc 不再提示）：" +
            replaced + "。";
    }
    return text;
}

}  // namespace kelvane::ui
