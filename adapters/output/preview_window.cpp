#include "adapters/output/preview_window.h"

#include <algorithm>
#include <array>
#include <utility>

#include "adapters/output/style/settings_window.h"

namespace kelvane::output {

using controls::PageView;
using platform::Key;

namespace {

constexpr int kPicturePrint = 100;
constexpr int kPictureWindow = 106;
constexpr int kPictureQuit = 107;
constexpr int kPictureSave = 109;

// Measures in twips.
constexpr int kToolbarHeight = 630;
constexpr int kStripHeight = 450;
constexpr int kButtonWidth = 1200;
constexpr int kMargin = 120;
constexpr int kMinWidth = 9000;
constexpr int kMinHeight = 6000;
constexpr int kUsualWidth = 15000;
constexpr int kUsualHeight = 12000;

}  // namespace

struct PreviewWindow::Command {
    std::string_view key;
    const char* caption;  // null for a separator
    int picture;
    void (*run)(PreviewWindow&);
    // What the operator can press instead.
    platform::KeyStroke stroke = {};
};

std::span<const PreviewWindow::Command> PreviewWindow::Commands() {
    static constexpr std::array kCommands{
        Command{"Print",
                "打印",
                kPicturePrint,
                [](PreviewWindow& form) { form.mActions.print(); },
                {Key::P, platform::kCtrl}},
        Command{"Setup", "设置", kPicturePageSetup, [](PreviewWindow& form) { form.SetUp(); }},
        Command{"SaveSettings", "保存设置", kPictureSave,
                [](PreviewWindow& form) { form.mActions.saveSettings(); }},
        Command{"", nullptr, 0, nullptr},
        Command{"ZoomIn",
                "放大",
                kPictureZoomIn,
                [](PreviewWindow& form) { form.Pages.ZoomIn(); },
                {Key::Plus}},
        Command{"ZoomOut",
                "缩小",
                kPictureZoomOut,
                [](PreviewWindow& form) { form.Pages.ZoomOut(); },
                {Key::Minus}},
        Command{"WholePage", "整页", kPictureWholePage,
                [](PreviewWindow& form) { form.Pages.SetZoom(PageView::kWholePage); }},
        Command{"", nullptr, 0, nullptr},
        Command{"First",
                "首页",
                kPictureFirstPage,
                [](PreviewWindow& form) { form.Pages.SetPage(1); },
                {Key::Home, platform::kCtrl}},
        Command{"Previous",
                "上一页",
                kPicturePreviousPage,
                [](PreviewWindow& form) { form.Pages.SetPage(form.Pages.Page() - 1); },
                {Key::PageUp}},
        Command{"Next",
                "下一页",
                kPictureNextPage,
                [](PreviewWindow& form) { form.Pages.SetPage(form.Pages.Page() + 1); },
                {Key::PageDown}},
        Command{"Last",
                "末页",
                kPictureLastPage,
                [](PreviewWindow& form) { form.Pages.SetPage(form.Pages.PageCount()); },
                {Key::End, platform::kCtrl}},
        Command{"", nullptr, 0, nullptr},
        Command{"Quit", "关闭", kPictureQuit, [](PreviewWindow& form) { form.Unload(); }},
    };
    return kCommands;
}

PreviewWindow::PreviewWindow(platform::Windows& windows, PrintJob& job, PreviewActions actions)
    : Form("frmPreview"),
      Toolbar1(*this, "Toolbar1"),
      Pages(*this, "Pages"),
      lblPage(*this, "lblPage"),
      cmdClose(*this, "cmdClose"),
      mWindows(windows),
      mJob(job),
      mActions(std::move(actions)) {
    SetCaption("打印预览");
    SetIconPicture(kPictureWindow);
    for (const Command& command : Commands()) {
        if (command.caption == nullptr) {
            Toolbar1.AddSeparator();
            continue;
        }
        const std::string key(command.key);
        Toolbar1.AddButton(key, command.caption);
        Toolbar1.AddImage(key, command.picture);
        Toolbar1.Button(key)->SetImage(key);
        Toolbar1.Button(key)->SetStroke(command.stroke);
    }
    Toolbar1.SetHeight(kToolbarHeight);
    Toolbar1.Button("SaveSettings")->SetVisible(static_cast<bool>(mActions.saveSettings));
    Toolbar1.ButtonClick = [this](controls::ToolbarButton& button) {
        for (const Command& command : Commands()) {
            if (command.run != nullptr && command.key == button.Key()) return command.run(*this);
        }
    };
    Pages.Change = [this] { ShowState(); };
    cmdClose.SetCaption("关闭");
    cmdClose.SetCancel(true);
    cmdClose.Click = [this] { Unload(); };
}

void PreviewWindow::Form_Load() {
    const int width = std::min(kUsualWidth, mWindows.ScreenWidth());
    const int height = std::min(kUsualHeight, mWindows.ScreenHeight());
    SetMinSize(kMinWidth, kMinHeight);
    SetSize(width, height);
    SetPosition((mWindows.ScreenWidth() - width) / 2, (mWindows.ScreenHeight() - height) / 2);
    Pages.SetSource(&mJob.Pages());
    Pages.SetFocus();
}

void PreviewWindow::Form_Resize() {
    Toolbar1.SetWidth(ScaleWidth());
    Pages.SetTop(kToolbarHeight);
    Pages.SetWidth(ScaleWidth());
    Pages.SetHeight(std::max(0, ScaleHeight() - kToolbarHeight - kStripHeight));
    const int strip = kToolbarHeight + Pages.Height();
    constexpr int kInStrip = kStripHeight - kMargin;
    lblPage.SetLeft(kMargin);
    lblPage.SetTop(strip + kMargin / 2);
    lblPage.SetWidth(std::max(0, ScaleWidth() - 3 * kMargin - kButtonWidth));
    lblPage.SetHeight(kInStrip);
    cmdClose.SetLeft(std::max(0, ScaleWidth() - kMargin - kButtonWidth));
    cmdClose.SetTop(strip + kMargin / 2);
    cmdClose.SetWidth(kButtonWidth);
    cmdClose.SetHeight(kInStrip);
}

void PreviewWindow::ShowState() {
    lblPage.SetCaption("第 " + std::to_string(Pages.Page()) + " 页 共 " +
                       std::to_string(Pages.PageCount()) + " 页");
    const bool hasBefore = Pages.Page() > 1;
    const bool hasAfter = Pages.Page() < Pages.PageCount();
    for (const char* key : {"First", "Previous"}) Toolbar1.Button(key)->SetEnabled(hasBefore);
    for (const char* key : {"Next", "Last"}) Toolbar1.Button(key)->SetEnabled(hasAfter);
}

void PreviewWindow::SetUp() {
    SettingsWindow window(mWindows, mJob.Settings());
    mWindows.ShowModal(window);
    if (!window.Accepted()) return;
    const int page = Pages.Page();
    Pages.SetSource(nullptr);
    mJob.ChangeSettings(*window.Accepted());
    Pages.SetSource(&mJob.Pages());
    Pages.SetPage(page);
}

void PreviewWindow::Form_KeyDown(Key& key, int shift) {
    if (key != Key::P || shift != platform::kCtrl) return;
    Toolbar1.Click("Print");
    key = Key::None;
}

void PreviewWindow::Form_KeyPress(char32_t& character) {
    if (character == U'+') {
        Pages.ZoomIn();
    } else if (character == U'-') {
        Pages.ZoomOut();
    } else {
        return;
    }
    character = 0;
}

void PreviewWindow::Trapped(std::string_view place, std::string_view detail) noexcept {
    if (mActions.failed) mActions.failed(place, detail);
}

}  // namespace kelvane::output
