// The sheets of entries and of detail lines as they are written: the window's titles in its order,
// each column for what is typed into it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "entries/bulk/account_choices.h"
#include "entries/bulk/account_titles.h"
#include "entries/bulk/table_shape.h"
#include "platform/table_file.h"

namespace kelvane::host {

// What a column is called when it is written: as the windows show it.
std::string TitleOf(const entries::TableColumn& column, const entries::AccountTitles& titles);

// The column as it is written under `title`, without a list.
platform::TableFileColumn FileColumnOf(const entries::TableShape& shape,
                                       const entries::TableColumn& column, std::string title);

// 期初 with its columns up to `last`, an entries::EntryTableColumn; without rows.
platform::TableFileSheet EntrySheet(const entries::AccountTitles& titles,
                                    const entries::AccountChoices& choices, int last);
// 明细; without rows.
platform::TableFileSheet LineSheet(const entries::AccountChoices& choices);

// The shape's columns up to `last` in the order in which they are written.
std::vector<entries::TableColumn> WrittenColumns(const entries::TableShape& shape, int last);

}  // namespace kelvane::host
