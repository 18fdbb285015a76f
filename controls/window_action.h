// WindowAction: one thing that the operator can do in a window beside its toolbar and its key
// rules. The same table handles the key, makes the context menu and the page of keys.
#pragma once

#include <functional>
#include <string>

#include "platform/keys.h"

namespace kelvane::controls {

// A line of the page of keys: keys by their names, and what they do.
struct KeyLine {
    std::string keys;
    std::string does;
};

struct WindowAction {
    // The key that runs it; none with Key::None. Its character does not matter.
    platform::KeyStroke stroke = {};
    // False: the window's own key rules handle the key, which is only shown here.
    bool takesKey = true;
    // What the context menu and the page of keys call it.
    std::string caption = {};
    bool inMenu = false;
    // In the menu a line stands above it.
    bool startsGroup = false;
    // Whether it can be done now; always when empty. A key whose action is not possible goes on as
    // if there were none.
    std::function<bool()> possible = {};
    std::function<void()> run = {};

    bool IsPossible() const { return run && (!possible || possible()); }
};

}  // namespace kelvane::controls
