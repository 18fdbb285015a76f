// Person: somebody in front of the windows, on a thread of its own: presses real keys and mouse
// buttons of the display and looks at the state on the windows' thread.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "adapters/desktop/desktop_windows.h"
#include "controls/form.h"

namespace kelvane::test {

// The windows of this test program.
desktop::DesktopWindows& Windows();
void SetWindows(desktop::DesktopWindows* windows);

// How large the system's texts are beside those at 100 %, as the tests' surroundings say.
double TextScale();

// What a shell command writes.
std::string OutputOf(const std::string& command);

class Person {
public:
    // Starts doing `deeds` at once; the destructor waits until they are done.
    explicit Person(std::function<void(Person&)> deeds);
    ~Person();
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;

    // Real input by the display's test extension. Keys by their names ("F2", "ctrl+p").
    // Letters that the usual keyboard lacks are in keyboard.xkb.
    void Keys(const std::vector<std::string>& keys);
    void Type(const std::string& text);
    // Keys that all wait when the windows look at the first one, as on a busy machine.
    void KeysAhead(const std::vector<std::string>& keys);
    void Hold(const std::string& key);
    void Release(const std::string& key);
    // Places in the inner area of the window titled `window`, in pixels at 100 % scaling.
    void MoveTo(const std::string& window, int x, int y);
    void Click(const std::string& window, int x, int y, int times = 1);
    // 1 is the left button, 2 the middle one, 3 the right one.
    void ClickWith(int button, const std::string& window, int x, int y);
    // The left button, where the pointer is.
    void Press();
    void LetGo();
    void Drag(const std::string& window, int x, int y, int toX, int toY);
    void Wheel(const std::string& window, int x, int y, int steps);
    // The only shown window.
    void Resize(int width, int height);

    // Runs `look` on the windows' thread and returns what it returns.
    bool Look(const std::function<bool()>& look);
    // Looks again and again until `look` is true; a failed expectation named `what` after some
    // seconds.
    bool See(const std::string& what, const std::function<bool()>& look);
    // Waits until the screen shows the window as it is, at its size and place.
    void SeePainted();
    // Waits for the list or menu that `opens` lets appear.
    void SeePopup(const std::function<void()>& opens);
    // Waits a moment for what has no state to look at.
    static void Blink();
    // Waits until a window with this title is shown, and puts the keyboard on it.
    void SeeWindow(const std::string& window);
    // Presses `key` until a window with this title is shown, as a person does whose first press a
    // dialog took for its list of suggestions.
    void PressUntil(const std::string& key, const std::string& window);
    // Like SeeWindow() for a window that is not the program's own, such as the system's dialogs.
    void SeeSystemWindow(const std::string& window);

private:
    struct Place {
        int x = 0;
        int y = 0;
    };
    bool IsShown(const std::string& window, Place& place);
    Place Find(const std::string& window);
    void Input(const std::string& arguments);

    std::atomic<bool> mDone = false;
    std::thread mThread;
};

// Shows `form` to a person who does `deeds`; the form is closed when they are done, if it was not.
void ShowTo(controls::Form& form, const std::function<void(Person&)>& deeds);

}  // namespace kelvane::test
