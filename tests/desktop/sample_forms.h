// Forms like the component's, for trying the drawing and the way of keys without the component.
#pragma once

#include <string>
#include <vector>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/picture.h"
#include "controls/toolbar.h"
#include "controls/toolbar_style_control.h"

namespace kelvane::test {

// A list with both toolbars, a title strip, a grid and a button that lies over a cell.
class ListForm : public controls::Form {
public:
    explicit ListForm(int rows = 40, bool suite = true);

    controls::Picture strip{*this, "Picture1"};
    controls::Label title{*this, "CapLable"};
    controls::Toolbar toolbar{*this, "Toolbar1"};
    controls::ToolbarStyleControl style{*this, "CTBCtrl1"};
    controls::Grid grid{*this, "Grid"};
    controls::Button detail{*this, "cmdRef"};

    // What was raised, one line each.
    std::vector<std::string> events;
    // The form's key handler consumes every key but these two in column 3.
    bool guardColumn3 = false;
    char32_t refusedCharacter = 0;

    void Form_Resize() override;

protected:
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Form_KeyPress(char32_t& character) override;
    void Form_KeyUp(platform::Key& key, int shift) override;

private:
    void FillGrid(int rows);
    void FillToolbar();
};

// A dialog with an edit box, a combo box and two buttons.
class FieldForm : public controls::Form {
public:
    FieldForm();

    controls::Label codeLabel{*this, "Label1"};
    controls::EditBox code{*this, "TxtCode"};
    controls::Button reference{*this, "ComdRef"};
    controls::Label keyLabel{*this, "Label2"};
    controls::ComboBox key{*this, "ComKey1"};
    controls::Button ok{*this, "CmdOK"};
    controls::Button cancel{*this, "CmdCancel"};

    std::vector<std::string> events;
};

}  // namespace kelvane::test
