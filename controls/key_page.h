// KeyPage: the window that tells which keys do what in another window. It is what the help key
// shows where there is no help file.
#pragma once

#include "controls/button.h"
#include "controls/form.h"
#include "controls/grid.h"

namespace kelvane::controls {

class KeyPage : public Form {
public:
    // The keys of `window` as they are now.
    explicit KeyPage(const Form& window);

    Grid GridKeys;
    Button cmdClose;

protected:
    void Form_Resize() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
};

}  // namespace kelvane::controls
