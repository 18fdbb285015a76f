#include "adapters/desktop/toolbar_view.h"

#include <wx/dcbuffer.h>

#include <algorithm>
#include <utility>

#include "adapters/desktop/pictures.h"
#include "platform/key_names.h"

namespace kelvane::desktop {

namespace {

using Item = controls::ToolbarStyleControl::Item;

constexpr int kIconSize = 24;
constexpr int kGap = 4;
constexpr int kPadding = 9;
constexpr int kSeparatorWidth = 9;
constexpr int kEdgeMargin = 4;
constexpr int kMinButtonWidth = 46;

// A toolbar's buttons with the pictures of their images.
std::vector<Item> ItemsOf(const controls::Toolbar& toolbar) {
    std::vector<Item> items;
    const auto& images = toolbar.Images();
    for (const controls::ToolbarButton& button : toolbar.Buttons()) {
        const auto image = std::find_if(images.begin(), images.end(), [&](const auto& candidate) {
            return candidate.key == button.Image();
        });
        items.push_back({button.Key(), button.Caption(), image == images.end() ? 0 : image->picture,
                         button.IsSeparator(), button.Enabled(), button.Visible(),
                         button.Stroke()});
    }
    return items;
}

class ToolbarWindow : public wxWindow {
public:
    explicit ToolbarWindow(wxWindow& parent) {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Create(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_NONE);
        SetFont(UiFont());
    }
};

}  // namespace

ToolbarView::ToolbarView(wxWindow& parent, controls::Toolbar& toolbar, ViewHost& host)
    : ToolbarView(parent, toolbar, host,
                  {[&toolbar] { return ItemsOf(toolbar); },
                   [&toolbar](const std::string& key) { toolbar.Click(key); }},
                  false) {}

ToolbarView::ToolbarView(wxWindow& parent, controls::ToolbarStyleControl& control, ViewHost& host)
    : ToolbarView(parent, control, host,
                  {[&control] { return control.Items(); },
                   [&control](const std::string& key) { control.Click(key); }},
                  true) {}

ToolbarView::ToolbarView(wxWindow& parent, controls::Control& control, ViewHost& host,
                         Source source, bool suite)
    : View(control),
      mHost(host),
      mSource(std::move(source)),
      mSuite(suite),
      mWindow(new ToolbarWindow(parent)),
      mSpoken(*mWindow, *this) {
    mWindow->Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
    mWindow->Bind(wxEVT_MOTION,
                  [this](wxMouseEvent& event) { Point(ItemAt(event.GetPosition())); });
    mWindow->Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) {
        mPressed = false;
        Point(-1);
    });
    const auto press = [this](wxMouseEvent& event) {
        SetHot(ItemAt(event.GetPosition()));
        mPressed = mHot >= 0;
        mWindow->Refresh(false);
    };
    mWindow->Bind(wxEVT_LEFT_DOWN, press);
    mWindow->Bind(wxEVT_LEFT_DCLICK, press);
    mWindow->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
        const bool clicked = mPressed && mHot >= 0 && ItemAt(event.GetPosition()) == mHot;
        mPressed = false;
        mWindow->Refresh(false);
        if (clicked) Click(mHot);
    });
    mWindow->Bind(wxEVT_CHAR, &ToolbarView::OnKey, this);
    mWindow->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        mEntered = false;
        SetHot(-1);
        event.Skip();
    });
}

void ToolbarView::Update() {
    mItems = mSource.items();
    mPlaces.clear();
    if (mHot >= static_cast<int>(mItems.size()) || (mHot >= 0 && !CanClick(mHot))) mHot = -1;
    mWindow->Refresh(false);
    mSpoken.Follow();
}

controls::Spoken ToolbarView::Part(int part) {
    return SpokenOf(mItems[static_cast<std::size_t>(part)]);
}

wxRect ToolbarView::PlaceOf(int part) {
    return mItems[static_cast<std::size_t>(part)].visible ? Places()[static_cast<std::size_t>(part)]
                                                          : wxRect();
}

const std::vector<wxRect>& ToolbarView::Places() {
    if (mPlaces.size() == mItems.size()) return mPlaces;
    mPlaces.clear();
    const int height = mWindow->GetClientSize().y;
    const int icon = Scaled(*mWindow, kIconSize);
    const int padding = Scaled(*mWindow, kPadding);
    mCaptionBelow = height >= icon + mWindow->GetCharHeight() + Scaled(*mWindow, kGap);
    int x = Scaled(*mWindow, kEdgeMargin);
    for (const Item& item : mItems) {
        int width = 0;
        if (item.visible && item.separator) {
            width = Scaled(*mWindow, kSeparatorWidth);
        } else if (item.visible) {
            const int caption = mWindow->GetTextExtent(Text(item.caption)).x;
            width =
                mCaptionBelow ? std::max(caption, icon) : caption + icon + Scaled(*mWindow, kGap);
            width = std::max(width + 2 * padding, Scaled(*mWindow, kMinButtonWidth));
        }
        mPlaces.emplace_back(x, 2, width, height - 5);
        x += width;
    }
    return mPlaces;
}

void ToolbarView::Paint() {
    wxAutoBufferedPaintDC dc(mWindow);
    const wxRect area(mWindow->GetClientSize());
    if (mSuite) {
        dc.GradientFillLinear(area, look::kStripTop, look::kStripBottom, wxDOWN);
    } else {
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(look::kWindow));
        dc.DrawRectangle(area);
    }
    dc.SetPen(wxPen(mSuite ? look::kStripEdge : look::kEdge));
    dc.DrawLine(0, area.GetBottom(), area.width, area.GetBottom());
    dc.SetFont(mWindow->GetFont());
    for (std::size_t index = 0; index < mItems.size(); ++index) PaintItem(dc, index);
}

void ToolbarView::PaintItem(wxDC& dc, std::size_t index) {
    const Item& item = mItems[index];
    const wxRect place = Places()[index];
    if (!item.visible) return;
    if (item.separator) {
        const int x = place.x + place.width / 2;
        dc.SetPen(wxPen(mSuite ? look::kStripEdge : look::kEdge));
        dc.DrawLine(x, place.y + kGap, x, place.GetBottom() - kGap);
        return;
    }
    if (static_cast<int>(index) == mHot && item.enabled) {
        dc.SetPen(wxPen(look::kCurrent));
        dc.SetBrush(wxBrush(mPressed ? look::kPressed : look::kHover));
        dc.DrawRoundedRectangle(place.Deflate(1, 0), mSuite ? 4 : 2);
        if (mEntered) DrawFocus(dc, place.Deflate(1, 0));
    }
    const int side = Scaled(*mWindow, kIconSize);
    const wxBitmap icon = PictureFor(*mWindow, item.picture, side, item.enabled);
    const wxString caption = Text(item.caption);
    const wxSize extent = dc.GetTextExtent(caption);
    const wxSize iconSize(side, side);
    const int gap = mCaptionBelow ? 1 : Scaled(*mWindow, kGap);
    wxPoint iconAt;
    wxPoint captionAt;
    if (mCaptionBelow) {
        const int top = place.y + (place.height - iconSize.y - gap - extent.y) / 2;
        iconAt = {place.x + (place.width - iconSize.x) / 2, top};
        captionAt = {place.x + (place.width - extent.x) / 2, top + iconSize.y + gap};
    } else {
        const int left = place.x + (place.width - iconSize.x - gap - extent.x) / 2;
        iconAt = {left, place.y + (place.height - iconSize.y) / 2};
        captionAt = {left + iconSize.x + gap, place.y + (place.height - extent.y) / 2};
    }
    if (icon.IsOk()) dc.DrawBitmap(icon, iconAt, true);
    dc.SetTextForeground(item.enabled ? look::kText : look::kFaintText);
    dc.DrawText(caption, captionAt);
}

int ToolbarView::ItemAt(wxPoint point) {
    const auto& places = Places();
    for (std::size_t index = 0; index < places.size(); ++index) {
        if (places[index].Contains(point)) {
            return CanClick(static_cast<int>(index)) ? static_cast<int>(index) : -1;
        }
    }
    return -1;
}

bool ToolbarView::CanClick(int index) const {
    const Item& item = mItems[static_cast<std::size_t>(index)];
    return item.visible && item.enabled && !item.separator;
}

void ToolbarView::SetHot(int index) {
    if (index == mHot) return;
    mHot = index;
    const Item item = index < 0 ? Item() : mItems[static_cast<std::size_t>(index)];
    ShowTip(*mWindow, platform::CaptionWithKey(item.caption, item.stroke));
    mWindow->Refresh(false);
    mSpoken.Follow();
}

// The button that has the keyboard stays marked when the pointer goes where no button is.
void ToolbarView::Point(int index) {
    if (index >= 0 || !mEntered) SetHot(index);
}

void ToolbarView::Click(int index) {
    const std::string key = mItems[static_cast<std::size_t>(index)].key;
    mSource.click(key);
}

bool ToolbarView::Enter() {
    const int count = static_cast<int>(mItems.size());
    for (int index = 0; index < count; ++index) {
        if (!CanClick(index)) continue;
        mWindow->SetFocus();
        mEntered = true;
        SetHot(index);
        mWindow->Refresh(false);
        return true;
    }
    return false;
}

void ToolbarView::OnKey(wxKeyEvent& event) {
    const KeyStroke stroke = StrokeOfCharacter(event, event.GetKeyCode());
    const int count = static_cast<int>(mItems.size());
    switch (stroke.key) {
        case platform::Key::Left:
        case platform::Key::Right: {
            const int step = stroke.key == platform::Key::Left ? -1 : 1;
            int index = mHot + step;
            while (index >= 0 && index < count && !CanClick(index)) index += step;
            if (index >= 0 && index < count) SetHot(index);
            break;
        }
        case platform::Key::Enter:
        case platform::Key::Space: {
            const int chosen = mHot;
            mHost.FocusActive();
            if (chosen >= 0) Click(chosen);
            break;
        }
        case platform::Key::Escape:
        case platform::Key::F10:
        case platform::Key::Tab:
            mHost.FocusActive();
            break;
        default:
            event.Skip();
    }
}

}  // namespace kelvane::desktop
