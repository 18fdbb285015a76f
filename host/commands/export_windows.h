// ExportWindows: the component's windows when nobody sees them and all that is wanted is their
// grid in a file.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "controls/form.h"
#include "platform/windows.h"
#include "ui/detail_editor/detail_editor.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::host {

struct ExportTask {
    // The entry whose detail lines are wanted, by its identity; without one, the list.
    std::optional<int> details = {};
    // What the operator would have been told, up to the end of the export.
    std::function<void(const std::string& text)> message;
    // Why there is nothing to export.
    std::function<void(const std::string& reason)> failed;
};

class ExportWindows : public platform::Windows {
public:
    explicit ExportWindows(ExportTask task) : mTask(std::move(task)) {}

    // Loads the window, has its grid written and unloads it again.
    void ShowModal(platform::Window& window) override;
    // Nothing is answered that would change anything.
    platform::MessageAnswer ShowMessage(const platform::Message& message) override;
    void SendKeys(std::string_view /*keys*/) override {}
    void Beep() override {}
    void SetHelpFile(std::string_view /*path*/) override {}
    // There is no screen; nothing depends on these measures.
    int TwipsPerPixelX() const override { return kTwipsPerPixel; }
    int TwipsPerPixelY() const override { return kTwipsPerPixel; }
    int ScreenWidth() const override { return 1280 * kTwipsPerPixel; }
    int ScreenHeight() const override { return 1024 * kTwipsPerPixel; }

private:
    static constexpr int kTwipsPerPixel = 15;

    void Export(ui::frmPeriodItem& list);
    void OpenDetails(ui::frmPeriodItem& list, int entry);

    ExportTask mTask;
    bool mOpenedDetails = false;
    bool mDone = false;
};

}  // namespace kelvane::host
