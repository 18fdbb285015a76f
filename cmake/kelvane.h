// All that a host needs whose windows are its own: the component, the services that it runs on, the
// state of its windows and the usual pick lists. What binds it to a database, a screen or printers
// has headers of its own below kelvane/adapters.
#pragma once

#include <kelvane/adapters/reference/reference_lists.h>
#include <kelvane/component/current_center.h>
#include <kelvane/component/period_item.h>
#include <kelvane/controls/button.h>
#include <kelvane/controls/combo_box.h>
#include <kelvane/controls/edit_box.h>
#include <kelvane/controls/form.h>
#include <kelvane/controls/grid.h>
#include <kelvane/controls/label.h>
#include <kelvane/controls/page_view.h>
#include <kelvane/controls/pick_window.h>
#include <kelvane/controls/picture.h>
#include <kelvane/controls/toolbar.h>
#include <kelvane/controls/toolbar_style_control.h>
#include <kelvane/version.h>
