// ToolbarForm: what both list windows have in common, a plain toolbar and the suite's toolbar-style
// control over it, and how the machine's setting and the keys reach them.
#pragma once

#include <cstdint>
#include <string>

#include "controls/form.h"
#include "controls/toolbar.h"
#include "controls/toolbar_style_control.h"

namespace kelvane::ui {

// Numbers of the pictures in the component's resources.
enum PictureNumber {
    kPicturePrint = 100,
    kPicturePreview = 101,
    kPictureOutput = 102,
    kPictureAddnew = 103,
    kPictureDelete = 104,
    kPictureFind = 105,
    kPictureWindow = 106,
    kPictureQuit = 107,
    kPictureReference = 108,
    kPictureSave = 109,
    kPictureHelp = 110,
};

class ToolbarForm : public controls::Form {
public:
    explicit ToolbarForm(std::string name);

    controls::Toolbar Toolbar1;
    controls::ToolbarStyleControl CTBCtrl1;

    // A click on `button`, or a keystroke that stands for one.
    virtual void Toolbar1_ButtonClick(controls::ToolbarButton& button) = 0;
    // Lays the controls out below the visible toolbar.
    void Form_Resize() override = 0;

protected:
    // The toolbar-style control's relayed click: the button of Toolbar1 with that key is clicked.
    void CTBCtrl1_Click(const std::string& key, const std::string& caption);
};

// The help file that the windows' help key opens, below the host's folder.
std::string HelpFilePath();

// Style number of the machine's toolbar setting: 1 (suite, also without a setting) or 2 (plain).
std::int16_t ReadToolbarStyle();

// Arranges the form's toolbars by gToolbarStyle. Errors are trapped.
void ApplyToolbarStyle(ToolbarForm& form);

// Gives each button of the form's toolbar the keystroke that SetToolbarButtons takes for it.
void NameToolbarKeys(ToolbarForm& form);

// Clicks the toolbar button that `key` with `shift` stands for, when it is enabled and visible, and
// sets the key to Key::None then. Errors of the click are trapped.
void SetToolbarButtons(ToolbarForm& form, platform::Key& key, int shift);

}  // namespace kelvane::ui
