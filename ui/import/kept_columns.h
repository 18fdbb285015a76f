// KeptColumns: which column of a table is which, as the operator said it the last time that a table
// had the same titles.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "entries/bulk/table_reading.h"
#include "entries/bulk/table_shape.h"
#include "platform/table.h"
#include "platform/user_settings.h"

namespace kelvane::ui {

class KeptColumns {
public:
    // Without `settings`, which outlive the object, nothing is kept.
    explicit KeptColumns(platform::UserSettings* settings) : mSettings(settings) {}

    // What was kept for the titles in one of the rows; nothing when none of them is known.
    std::optional<entries::GivenColumns> Find(const std::vector<platform::TableRow>& rows,
                                              const entries::TableShape& shape) const;
    // Keeps `columns` for the titles in `titles`.
    void Keep(const platform::TableRow& titles, const entries::TableShape& shape,
              const entries::GivenColumns& columns);

private:
    platform::UserSettings* mSettings;
};

}  // namespace kelvane::ui
