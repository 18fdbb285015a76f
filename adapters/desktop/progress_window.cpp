#include "adapters/desktop/progress_window.h"

#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

#include "adapters/desktop/look.h"
#include "adapters/desktop/system.h"

namespace kelvane::desktop {

namespace {

constexpr int kMargin = 16;
constexpr int kGaugeWidth = 360;
constexpr int kGaugeHeight = 18;
constexpr int kButtonWidth = 88;
constexpr int kSteps = 1000;

}  // namespace

ProgressWindow::ProgressWindow(wxWindow* parent, const std::string& title)
    : mWindow(parent, wxID_ANY, Text(title), wxDefaultPosition, wxDefaultSize,
              wxCAPTION | wxCLOSE_BOX | wxSYSTEM_MENU),
      mGauge(new wxGauge(&mWindow, wxID_ANY, kSteps, wxDefaultPosition,
                         wxSize(Scaled(mWindow, kGaugeWidth), Scaled(mWindow, kGaugeHeight)))),
      mOthers(&mWindow) {
    mWindow.SetFont(UiFont());
    auto* text = new wxStaticText(&mWindow, wxID_ANY, Text(title + "…"));
    auto* cancel = new wxButton(&mWindow, wxID_CANCEL, wxString::FromUTF8("取消"),
                                wxDefaultPosition, wxSize(Scaled(mWindow, kButtonWidth), -1));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    const int margin = Scaled(mWindow, kMargin);
    whole->Add(text, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, margin));
    whole->Add(mGauge, wxSizerFlags().Expand().Border(wxALL, margin));
    whole->Add(cancel, wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, margin));
    mWindow.SetSizerAndFit(whole);
    mWindow.CentreOnParent();
    mWindow.Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Cancel(); });
    mWindow.Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Cancel(); });
    mWindow.Show();
    cancel->SetFocus();
    mWindow.CallAfter([this] { ShowFocus(mWindow); });
}

void ProgressWindow::Cancel() {
    mCancelled = true;
}

bool ProgressWindow::Show(std::size_t done, std::size_t total) {
    const double share = total == 0 ? 0 : static_cast<double>(done) / static_cast<double>(total);
    mGauge->SetValue(std::clamp(static_cast<int>(share * kSteps), 0, kSteps));
    if (auto* loop = wxEventLoopBase::GetActive()) loop->Yield(true);
    return !mCancelled;
}

}  // namespace kelvane::desktop
