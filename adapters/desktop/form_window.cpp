#include "adapters/desktop/form_window.h"

#include <wx/display.h>
#include <wx/evtloop.h>

#include <algorithm>
#include <utility>

#include "adapters/desktop/field_views.h"
#include "adapters/desktop/grid_view.h"
#include "adapters/desktop/page_desk.h"
#include "adapters/desktop/pictures.h"
#include "adapters/desktop/stage.h"
#include "adapters/desktop/toolbar_view.h"

namespace kelvane::desktop {

namespace {

constexpr int kIconSizes[] = {16, 32, 48};
constexpr int kMaxWaits = 200;
constexpr unsigned long kWaitMilliseconds = 10;

long Style(const controls::Form& form) {
    const long style = wxCAPTION | wxCLOSE_BOX | wxSYSTEM_MENU | wxCLIP_CHILDREN;
    return form.Resizable() ? style | wxRESIZE_BORDER | wxMAXIMIZE_BOX | wxMINIMIZE_BOX : style;
}

// The view of a control; strips and labels have none, the surface paints them.
class ViewMaker : public controls::ControlVisitor {
public:
    ViewMaker(Surface& surface, ViewHost& host) : mSurface(surface), mHost(host) {}

    std::unique_ptr<View> made;

    void Visit(controls::Grid& grid) override { Make<GridView>(grid); }
    void Visit(controls::Toolbar& toolbar) override { Make<ToolbarView>(toolbar); }
    void Visit(controls::ToolbarStyleControl& toolbar) override { Make<ToolbarView>(toolbar); }
    void Visit(controls::EditBox& box) override { Make<EditBoxView>(box); }
    void Visit(controls::ComboBox& box) override { Make<ComboBoxView>(box); }
    void Visit(controls::Button& button) override { Make<ButtonView>(button); }
    void Visit(controls::PageView& pages) override { Make<PageDesk>(pages); }

private:
    template <typename ViewOfIt, typename ControlOfIt>
    void Make(ControlOfIt& control) {
        made = std::make_unique<ViewOfIt>(mSurface, control, mHost);
    }

    Surface& mSurface;
    ViewHost& mHost;
};

}  // namespace

FormWindow::FormWindow(Stage& stage, controls::Form& form, wxWindow* parent)
    : wxDialog(parent, wxID_ANY, Text(form.Caption()), wxDefaultPosition, wxDefaultSize,
               Style(form)),
      mStage(stage),
      mForm(form),
      mKeys(form,
            {[this] { return ActiveView(); }, [this] { Close(); }, [this] { mStage.ShowHelp(); },
             [this] { return EnterToolbar(); }, [this] { return OpenDropDown(); },
             [this] { return OpenMenu(); }, [this] { CatchUp(); }}),
      mSurface(new Surface(*this, form)),
      mLine(new LowerLine(*this)) {
    SetEscapeId(wxID_NONE);
    SetFont(UiFont());
    mKeys.Attach(*this);
    mKeys.Attach(*mSurface);
    CreateViews();
    Bind(wxEVT_CLOSE_WINDOW, &FormWindow::OnClose, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent&) { OnSize(); });
    mSurface->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
        mPainted = true;
        event.Skip();
    });
    mForm.ViewChanged = [this] { ScheduleSync(); };
    Sync();
    if (mForm.Left() == 0 && mForm.Top() == 0) Centre();
    // What is too large for the screen shows its upper left part.
    const wxPoint corner = Screen().GetTopLeft();
    Move(std::max(GetPosition().x, corner.x), std::max(GetPosition().y, corner.y));
}

FormWindow::~FormWindow() {
    mForm.ViewChanged = nullptr;
    // The views look at their windows, which go with this one.
    mViews.clear();
}

std::unique_ptr<View> FormWindow::CreateView(controls::Control& control) {
    ViewMaker maker(*mSurface, *this);
    control.Accept(maker);
    return std::move(maker.made);
}

// Controls can join a form that is shown.
void FormWindow::CreateViews() {
    const auto& controls = mForm.Controls();
    for (; mKnownControls < controls.size(); ++mKnownControls) {
        if (auto view = CreateView(*controls[mKnownControls])) mViews.push_back(std::move(view));
    }
}

View* FormWindow::FindView(const controls::Control* control) const {
    const auto found = std::find_if(mViews.begin(), mViews.end(), [control](const auto& view) {
        return &view->Control() == control;
    });
    return found == mViews.end() ? nullptr : found->get();
}

void FormWindow::OperatorFocused(controls::Control& control) {
    if (mForm.ActiveControl() == &control || !control.TakesFocus() || !control.Visible()) return;
    // FocusMoved is for a focus that code moves, not for one that the operator moves.
    auto told = std::exchange(mForm.FocusMoved, nullptr);
    mForm.SetFocus(control);
    mForm.FocusMoved = std::move(told);
    mFocused = &control;
}

void FormWindow::FocusActive() {
    View* view = ActiveView();
    wxWindow* window = view == nullptr ? nullptr : view->FocusWindow();
    mFocused = mForm.ActiveControl();
    if (window != nullptr && wxWindow::FindFocus() != window) window->SetFocus();
}

void FormWindow::TakeKeyboard() {
    if (!mForm.IsLoaded() || !mStage.IsTopmost(*this)) return;
    Sync();
    const wxWindow* focused = wxWindow::FindFocus();
    if (focused == nullptr || !focused->IsShownOnScreen()) FocusActive();
}

wxWindow& FormWindow::ParentOf(const controls::Control& control, wxPoint& offset) {
    const wxRect place = ToPixels(*mSurface, control);
    const wxPoint middle(place.x + place.width / 2, place.y + place.height / 2);
    for (const auto& view : mViews) {
        auto* grid = dynamic_cast<GridView*>(view.get());
        if (grid == nullptr || !grid->Control().Visible()) continue;
        const wxRect area = ToPixels(*mSurface, grid->Control());
        if (!area.Contains(middle)) continue;
        offset = area.GetTopLeft();
        return grid->Canvas();
    }
    offset = {};
    return *mSurface;
}

bool FormWindow::EnterToolbar() {
    return std::any_of(mViews.begin(), mViews.end(), [](const auto& view) {
        auto* toolbar = dynamic_cast<ToolbarView*>(view.get());
        return toolbar != nullptr && toolbar->Control().Visible() && toolbar->Enter();
    });
}

bool FormWindow::OpenDropDown() {
    auto* grid = dynamic_cast<GridView*>(ActiveView());
    return grid != nullptr && grid->OpenDropDown();
}

bool FormWindow::OpenMenu() {
    auto* grid = dynamic_cast<GridView*>(ActiveView());
    return grid != nullptr && grid->OpenMenu();
}

void FormWindow::ScheduleSync() {
    if (mSyncPending) return;
    mSyncPending = true;
    CallAfter([this] { Sync(); });
}

void FormWindow::CatchUp() {
    if (mSyncPending) Sync();
}

void FormWindow::Sync() {
    mSyncPending = false;
    if (!mForm.IsLoaded()) {
        if (IsModal() && mStage.IsTopmost(*this)) EndModal(wxID_CLOSE);
        return;
    }
    // A field that opens or takes the keyboard now would bring this window in front of the one
    // above.
    if (mStage.IsCovered(*this)) return;
    CreateViews();
    SyncFrame();
    mSurface->Sync();
    for (const auto& view : mViews) view->Sync();
    SyncLine();
    if (mFocused != mForm.ActiveControl()) FocusActive();
}

// The surface alone is refreshed: the toolkit paints whatever else is waiting along with it.
void FormWindow::Settle() {
    Sync();
    mPainted = false;
    mSurface->Refresh();
    auto* loop = wxEventLoopBase::GetActive();
    for (int wait = 0; wait < kMaxWaits && !mPainted && loop != nullptr; ++wait) {
        loop->DispatchTimeout(kWaitMilliseconds);
    }
}

void FormWindow::SyncFrame() {
    if (GetTitle() != Text(mForm.Caption())) SetTitle(Text(mForm.Caption()));
    if (mIconPicture != mForm.IconPicture()) {
        mIconPicture = mForm.IconPicture();
        wxIconBundle icons;
        for (const int size : kIconSizes) {
            const wxBitmapBundle picture = FindPicture(mIconPicture, size);
            if (picture.IsOk()) icons.AddIcon(picture.GetIcon(wxSize(size, size)));
        }
        if (!icons.IsEmpty()) SetIcons(icons);
    }

    const auto client = [this](int width, int height) {
        return wxSize(ToPixels(*this, width - controls::Form::kFrameWidth),
                      ToPixels(*this, height - controls::Form::kFrameHeight) +
                          Scaled(*this, LowerLine::kHeight));
    };
    const wxSize least(mForm.MinWidth(), mForm.MinHeight());
    if (least != mLeastSize) {
        mLeastSize = least;
        SetMinClientSize(least == wxSize(0, 0) ? wxDefaultSize : client(least.x, least.y));
    }
    const wxSize size(mForm.Width(), mForm.Height());
    if (size != mFormSize) {
        mFormSize = size;
        wxSize wanted = client(size.x, size.y);
        // With large texts it would reach beyond the screen, with the lower line and the scroll bar
        // where nobody sees them.
        if (mForm.Resizable()) wanted.DecTo(Screen().GetSize() - (GetSize() - GetClientSize()));
        wanted.IncTo(client(least.x, least.y));
        SetClientSize(wanted);
        OnSize();
    }
    const wxPoint place(mForm.Left(), mForm.Top());
    if (place != mFormPlace) {
        mFormPlace = place;
        Move(ToPixels(*this, place.x), ToPixels(*this, place.y));
    }
}

wxRect FormWindow::Screen() const {
    const int number = wxDisplay::GetFromWindow(this);
    const wxDisplay screen(number == wxNOT_FOUND ? 0U : static_cast<unsigned>(number));
    return screen.GetClientArea();
}

// What the current cell shows in part stands there as a whole.
void FormWindow::SyncLine() {
    std::string hint = mForm.Hint();
    View* view = ActiveView();
    if (hint.empty() && view != nullptr) hint = view->CutText();
    mLine->Show(Text(mForm.Notice()), Text(hint), Text(mForm.Figures()));
}

void FormWindow::OnClose(wxCloseEvent& event) {
    if (mForm.IsLoaded()) mForm.Unload(controls::UnloadMode::CloseBox);
    if (mForm.IsLoaded() && event.CanVeto()) event.Veto();
}

void FormWindow::OnSize() {
    const wxSize client = GetClientSize();
    const int line = Scaled(*this, LowerLine::kHeight);
    const int inner = std::max(0, client.y - line);
    mSurface->SetSize(0, 0, client.x, inner);
    mLine->SetSize(0, inner, client.x, line);
    if (!IsShown()) return;
    const int width = ToTwips(*this, client.x) + controls::Form::kFrameWidth;
    const int height = ToTwips(*this, inner) + controls::Form::kFrameHeight;
    // Less than a pixel apart, it is the form's own size, rounded, and no new one.
    const int pixel = ToTwips(*this, 1);
    if (std::abs(width - mFormSize.x) < pixel && std::abs(height - mFormSize.y) < pixel) return;
    mFormSize = {width, height};
    mForm.SetSize(std::max(width, mForm.MinWidth()), std::max(height, mForm.MinHeight()));
    // Without a window manager nothing keeps a window at its least size: the next sync restores it,
    // only once for each size, because something else may insist on that size.
    const bool tooSmall = mForm.Width() != width || mForm.Height() != height;
    if (tooSmall && mTooSmall != mFormSize) {
        mTooSmall = mFormSize;
        ScheduleSync();
    }
}

}  // namespace kelvane::desktop
