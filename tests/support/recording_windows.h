// Windows that show nothing: they keep every message box and answer questions as they were told.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windows.h"

namespace kelvane::support {

class RecordingWindows : public platform::Windows {
public:
    std::vector<platform::Message> messages;
    // Answers to the next questions; No when there are none left.
    std::deque<platform::MessageAnswer> answers;
    // What was sent by SendKeys, one text a call.
    std::vector<std::string> sentKeys;
    int beeps = 0;
    std::string helpFile;
    std::string clipboard;

    void ShowModal(platform::Window&) override {}

    platform::MessageAnswer ShowMessage(const platform::Message& message) override {
        messages.push_back(message);
        if (message.buttons == platform::MessageButtons::Ok) return platform::MessageAnswer::Ok;
        if (answers.empty()) return platform::MessageAnswer::No;
        const platform::MessageAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    void SendKeys(std::string_view keys) override { sentKeys.emplace_back(keys); }
    void Beep() override { ++beeps; }
    void SetHelpFile(std::string_view path) override { helpFile = path; }
    void SetClipboardText(std::string_view text) override { clipboard = text; }
    std::string ClipboardText() const override { return clipboard; }
    int TwipsPerPixelX() const override { return 15; }
    int TwipsPerPixelY() const override { return 15; }
    int ScreenWidth() const override { return 1920 * 15; }
    int ScreenHeight() const override { return 1080 * 15; }
};

// A message box on one line: "[caption|icon] text", with the preselected answer of a question.
inline std::string MessageLine(const platform::Message& message) {
    constexpr std::string_view kIcons[] = {"none", "information", "exclamation", "question"};
    std::string line = "[" + message.caption + "|" +
                       std::string(kIcons[static_cast<std::size_t>(message.icon)]) + "] " +
                       message.text;
    if (message.buttons == platform::MessageButtons::YesNo)
        line += message.preselected == platform::MessageAnswer::No ? " (yes/NO)" : " (YES/no)";
    return line;
}

inline std::vector<std::string> MessageLines(const RecordingWindows& windows) {
    std::vector<std::string> lines;
    for (const platform::Message& message : windows.messages) lines.push_back(MessageLine(message));
    return lines;
}

}  // namespace kelvane::support
