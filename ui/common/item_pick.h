// The items of a duty centre with their keywords, to choose from.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kelvane::ui {

struct PickedItem {
    std::string code;
    std::string name;
    std::string key1;  // of item classes that have it
    std::string key2;
};

// Whether there is a centre whose items can be shown; false after a message.
bool HasCenterForItem(const std::string& centerCode);

// The pick list of the centre's items, which opens on `present`; nothing when none was chosen. The
// list's statement is run over gConn by the pick-list service. Errors are thrown.
std::optional<PickedItem> PickItemOfCenter(const std::string& centerCode,
                                           const std::string& present);

// What the centre's item can have in keyword column `column`, kKey1Column or kKey2Column; empty
// when the item class has no such keyword. Over gConn; errors are thrown.
std::vector<std::string> KeywordsOfItem(const std::string& centerCode, const std::string& itemCode,
                                        int column);

}  // namespace kelvane::ui
