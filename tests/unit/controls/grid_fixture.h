// A grid in a form, with every notification noted in the order it is raised.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "controls/grid.h"

namespace kelvane::controls {

// A form that notes what its handlers threw.
class NotingForm : public Form {
public:
    NotingForm() : Form("frmGrid") {}
    std::vector<std::string> trapped;

protected:
    void Trapped(std::string_view place, std::string_view detail) noexcept override {
        trapped.push_back(std::string(place) + ": " + std::string(detail));
    }
};

// Columns 0 (fixed), 1 date, 2 text of at most 5 characters with a reference button, 3 text with a
// drop-down list, 4 number. Rows 1 to 3 have the texts "1a" … "3d".
class GridTest : public testing::Test {
protected:
    GridTest() {
        grid.SetCols(5);
        grid.SetRows(1);
        for (const char* row : {"1", "2", "3"}) {
            std::string cells;
            for (const char* column : {"a", "b", "c", "d"})
                cells += '\t' + std::string(row) + column;
            grid.AddItem(cells);
        }
        grid.SetColumnInput(1, {.kind = InputKind::Date});
        grid.SetColumnInput(2, {.kind = InputKind::Text, .maxLength = 5});
        grid.SetColumnInput(4, {.kind = InputKind::Number});
        grid.SetColumnReference(2, true);
        grid.SetColumnList(3, true);
        NoteEverything();
    }

    // Makes a cell current without a note of it.
    void At(int row, int col) {
        grid.SetRow(row);
        grid.SetCol(col);
        notes.clear();
    }
    void Lock(int row, int col) { grid.SetCellColor(row, col, grid.LockedColor()); }
    void LockRow(int row) {
        for (int col = 1; col < grid.Cols(); ++col) Lock(row, col);
    }
    // The notes since the last call.
    std::vector<std::string> Notes() { return std::exchange(notes, {}); }
    // The cells of a row from column 1, joined by "|".
    std::string Row(int row) const {
        std::string cells;
        for (int col = 1; col < grid.Cols(); ++col) {
            cells += (col > 1 ? "|" : "") + grid.Text(row, col);
        }
        return cells;
    }
    std::string Cell() const { return Place(grid.Row(), grid.Col()); }
    void Type(std::string_view text) {
        for (const char character : text) {
            grid.KeyPress(static_cast<unsigned char>(character));
        }
    }

    NotingForm form;
    Grid grid{form, "Grid"};
    std::vector<std::string> notes;

    // What the handlers answer.
    GridAnswer cellAnswer = GridAnswer::Accept;
    GridAnswer rowAnswer = GridAnswer::Accept;
    int rowColumn = 0;      // the column that RowValidate hands back; 0 leaves it
    std::string validated;  // text that CellValidate puts in place of the new one
    std::string referenced = "ref";
    bool throwing = false;

private:
    static std::string Place(int row, int col) {
        return std::to_string(row) + " " + std::to_string(col);
    }
    void Note(const std::string& note) { notes.push_back(note); }
    void NoteEverything() {
        grid.CellReference = [this](std::string& value, int row, int col) {
            Note("CellReference " + value + " " + Place(row, col));
            if (throwing) throw std::runtime_error("no list");
            value = referenced;
        };
        grid.CellValidate = [this](std::string& text, GridAnswer& answer, int row, int col) {
            Note("CellValidate " + text + " " + Place(row, col) + " cell=" + grid.Text(row, col));
            if (throwing) throw std::runtime_error("no check");
            if (!validated.empty()) text = validated;
            answer = cellAnswer;
        };
        grid.RowValidate = [this](GridAnswer& answer, int row, int& col) {
            Note("RowValidate " + Place(row, col));
            if (throwing) throw std::runtime_error("no save");
            if (rowColumn != 0) col = rowColumn;
            answer = rowAnswer;
        };
        grid.ComboDropDown = [this](int row, int col, GridDropList& list) {
            Note("ComboDropDown " + Place(row, col));
            list.AddItem("one");
            list.AddItem("");
        };
        grid.EditModeChange = [this](bool editing) {
            Note(editing ? "EditModeChange on" : "EditModeChange off");
        };
        grid.CellChanged = [this](int row, int col, const std::string& before,
                                  const std::string& after) {
            Note("CellChanged " + Place(row, col) + " " + before + ">" + after);
        };
        grid.EnterCell = [this] { Note("EnterCell " + Cell()); };
        grid.EditCheck = [this] { Note("EditCheck " + Cell()); };
        grid.DetailReset = [this] { Note("DetailReset"); };
        grid.ViewChange = [this] { Note("ViewChange"); };
        grid.AbandonRow = [this](int row) { Note("AbandonRow " + std::to_string(row)); };
        grid.Beep = [this] { Note("Beep"); };
        form.Refused = [this](Control& control, int row, int col) {
            EXPECT_EQ(&control, &grid);
            Note("refused " + Place(row, col));
        };
    }
};

}  // namespace kelvane::controls
