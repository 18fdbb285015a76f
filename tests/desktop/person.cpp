#include "tests/desktop/person.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/toplevel.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <memory>

#include "tests/unit/host/temporary_folder.h"

namespace kelvane::test {

namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 30s;
constexpr auto kPause = 2s;
constexpr auto kGlance = 15ms;

desktop::DesktopWindows* theWindows = nullptr;

struct RunResult {
    std::string output;
    int status = 0;
};

RunResult Run(const std::string& command) {
    RunResult result;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return {{}, -1};
    std::array<char, 256> buffer{};
    while (fgets(buffer.data(), static_cast<int>(buffer.size()), pipe) != nullptr) {
        result.output += buffer.data();
    }
    result.status = pclose(pipe);
    return result;
}

int Scale() {
    const char* scale = std::getenv("GDK_SCALE");
    return scale == nullptr ? 1 : std::atoi(scale);
}

// Pixels at 100 % scaling in the toolkit's pixels.
int Scaled(int pixels) {
    return static_cast<int>(std::lround(pixels * TextScale()));
}

std::string Point(int x, int y) {
    return std::to_string(x * Scale()) + " " + std::to_string(y * Scale());
}

}  // namespace

double TextScale() {
    const char* scale = std::getenv("TEXT_SCALE");
    return scale == nullptr ? 1 : std::strtod(scale, nullptr);
}

std::string OutputOf(const std::string& command) {
    return Run(command).output;
}

desktop::DesktopWindows& Windows() {
    return *theWindows;
}

void SetWindows(desktop::DesktopWindows* windows) {
    theWindows = windows;
}

Person::Person(std::function<void(Person&)> deeds)
    : mThread([this, deeds = std::move(deeds)] {
          deeds(*this);
          mDone = true;
      }) {}

Person::~Person() {
    // He may still look at things when the last window has gone.
    while (!mDone) {
        wxTheApp->ProcessPendingEvents();
        std::this_thread::sleep_for(kGlance);
    }
    mThread.join();
}

void Person::Input(const std::string& arguments) {
    const RunResult result = Run("xdotool " + arguments + " 2>&1");
    EXPECT_EQ(result.status, 0) << "xdotool " << arguments << ": " << result.output;
}

void Person::Keys(const std::vector<std::string>& keys) {
    std::string arguments = "key --clearmodifiers --delay 15";
    for (const std::string& key : keys) arguments += " " + key;
    Input(arguments);
}

void Person::KeysAhead(const std::vector<std::string>& keys) {
    Look([&] {
        Keys(keys);
        return true;
    });
}

void Person::Type(const std::string& text) {
    Input("type --delay 15 '" + text + "'");
}

void Person::Hold(const std::string& key) {
    Input("keydown " + key);
}

void Person::Release(const std::string& key) {
    Input("keyup " + key);
}

void Person::MoveTo(const std::string& window, int x, int y) {
    const Place place = Find(window);
    Input("mousemove " + Point(place.x + Scaled(x), place.y + Scaled(y)));
}

void Person::Click(const std::string& window, int x, int y, int times) {
    MoveTo(window, x, y);
    Input("click --repeat " + std::to_string(times) + " --delay 60 1");
}

void Person::ClickWith(int button, const std::string& window, int x, int y) {
    MoveTo(window, x, y);
    Input("click " + std::to_string(button));
}

void Person::Press() {
    Input("mousedown 1");
}

void Person::LetGo() {
    Input("mouseup 1");
}

void Person::Drag(const std::string& window, int x, int y, int toX, int toY) {
    const Place place = Find(window);
    Input("mousemove " + Point(place.x + Scaled(x), place.y + Scaled(y)) +
          " mousedown 1 mousemove " +
          Point(place.x + Scaled((x + toX) / 2), place.y + Scaled((y + toY) / 2)) + " mousemove " +
          Point(place.x + Scaled(toX), place.y + Scaled(toY)) + " mouseup 1");
}

void Person::Wheel(const std::string& window, int x, int y, int steps) {
    MoveTo(window, x, y);
    Input("click --repeat " + std::to_string(std::abs(steps)) + " --delay 20 " +
          (steps > 0 ? "5" : "4"));
}

void Person::Resize(int width, int height) {
    Input("search --onlyvisible --class kelvane windowsize " +
          Point(Scaled(width), Scaled(height)));
}

bool Person::Look(const std::function<bool()>& look) {
    auto seen = std::make_shared<std::promise<bool>>();
    std::future<bool> answer = seen->get_future();
    Windows().Post([look, seen] { seen->set_value(look()); });
    if (answer.wait_for(kPatience) == std::future_status::ready) return answer.get();
    ADD_FAILURE() << "the windows do not answer";
    return false;
}

bool Person::See(const std::string& what, const std::function<bool()>& look) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < end) {
        if (Look(look)) return true;
        std::this_thread::sleep_for(kGlance);
    }
    ADD_FAILURE() << "never seen: " << what;
    return false;
}

void Person::SeePainted() {
    EXPECT_TRUE(Look([] {
        const host_test::TemporaryFolder folder;
        return Windows().SaveScreenshot((folder / "window.png").string());
    }));
}

void Person::SeePopup(const std::function<void()>& opens) {
    const auto shown = [] { return OutputOf("xdotool search --onlyvisible --class kelvane"); };
    const std::string before = shown();
    opens();
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (shown().size() <= before.size()) {
        if (std::chrono::steady_clock::now() >= end) {
            ADD_FAILURE() << "never seen: a list or menu";
            return;
        }
        std::this_thread::sleep_for(kGlance);
    }
    // It takes the keyboard at once, but behind its appearing.
    Blink();
}

void Person::Blink() {
    std::this_thread::sleep_for(300ms);
}

bool Person::IsShown(const std::string& window, Place& place) {
    return Look([&] {
        for (wxWindow* shown : wxTopLevelWindows) {
            auto* top = dynamic_cast<wxTopLevelWindow*>(shown);
            if (top == nullptr || !top->IsShown()) continue;
            if (top->GetTitle().utf8_string() != window) continue;
            const wxPoint origin = top->ClientToScreen(wxPoint(0, 0));
            place = {origin.x, origin.y};
            return true;
        }
        return false;
    });
}

Person::Place Person::Find(const std::string& window) {
    Place place;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!IsShown(window, place)) {
        if (std::chrono::steady_clock::now() >= end) {
            ADD_FAILURE() << "never seen: window " << window;
            break;
        }
        std::this_thread::sleep_for(kGlance);
    }
    return place;
}

void Person::PressUntil(const std::string& key, const std::string& window) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    Place place;
    while (!IsShown(window, place) && std::chrono::steady_clock::now() < end) {
        Keys({key});
        const auto next = std::chrono::steady_clock::now() + kPause;
        while (!IsShown(window, place) && std::chrono::steady_clock::now() < next) {
            std::this_thread::sleep_for(kGlance);
        }
    }
    SeeWindow(window);
}

void Person::SeeWindow(const std::string& window) {
    const Place place = Find(window);
    // Where no window manager hands out the keyboard, it follows the mouse.
    Input("mousemove " + Point(place.x + 3, place.y + 3));
    Look([] { return true; });
}

void Person::SeeSystemWindow(const std::string& window) {
    std::string found;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (found.empty() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kGlance);
        found = Run("for id in $(xdotool search --onlyvisible --class kelvane); do "
                    "test \"$(xdotool getwindowname $id)\" = '" +
                    window + "' && echo -n $id && break; done")
                    .output;
    }
    EXPECT_NE(found, "") << "never seen: system window " << window;
    Input("mousemove --window " + found + " 30 30");
    // The system's dialogs have no state to look at: they are ready a moment after they are shown.
    std::this_thread::sleep_for(1s);
    Blink();
}

void ShowTo(controls::Form& form, const std::function<void(Person&)>& deeds) {
    const std::string title = form.Caption();
    Person person([&](Person& self) {
        self.SeeWindow(title);
        deeds(self);
        self.Look([&] { return form.Unload(); });
    });
    Windows().ShowModal(form);
}

}  // namespace kelvane::test
