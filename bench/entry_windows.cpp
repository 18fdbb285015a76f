#include "bench/entry_windows.h"

#include <chrono>
#include <stdexcept>
#include <utility>

namespace kelvane::bench {

double Now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

void EntryWindows::ShowModal(platform::Window& window) {
    controls::Form& form = window.AsForm();
    if (beforeLoad) beforeLoad();
    const double start = Now();
    form.Load();
    loadSeconds = Now() - start;
    form.Activate();
    if (auto* list = dynamic_cast<ui::frmPeriodItem*>(&form); list != nullptr && whileShown) {
        whileShown(*list);
    }
    if (auto* details = dynamic_cast<ui::frmQCEdit*>(&form); details != nullptr && whileDetails) {
        whileDetails(*details);
    }
    form.Unload();
}

platform::MessageAnswer EntryWindows::ShowMessage(const platform::Message& message) {
    ++messages;
    return message.buttons == platform::MessageButtons::Ok ? platform::MessageAnswer::Ok
                                                           : message.preselected;
}

double ShowList(const std::string& account, std::int64_t rows,
                std::function<void(ui::frmPeriodItem&, EntryWindows&)> whileShown,
                drive::StatementLog* statements) {
    return ShowList(host::AccountPlace::File(account), rows, std::move(whileShown), statements);
}

double ShowList(const host::AccountPlace& account, std::int64_t rows,
                std::function<void(ui::frmPeriodItem&, EntryWindows&)> whileShown,
                drive::StatementLog* statements, std::function<void()> beforeLoad) {
    EntryWindows windows;
    windows.beforeLoad = std::move(beforeLoad);
    std::int64_t loaded = 0;
    windows.whileShown = [&](ui::frmPeriodItem& form) {
        loaded = form.GridPeriodItem.Rows() - 1;
        if (whileShown) whileShown(form, windows);
    };
    host::Session session(account, windows, statements);
    session.LogIn({}, platform::DateTime{2004, 6, 30});
    session.Show();
    if (loaded != rows)
        throw std::runtime_error("the list of " + account.Name() + " is not complete");
    return windows.loadSeconds;
}

}  // namespace kelvane::bench
