// The sheets of entries and of detail lines as they are written: the window's titles in its order,
// each column for what is typed into it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "entries/bulk/table_shape.h"
#include "host/bulk/account_choices.h"
#include "platform/table_file.h"

namespace kelvane::host {

// What a workbook of stored entries notes of itself: which account it is of, and the version of its
// layout.
inline constexpr std::string_view kAccountProperty = "kelvane.account";
inline constexpr std::string_view kLayoutProperty = "kelvane.layout";
inline constexpr std::string_view kLayoutVersion = "1";

// What the account itself names: how its windows call an item's name, and the keyword fields of its
// item class, at most two.
struct AccountTitles {
    std::string itemName;
    std::vector<entries::KeywordField> keywords;
};

// Of the account that is logged in to. Over gEnv; throws platform::DatabaseError.
AccountTitles TitlesOfAccount();

// What a column is called when it is written: as the windows show it.
std::string TitleOf(const entries::TableColumn& column, const AccountTitles& titles);

// The column as it is written under `title`, without a list.
platform::TableFileColumn FileColumnOf(const entries::TableShape& shape,
                                       const entries::TableColumn& column, std::string title);

// 期初 with its columns up to `last`, an entries::EntryTableColumn; without rows.
platform::TableFileSheet EntrySheet(const AccountTitles& titles, const AccountChoices& choices,
                                    int last);
// 明细; without rows.
platform::TableFileSheet LineSheet(const AccountChoices& choices);

// The shape's columns up to `last` in the order in which they are written.
std::vector<entries::TableColumn> WrittenColumns(const entries::TableShape& shape, int last);

}  // namespace kelvane::host
