// The names of keys, the same in operator scripts and in sent keys, with a screen and without one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/keys.h"

namespace kelvane::platform {

// The stroke that types `character`.
KeyStroke StrokeOf(char32_t character);

// The strokes that type `text`, which is UTF-8; bytes that are no UTF-8 are left out.
std::vector<KeyStroke> StrokesOf(std::string_view text);

// The stroke of a named key, without regard to letter case: "F2", "Ctrl+Shift+P", "Delete" or
// "Del", "PageDown" or "PgDn", "a", "7"; with Ctrl or Alt it types nothing. Nothing for an unknown
// name.
std::optional<KeyStroke> FindKey(std::string_view name);

// The name of a stroke as menus show it: "Ctrl+Shift+G", "Esc", "Ctrl++"; empty for Key::None and
// for keys without a name.
std::string NameOfKey(const KeyStroke& stroke);

// What a button does with the key that does the same: "打印 (Ctrl+P)", "Ctrl+P" without a caption;
// empty when there is no such key.
std::string CaptionWithKey(const std::string& caption, const KeyStroke& stroke);

// The strokes of a text for Windows::SendKeys: characters for themselves, keys' names in braces. An
// unknown name between braces sends nothing.
std::vector<KeyStroke> ParseSentKeys(std::string_view keys);

}  // namespace kelvane::platform
