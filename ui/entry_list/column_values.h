// frmColumnValues: the values that a column of the list has, with the number of rows of each, of
// which the operator chooses the one to filter by. What he types narrows them at once.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/button.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/pick_window.h"

namespace kelvane::ui {

class frmColumnValues : public controls::Form, public controls::PickWindow {
public:
    // The values of the rows that `list` shows of its column `col`.
    frmColumnValues(const controls::Grid& list, int col);

    controls::Label lblSearch;
    controls::EditBox txtSearch;
    controls::Button cmdOK;
    controls::Button cmdCancel;
    controls::Grid GridValues;

    // Shows the window; nothing when it was left without a choice. Blank rows have an empty value.
    std::optional<std::string> Ask();

    controls::PickWindow* AsPickWindow() override { return this; }
    std::vector<std::string> Titles() const override;
    std::vector<std::vector<std::string>> ShownRows() const override;
    void Choose(std::optional<std::size_t> row) override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    void FillFrom(const controls::Grid& list, int col);
    void Narrow();
    void ShowFirst();

    std::string mPresent;
    std::optional<std::string> mChosen;
};

}  // namespace kelvane::ui
