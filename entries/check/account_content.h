// AccountContent: what the check compares, read from the account as it stands. A value that cannot
// be read is none, so that the rest of its row can be looked at.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/date_time.h"
#include "platform/money.h"
#include "platform/value.h"

namespace kelvane::entries {

struct AccountEntry {
    std::int64_t identity = 0;
    std::optional<platform::DateTime> date;
    std::string center;
    std::string item;
    std::string key1;
    std::string key2;
    std::string element;
    std::string digest;
    std::optional<platform::Money> amount;
};

struct StoredLine {
    std::optional<std::int64_t> identity;  // of its entry
    std::string code;
    std::optional<platform::Money> price;
    std::optional<double> quantity;
    std::optional<platform::Money> amount;
};

// A duty centre's item under its keywords.
struct CenterItem {
    std::string center;
    std::string item;
    std::string key1;
    std::string key2;
};

struct StoredElement {
    std::string code;
    std::optional<std::int64_t> detail;
};

// A part of an item that can be closed.
struct ItemPart {
    std::string item;
    std::optional<bool> closed;
    std::optional<std::string> end;  // "yyyy.mm.dd", empty without a date; none: unreadable
    platform::Value key1;
    platform::Value key2;
};

// A budget line that controls, of a detail code where there is one; none: it cannot be read.
struct StoredBudget {
    std::string item;
    std::string element;
    std::string code;
    std::optional<bool> controls;
    std::optional<platform::Money> money;
    std::optional<double> quantity;
};

struct AccountContent {
    std::vector<AccountEntry> entries;  // by identity
    std::vector<StoredLine> lines;      // by identity, those without one first, then by code
    std::vector<std::string> items;
    std::vector<std::string> centers;
    std::vector<CenterItem> centerItems;
    std::vector<StoredElement> elements;
    std::vector<std::string> equipment;
    std::vector<std::string> inventory;
    std::vector<ItemPart> itemParts;  // in the account's order
    // The versions in control, and the budgets of the one when it is one.
    std::vector<std::int64_t> versions;
    std::vector<StoredBudget> budgets;
    std::vector<StoredBudget> lineBudgets;
    // The counter's row; its text.
    std::optional<std::string> counter;
};

// Over gConn, with a number of statements that depends on no number of rows. Throws
// platform::DatabaseError and its kin.
AccountContent ReadAccountContent();

}  // namespace kelvane::entries
