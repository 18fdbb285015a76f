// HeadlessWindows: windows without a screen. A modal window's loop asks the operator for the next
// thing to do instead of waiting for a mouse and a keyboard.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "adapters/drive/operator.h"
#include "controls/form.h"
#include "platform/keys.h"
#include "platform/windows.h"

namespace kelvane::headless {

class HeadlessWindows : public platform::Windows {
public:
    // `who` must outlive the windows.
    explicit HeadlessWindows(drive::Operator& who) : mOperator(who) {}

    // Throws std::invalid_argument for a window that is no controls::Form, and std::logic_error for
    // one that is already shown.
    void ShowModal(platform::Window& window) override;
    platform::MessageAnswer ShowMessage(const platform::Message& message) override;
    void SendKeys(std::string_view keys) override;
    void Beep() override { mOperator.Beeped(); }
    void SetHelpFile(std::string_view path) override { mHelpFile = path; }
    // A clipboard of these windows alone.
    void SetClipboardText(std::string_view text) override { mClipboard = text; }
    std::string ClipboardText() const override { return mClipboard; }

    // A screen of 1280 by 1024 pixels with 15 twips each.
    int TwipsPerPixelX() const override { return kTwipsPerPixel; }
    int TwipsPerPixelY() const override { return kTwipsPerPixel; }
    int ScreenWidth() const override { return 1280 * kTwipsPerPixel; }
    int ScreenHeight() const override { return 1024 * kTwipsPerPixel; }

private:
    static constexpr int kTwipsPerPixel = 15;

    void RunModal(controls::Form& form);
    void DeliverKeys(controls::Form& form);
    void ShowHelp(const controls::Form& form);

    drive::Operator& mOperator;
    std::string mHelpFile;
    std::string mClipboard;
    std::vector<controls::Form*> mOpen;
    std::deque<platform::KeyStroke> mSentKeys;
};

}  // namespace kelvane::headless
