// The component without a view: its windows load, do what the measurement wants and unload again.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/account/session.h"
#include "platform/windows.h"
#include "ui/detail_editor/detail_editor.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::bench {

class EntryWindows : public platform::Windows {
public:
    // What to do before a window loads.
    std::function<void()> beforeLoad;
    // What to do while the entry list is shown.
    std::function<void(ui::frmPeriodItem&)> whileShown;
    // The same for the detail editor, once it has loaded.
    std::function<void(ui::frmQCEdit&)> whileDetails;
    // How long the last window took to load, in seconds, and how many messages there were.
    double loadSeconds = 0;
    int messages = 0;

    void ShowModal(platform::Window& window) override;
    platform::MessageAnswer ShowMessage(const platform::Message& message) override;
    void SendKeys(std::string_view) override {}
    void Beep() override {}
    void SetHelpFile(std::string_view) override {}
    int TwipsPerPixelX() const override { return 15; }
    int TwipsPerPixelY() const override { return 15; }
    int ScreenWidth() const override { return 1280 * 15; }
    int ScreenHeight() const override { return 1024 * 15; }
};

// Logs in on `account` and shows the entry list for as long as `whileShown` runs. Returns how long
// loading took, in seconds. With `statements` everything that reaches the database is noted there.
// Throws std::runtime_error when not all of `rows` entries are in the list.
double ShowList(const std::string& account, std::int64_t rows,
                std::function<void(ui::frmPeriodItem&, EntryWindows&)> whileShown = {},
                drive::StatementLog* statements = nullptr);

// The same on an account wherever it is. `beforeLoad`: what to do before the list loads.
double ShowList(const host::AccountPlace& account, std::int64_t rows,
                std::function<void(ui::frmPeriodItem&, EntryWindows&)> whileShown,
                drive::StatementLog* statements, std::function<void()> beforeLoad = {});

// Seconds since some point in the past.
double Now();

}  // namespace kelvane::bench
