// PreviewWindow: the window that shows a print job's pages. It is made of controls alone, so it is
// the same on a screen and without one.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "adapters/output/print_job.h"
#include "controls/button.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/page_view.h"
#include "controls/toolbar.h"
#include "platform/windows.h"

namespace kelvane::output {

// Numbers of the pictures on the window's buttons, behind those of the component's own windows.
enum PreviewPicture {
    kPicturePageSetup = 111,
    kPictureZoomIn = 112,
    kPictureZoomOut = 113,
    kPictureWholePage = 114,
    kPictureFirstPage = 115,
    kPicturePreviousPage = 116,
    kPictureNextPage = 117,
    kPictureLastPage = 118,
};

// What the window's commands do beside showing pages.
struct PreviewActions {
    std::function<void()> print;
    std::function<void()> saveSettings;  // empty: the operator may not save them
    // A handler of the window failed.
    std::function<void(std::string_view place, std::string_view detail)> failed;
};

class PreviewWindow : public controls::Form {
public:
    // `windows` and `job` outlive the window.
    PreviewWindow(platform::Windows& windows, PrintJob& job, PreviewActions actions);

    controls::Toolbar Toolbar1;
    controls::PageView Pages;
    controls::Label lblPage;
    controls::Button cmdClose;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_KeyDown(platform::Key& key, int shift) override;
    void Form_KeyPress(char32_t& character) override;
    void Trapped(std::string_view place, std::string_view detail) noexcept override;

private:
    struct Command;
    static std::span<const Command> Commands();

    void ShowState();
    void SetUp();

    platform::Windows& mWindows;
    PrintJob& mJob;
    PreviewActions mActions;
};

}  // namespace kelvane::output
