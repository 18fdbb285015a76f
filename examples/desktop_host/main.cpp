// A host with real windows, pick lists, preview, printing and files:
//
//   desktop_host ACCOUNT            the operator works in the entry list and closes it
//   desktop_host ACCOUNT PICTURE    nobody is there: what the list shows is saved as PNG
#include <kelvane/adapters/desktop/desktop_windows.h>
#include <kelvane/adapters/output/printing.h>
#include <kelvane/adapters/sqlite/connection.h>
#include <kelvane/kelvane.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "../minimal_host/host_objects.h"

using namespace kelvane;
using platform::DateTime;

namespace {

class NoRegistry : public platform::Registry {
public:
    Answer ReadMachineText(std::string_view, std::string_view, std::size_t) override { return {}; }
};

// In the operator's place when nobody is there: looks at the list, and the windows close.
class Photographer : public drive::Operator {
public:
    Photographer(desktop::DesktopWindows& windows, std::string picture)
        : mWindows(windows), mPicture(std::move(picture)) {}

    bool Act(controls::Form& topmost) override {
        if (!mWindows.SaveScreenshot(mPicture)) throw std::runtime_error("no " + mPicture);
        std::printf("%s\n", topmost.Caption().c_str());
        EntryCounter counter;
        if (controls::Control* list = topmost.Find("GridPeriodItem")) list->Accept(counter);
        std::printf("entries: %d\n", counter.entries);
        return false;
    }
    platform::MessageAnswer Answer(const platform::Message& message) override {
        std::printf("[%s] %s\n", message.caption.c_str(), message.text.c_str());
        return message.buttons == platform::MessageButtons::Ok ? platform::MessageAnswer::Ok
                                                               : message.preselected;
    }
    std::optional<std::size_t> Pick(const std::vector<std::string>&,
                                    const std::vector<std::vector<std::string>>&) override {
        return {};
    }
    std::optional<std::string> ChooseFile() override { return {}; }
    void Opened(const std::string&) override {}
    void Closed(const std::string&) override {}
    void Focused(const std::string&) override {}
    void Refused(int, int) override {}
    void Beeped() override {}

private:
    desktop::DesktopWindows& mWindows;
    std::string mPicture;
};

DateTime Today() {
    const std::chrono::year_month_day date(
        std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()));
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

// Everything lives longer than the component that runs on it.
void ShowList(const std::string& account, platform::Windows& windows,
              platform::PrintSurroundings& printing) {
    // The component keeps its print settings in "printStyle" there.
    const std::filesystem::path folder = std::filesystem::absolute(account).parent_path();
    std::filesystem::create_directories(folder / "printStyle");

    Login login(account);
    const auto connection = sqlite::CreateConnection();
    connection->SetConnectionString(login.ConnectionString());
    connection->Open("", "", -1);
    Environment environment(connection);

    NoRegistry registry;
    platform::Services services;
    services.windows = &windows;
    services.registry = &registry;
    services.createConnection = [] { return sqlite::CreateConnection(); };
    services.today = Today;
    services.createReferenceList = [&] {
        return reference::MakeReferenceLists(
            {windows, [&]() -> platform::HostDataAccess& { return environment.DataAccess(); },
             component::CurrentCenter});
    };
    output::OfferPrinting(services, printing, [](std::string_view place, std::string_view reason) {
        std::fprintf(stderr, "%.*s: %.*s\n", static_cast<int>(place.size()), place.data(),
                     static_cast<int>(reason.size()), reason.data());
    });

    component::PeriodItem component(services);
    component.Init(login, environment, folder.string());
    component.Show();
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2 && count != 3) {
        std::fprintf(stderr, "usage: desktop_host ACCOUNT [PICTURE]\n");
        return 2;
    }
    try {
        return desktop::RunDesktop([&](desktop::DesktopWindows& windows) {
            std::optional<Photographer> photographer;
            if (count == 3) windows.SetOperator(&photographer.emplace(windows, arguments[2]));
            ShowList(arguments[1], windows, windows.Printing());
            return 0;
        });
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
