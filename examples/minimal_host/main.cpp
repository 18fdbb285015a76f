// The smallest host: it logs in on an account file, hands the component its two objects and opens
// the entry list. All services that it offers are its own: its windows are the console, where a
// window that is shown is written out and closed, and its registry is empty.
//
//   minimal_host ACCOUNT
#include <kelvane/adapters/sqlite/connection.h>
#include <kelvane/kelvane.h>

#include <cstdio>
#include <exception>

#include "host_objects.h"

using namespace kelvane;
using platform::DateTime;

namespace {

class ConsoleWindows : public platform::Windows {
public:
    void ShowModal(platform::Window& window) override {
        controls::Form& form = window.AsForm();
        form.Load();
        form.Activate();
        std::printf("%s\n", form.Caption().c_str());
        EntryCounter counter;
        form.Find("GridPeriodItem")->Accept(counter);
        std::printf("entries: %d\n", counter.entries);
        form.Unload();
    }
    platform::MessageAnswer ShowMessage(const platform::Message& message) override {
        std::printf("[%s] %s\n", message.caption.c_str(), message.text.c_str());
        return message.buttons == platform::MessageButtons::Ok ? platform::MessageAnswer::Ok
                                                               : message.preselected;
    }
    void SendKeys(std::string_view) override {}
    void Beep() override {}
    void SetHelpFile(std::string_view) override {}
    int TwipsPerPixelX() const override { return 15; }
    int TwipsPerPixelY() const override { return 15; }
    int ScreenWidth() const override { return 1280 * 15; }
    int ScreenHeight() const override { return 1024 * 15; }
};

class NoRegistry : public platform::Registry {
public:
    Answer ReadMachineText(std::string_view, std::string_view, std::size_t) override { return {}; }
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: minimal_host ACCOUNT\n");
        return 2;
    }
    try {
        ConsoleWindows windows;
        NoRegistry registry;
        platform::Services services;
        services.windows = &windows;
        services.registry = &registry;
        services.createConnection = [] { return sqlite::CreateConnection(); };
        services.today = [] { return DateTime{2004, 6, 30}; };

        Login login(arguments[1]);
        const auto connection = sqlite::CreateConnection();
        connection->SetConnectionString(login.ConnectionString());
        connection->Open("", "", -1);
        Environment environment(connection);
        component::PeriodItem component(services);
        component.Init(login, environment, ".");
        component.Show();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
