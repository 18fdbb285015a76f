// The windows where none are shown: the component asks for none then, but the service is always
// there.
#pragma once

#include <stdexcept>

#include "platform/windows.h"

namespace kelvane::host {

class AbsentWindows : public platform::Windows {
public:
    void ShowModal(platform::Window& /*window*/) override { Refuse(); }
    platform::MessageAnswer ShowMessage(const platform::Message& /*message*/) override { Refuse(); }
    void SendKeys(std::string_view /*keys*/) override { Refuse(); }
    void Beep() override { Refuse(); }
    void SetHelpFile(std::string_view /*path*/) override { Refuse(); }
    int TwipsPerPixelX() const override { Refuse(); }
    int TwipsPerPixelY() const override { Refuse(); }
    int ScreenWidth() const override { Refuse(); }
    int ScreenHeight() const override { Refuse(); }

private:
    [[noreturn]] static void Refuse() { throw std::logic_error("AbsentWindows"); }
};

}  // namespace kelvane::host
