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

const ReplacedEntry* SaveNotes::ReplacedIn(std::int32_t identity) const {
    const auto note = std::find_if(mNotes.begin(), mNotes.end(), [&](const Note& candidate) {
        return candidate.identity == identity;
    });
    return note == mNotes.end() ? nullptr : &note->replaced;
}

std::int32_t SaveNotes::LastReplaced() const {
    const auto last = std::find_if(mNotes.rbegin(), mNotes.rend(),
                                   [](const Note& candidate) { return candidate.told; });
    return last == mNotes.rend() ? 0 : last->identity;
}

void SaveNotes::Forget(std::int32_t identity) {
    std::erase_if(mNotes, [&](const Note& note) { return note.identity == identity; });
}

void SaveNotes::WasSeen(std::int32_t identity) {
    for (Note& note : mNotes) note.told = note.told && note.identity != identity;
}

void SaveNotes::AllWereSeen() {
    for (Note& note : mNotes) note.told = false;
}

std::string SaveNotes::Text() const {
    const std::int32_t last = LastReplaced();
    if (last == 0) return {};
    std::string text = "该行在打开后被他人修改，已按当前内容保存：";
    std::string others;
    std::size_t count = 0;
    for (auto note = mNotes.rbegin(); note != mNotes.rend(); ++note) {
        if (!note->told) continue;
        if (note->identity == last) {
            text += note->name;
            continue;
        }
        if (count < kNamed) others += (count == 0 ? "" : "、") + std::to_string(note->identity);
        ++count;
    }
    if (count > 0) {
        text += "，此前还有 " + std::to_string(count) + " 行（期初编号 " + others +
                (count > kNamed ? " 等）" : "）");
    }
    return text + "。按 Ctrl+Z 查看他人的内容，按 Esc 不再提示。";
}

}  // namespace kelvane::ui
