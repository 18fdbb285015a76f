// The user-interface platform: modal windows, message boxes, key sending and the screen's measures.
// Everything is called on the user-interface thread.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::controls {
class Form;
}

namespace kelvane::platform {

enum class MessageIcon { None, Information, Exclamation, Question };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

struct Message {
    std::string text;
    std::string caption;
    MessageIcon icon = MessageIcon::Information;
    MessageButtons buttons = MessageButtons::Ok;
    // The button that Enter presses; ignored for MessageButtons::Ok.
    MessageAnswer preselected = MessageAnswer::Yes;
};

// A window that can be shown; the controls' form is the only kind.
class Window {
public:
    virtual ~Window() = default;
    virtual const std::string& Name() const = 0;
    // The form that it is, for whoever draws it.
    virtual controls::Form& AsForm() = 0;
};

class Windows {
public:
    virtual ~Windows() = default;

    // Loads `window`, shows it over the topmost one and returns when it has been unloaded. What
    // that takes is told in controls/form.h.
    virtual void ShowModal(Window& window) = 0;

    // Shows a message box and returns the pressed button; closing the box answers No to a question.
    virtual MessageAnswer ShowMessage(const Message& message) = 0;

    // Sends keystrokes to the topmost window after the present event has been handled. A character
    // stands for itself, a key's name stands in braces: " {f2}".
    virtual void SendKeys(std::string_view keys) = 0;

    virtual void Beep() = 0;

    // The clipboard's text, UTF-8; empty when it has none. Windows without a clipboard keep
    // nothing.
    virtual void SetClipboardText(std::string_view /*text*/) {}
    virtual std::string ClipboardText() const { return {}; }

    // The file that the help key F1 opens.
    virtual void SetHelpFile(std::string_view path) = 0;

    // Twips (1/1440 inch) that one pixel of the screen measures, and the screen's size in twips.
    virtual int TwipsPerPixelX() const = 0;
    virtual int TwipsPerPixelY() const = 0;
    virtual int ScreenWidth() const = 0;
    virtual int ScreenHeight() const = 0;
};

}  // namespace kelvane::platform
