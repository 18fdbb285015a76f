// frmImportColumns: asks the operator which column of a table is which, where its titles do not say
// it.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "entries/bulk/table_reading.h"
#include "entries/bulk/table_shape.h"
#include "platform/table.h"
#include "ui/import/column_choice.h"

namespace kelvane::ui {

// Which sheet is meant, and what stands where in it.
struct ChosenColumns {
    std::size_t sheet = 0;
    entries::GivenColumns columns;
};

class frmImportColumns : public controls::Form {
public:
    using RowsOfSheet = std::function<std::vector<platform::TableRow>(std::size_t sheet)>;

    // One of `sheets` is a table of `shape`; `firstRows` gives the first rows of one.
    frmImportColumns(const std::vector<platform::TableSheet>& sheets, RowsOfSheet firstRows,
                     const entries::TableShape& shape);

    controls::Label lblSheet;
    controls::ComboBox cboSheet;
    controls::Label lblTitles;
    controls::ComboBox cboTitles;
    controls::Grid GridColumns;
    controls::Button cmdOK;
    controls::Button cmdCancel;

    // Shows the dialog; nothing when it was not left by OK. `known`: what it begins with; where
    // that is nothing, what the titles of `sheet` say, as far as they say it.
    std::optional<ChosenColumns> Ask(std::size_t sheet, const std::optional<ChosenColumns>& known);

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    void TakeSheet(std::size_t sheet, const ChosenColumns* known);
    void ShowSheet();
    void ShowPlaces();
    void ShowSample(int row);
    int PlaceIn(int row) const;
    void TakePlace(int row, std::string& text);
    void cboSheet_Change();
    void cboTitles_Change();
    void cmdOK_Click();

    const std::vector<platform::TableSheet>& mSheets;
    RowsOfSheet mFirstRows;
    std::size_t mSheet = 0;
    ColumnChoice mChoice;
    std::optional<ChosenColumns> mAnswer;
};

}  // namespace kelvane::ui
