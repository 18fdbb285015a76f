// A window's toolbar as one table: for each button its key, caption and picture, and the keystroke
// that stands for a click. The windows' tables hold these entries beside what a click does.
#pragma once

#include <string>
#include <string_view>

#include "controls/toolbar.h"
#include "platform/keys.h"
#include "ui/common/toolbar_form.h"

namespace kelvane::ui {

// A keystroke that stands for a click; none with Key::None.
struct ToolbarStroke {
    platform::Key key = platform::Key::None;
    bool needsCtrl = false;
};

// A button of a toolbar; without a key it is a separator.
struct ToolbarEntry {
    std::string_view key;
    std::string_view caption;
    // Key and picture number of its image.
    std::string_view image;
    int picture = 0;
    ToolbarStroke stroke = {};
    // Whether the context menu offers it too.
    bool inMenu = true;
};

inline platform::KeyStroke StrokeOf(const ToolbarStroke& stroke) {
    return {stroke.key, stroke.needsCtrl ? platform::kCtrl : 0};
}

// Makes an action of the form's button `entry`: a click on it, possible while the button can be
// clicked. The action names the key that the button has by now, which stays with the window's key
// rules.
void AddToolbarAction(ToolbarForm& form, const ToolbarEntry& entry, bool startsGroup);

// Adds the buttons and separators of `commands`, each of which has an `entry`, to `toolbar`.
template <typename Commands>
void AddToolbarButtons(controls::Toolbar& toolbar, const Commands& commands) {
    for (const auto& command : commands) {
        const ToolbarEntry& entry = command.entry;
        if (entry.key.empty()) {
            toolbar.AddSeparator();
        } else {
            toolbar.AddButton(std::string(entry.key), std::string(entry.caption));
            toolbar.Button(entry.key)->SetStroke(StrokeOf(entry.stroke));
        }
    }
}

// Loads the toolbar's images anew and gives each button its own.
template <typename Commands>
void ShowToolbarImages(controls::Toolbar& toolbar, const Commands& commands) {
    toolbar.ClearImages();
    for (const auto& command : commands) {
        const ToolbarEntry& entry = command.entry;
        if (!entry.key.empty()) toolbar.AddImage(std::string(entry.image), entry.picture);
    }
    for (const auto& command : commands) {
        const ToolbarEntry& entry = command.entry;
        if (!entry.key.empty()) toolbar.Button(entry.key)->SetImage(std::string(entry.image));
    }
}

// Makes actions of the buttons of `commands`, those of the toolbar between two separators a group.
template <typename Commands>
void AddToolbarActions(ToolbarForm& form, const Commands& commands) {
    bool startsGroup = true;
    for (const auto& command : commands) {
        const ToolbarEntry& entry = command.entry;
        if (!entry.key.empty()) AddToolbarAction(form, entry, startsGroup);
        startsGroup = entry.key.empty();
    }
}

// The command of the button with that key; null when there is none.
template <typename Commands>
auto FindToolbarCommand(const Commands& commands, std::string_view key) -> decltype(&commands[0]) {
    for (const auto& command : commands) {
        if (!key.empty() && command.entry.key == key) return &command;
    }
    return nullptr;
}

}  // namespace kelvane::ui
