#include "adapters/desktop/context_menu.h"

#include <wx/control.h>
#include <wx/menu.h>

#include <vector>

#include "adapters/desktop/look.h"
#include "platform/key_names.h"

namespace kelvane::desktop {

using controls::WindowAction;

namespace {

constexpr int kFirstItem = wxID_HIGHEST + 1;

wxString ItemText(const WindowAction& action) {
    wxString text = wxControl::EscapeMnemonics(Text(action.caption));
    const std::string key = platform::NameOfKey(action.stroke);
    return key.empty() ? text : text + "\t" + Text(key);
}

}  // namespace

void ShowActionMenu(wxWindow& window, const wxPoint& place, controls::Form& form) {
    const std::vector<const WindowAction*> actions = form.MenuActions();
    if (actions.empty()) return;
    wxMenu menu;
    for (std::size_t index = 0; index < actions.size(); ++index) {
        const WindowAction* action = actions[index];
        if (action == nullptr) {
            menu.AppendSeparator();
            continue;
        }
        wxMenuItem* item = menu.Append(kFirstItem + static_cast<int>(index), ItemText(*action));
        item->Enable(form.CanRun(*action));
    }
    const int chosen = window.GetPopupMenuSelectionFromUser(menu, place);
    if (chosen == wxID_NONE) return;
    form.Run(*actions[static_cast<std::size_t>(chosen - kFirstItem)]);
}

}  // namespace kelvane::desktop
