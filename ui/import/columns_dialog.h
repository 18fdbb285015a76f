// frmImportColumns: asks the operator which column of a table is which, where its titles do not say
// it.
#pragma once

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

namespace kelvane::ui {

class frmImportColumns : public controls::Form {
public:
    // `rows`: the first ones of the table, which has `what` in it.
    frmImportColumns(const std::string& what, const std::vector<platform::TableRow>& rows,
                     const entries::TableShape& shape);

    controls::Label lblTitles;
    controls::ComboBox cboTitles;
    controls::Grid GridColumns;
    controls::Button cmdOK;
    controls::Button cmdCancel;

    // Shows the dialog; nothing when it was not left by OK. `first`: what it begins with; where
    // that is nothing, what the titles say, as far as they say it.
    std::optional<entries::GivenColumns> Ask(const std::optional<entries::GivenColumns>& first);

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    const platform::TableRow* TitleRow() const;
    std::string NameOfPlace(int place) const;
    std::string SampleOf(int place) const;
    int PlaceNamed(const std::string& text) const;
    void ChooseColumns();
    void ProposeTitleRow();
    void ProposePlaces();
    void ShowPlaces();
    void TakePlace(int row, std::string& text);
    void cboTitles_Change();
    void cmdOK_Click();

    const std::vector<platform::TableRow>& mRows;
    std::vector<entries::TableColumn> mColumns;  // in the order in which they are shown
    const entries::TableShape& mShape;
    std::vector<int> mPlaces;  // by mColumns
    int mWidestRow = 0;
    int mTitleRow = 0;  // its number; 0: none
    std::optional<entries::GivenColumns> mAnswer;
};

}  // namespace kelvane::ui
