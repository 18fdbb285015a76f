#include "adapters/desktop/page_desk.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/graphics.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "adapters/desktop/form_keys.h"
#include "adapters/desktop/look.h"
#include "adapters/desktop/page_drawing.h"

namespace kelvane::desktop {

namespace {

constexpr int kScrollStep = 16;  // pixels at 100 % scaling
constexpr int kStepsPerWheelStep = 4;
constexpr int kShadow = 4;
constexpr unsigned char kShadowStrength = 14;

const wxColour kDesk{128, 132, 138};
const wxColour kSheetEdge{96, 100, 106};

}  // namespace

PageDesk::PageDesk(wxWindow& parent, controls::PageView& pages, ViewHost& host)
    : View(pages), mPages(pages), mDesk(new wxScrolledCanvas) {
    mDesk->SetBackgroundStyle(wxBG_STYLE_PAINT);
    mDesk->Create(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                  wxWANTS_CHARS | wxBORDER_NONE | wxHSCROLL | wxVSCROLL);
    const int step = Scaled(*mDesk, kScrollStep);
    mDesk->SetScrollRate(step, step);
    mSpoken = std::make_unique<SpokenWindow>(*mDesk, *this);
    host.Keys().Attach(*mDesk);
    mDesk->Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
    mDesk->Bind(wxEVT_MOUSEWHEEL, &PageDesk::OnWheel, this);
    mDesk->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { mDesk->SetFocus(); });
    mDesk->Bind(wxEVT_SET_FOCUS, [this, &host](wxFocusEvent& event) {
        host.OperatorFocused(mPages);
        event.Skip();
    });
}

wxSize PageDesk::SheetSize() const {
    return {ToPixels(*mDesk, mPages.ShownWidth()), ToPixels(*mDesk, mPages.ShownHeight())};
}

wxRect PageDesk::Sheet() const {
    const wxSize size = SheetSize();
    const wxSize whole = mDesk->GetVirtualSize();
    const wxPoint corner((whole.x - size.x) / 2, (whole.y - size.y) / 2);
    return {mDesk->CalcScrolledPosition(corner), size};
}

bool PageDesk::TakeKey(const KeyStroke& stroke) {
    if (stroke.shift == 0 && ScrollWith(stroke.key)) return true;
    return mPages.KeyDown(stroke.key, stroke.shift);
}

bool PageDesk::ScrollWith(platform::Key key) {
    wxPoint steps;
    switch (key) {
        case platform::Key::Up:
            steps.y = -1;
            break;
        case platform::Key::Down:
            steps.y = 1;
            break;
        case platform::Key::Left:
            steps.x = -1;
            break;
        case platform::Key::Right:
            steps.x = 1;
            break;
        default:
            return false;
    }
    const wxPoint place = mDesk->GetViewStart() + steps * kStepsPerWheelStep;
    mDesk->Scroll(std::max(0, place.x), std::max(0, place.y));
    return true;
}

void PageDesk::Update() {
    const wxSize client = mDesk->GetClientSize();
    const wxRect before = mDrawnSheet;
    mContent.reset();
    mDrawn = wxBitmap();
    if (mPages.Zoom() == controls::PageView::kWholePage) {
        mDesk->SetVirtualSize(client);
    } else {
        const int margin = ToPixels(*mDesk, controls::PageView::kPageMargin);
        mDesk->SetVirtualSize(SheetSize() + wxSize(2 * margin, 2 * margin));
    }
    if (mPages.Page() != mShownPage) {
        mShownPage = mPages.Page();
        LookAt(0.5, mTurnedBack ? 1 : 0);
        mTurnedBack = false;
    } else if (before.GetSize() != SheetSize() && !before.IsEmpty()) {
        LookAt((client.x / 2.0 - before.x) / before.width,
               (client.y / 2.0 - before.y) / before.height);
    }
    mDesk->Refresh(false);
    mSpoken->Follow();
}

void PageDesk::LookAt(double x, double y) {
    const wxSize client = mDesk->GetClientSize();
    const wxRect sheet = Sheet();
    const auto units = [this](double pixels) {
        return std::max(0, static_cast<int>(std::lround(pixels / Scaled(*mDesk, kScrollStep))));
    };
    const wxPoint corner = mDesk->CalcUnscrolledPosition(sheet.GetTopLeft());
    mDesk->Scroll(units(corner.x + x * sheet.width - client.x / 2.0),
                  units(corner.y + y * sheet.height - client.y / 2.0));
}

void PageDesk::Paint() {
    wxAutoBufferedPaintDC dc(mDesk);
    const wxRect sheet = Sheet();
    const bool fits = mDrawn.IsOk() && mDrawn.GetLogicalSize() == mDesk->GetClientSize();
    if (!fits || mDrawnSheet != sheet) DrawDesk(sheet);
    dc.DrawBitmap(mDrawn, 0, 0);
}

void PageDesk::DrawDesk(const wxRect& sheet) {
    const double dots = mDesk->GetContentScaleFactor();
    mDrawnSheet = sheet;
    mDrawn = wxBitmap();
    mDrawn.CreateWithDIPSize(mDesk->GetClientSize(), dots);
    wxMemoryDC memory(mDrawn);
    memory.SetBackground(wxBrush(kDesk));
    memory.Clear();
    const platform::PageSource* source = mPages.Source();
    if (source == nullptr) return;
    if (!mContent) mContent = source->MakePage(mPages.Page());

    const std::unique_ptr<wxGraphicsContext> target(wxGraphicsContext::Create(memory));
    target->SetPen(wxGraphicsPen());
    target->SetBrush(wxBrush(wxColour(0, 0, 0, kShadowStrength)));
    for (int edge = kShadow; edge > 0; --edge) {
        target->DrawRoundedRectangle(sheet.x - edge + 1, sheet.y - edge + 3, sheet.width + 2 * edge,
                                     sheet.height + 2 * edge, edge + 1);
    }
    target->SetPen(wxPen(kSheetEdge));
    target->SetBrush(*wxWHITE_BRUSH);
    target->DrawRectangle(sheet.x - 0.5, sheet.y - 0.5, sheet.width + 1, sheet.height + 1);
    target->Clip(sheet.x, sheet.y, sheet.width, sheet.height);
    target->Translate(sheet.x, sheet.y);
    DrawPage(*target, *mContent, static_cast<double>(sheet.width) / source->PageWidth(), 1 / dots);
}

void PageDesk::OnWheel(wxMouseEvent& event) {
    mWheelRest += event.GetWheelRotation();
    const int delta = std::max(1, event.GetWheelDelta());
    const int steps = mWheelRest / delta;
    mWheelRest -= steps * delta;
    if (steps == 0) return;
    if (event.ControlDown()) {
        for (int step = 0; step < std::abs(steps); ++step) {
            steps > 0 ? mPages.ZoomIn() : mPages.ZoomOut();
        }
    } else if (event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL) {
        mDesk->Scroll(mDesk->GetViewStart().x + steps * kStepsPerWheelStep, wxDefaultCoord);
    } else if (event.ShiftDown()) {
        mDesk->Scroll(mDesk->GetViewStart().x - steps * kStepsPerWheelStep, wxDefaultCoord);
    } else {
        ScrollOrTurn(-steps);
    }
}

void PageDesk::ScrollOrTurn(int steps) {
    const int before = mDesk->GetViewStart().y;
    mDesk->Scroll(wxDefaultCoord, std::max(0, before + steps * kStepsPerWheelStep));
    if (mDesk->GetViewStart().y != before) return;
    mTurnedBack = steps < 0 && mPages.Page() > 1;
    mPages.SetPage(mPages.Page() + (steps > 0 ? 1 : -1));
}

}  // namespace kelvane::desktop
