#include "adapters/desktop/grid_view.h"

#include <wx/menu.h>

#include <algorithm>

#include "adapters/desktop/form_keys.h"
#include "adapters/desktop/grid_canvas.h"

namespace kelvane::desktop {

using platform::Key;

namespace {

// Keys that work inside the text of an open cell.
bool BelongsToField(const KeyStroke& stroke) {
    if (stroke.character != 0) return true;
    switch (stroke.key) {
        case Key::Left:
        case Key::Right:
        case Key::Home:
        case Key::End:
        case Key::Insert:
        case Key::Delete:
        case Key::Backspace:
            return true;
        default:
            return stroke.shift == platform::kCtrl && stroke.key >= Key::A && stroke.key <= Key::Z;
    }
}

void SetScrollBar(wxScrollBar& bar, int position, int page, int range) {
    page = std::clamp(page, 1, std::max(1, range));
    // With nothing to scroll the toolkit draws it as a dark block.
    bar.Show(range > page);
    if (bar.GetThumbPosition() == position && bar.GetThumbSize() == page &&
        bar.GetRange() == range) {
        return;
    }
    bar.SetScrollbar(position, page, std::max(1, range), page);
}

}  // namespace

GridView::GridView(wxWindow& parent, controls::Grid& grid, ViewHost& host)
    : View(grid),
      mGrid(grid),
      mHost(host),
      mPane(new wxWindow(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE)),
      mVertical(new wxScrollBar(mPane, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSB_VERTICAL)),
      mHorizontal(new wxScrollBar(mPane, wxID_ANY)),
      mCanvas(new GridCanvas(*mPane, grid, host, [this] { OpenDropDown(); })),
      mEditor(std::make_unique<CellEditor>(*mCanvas, grid, host)),
      mWords(std::make_unique<SpokenGrid>(*mCanvas, grid)),
      mSpoken(std::make_unique<SpokenWindow>(*mCanvas, *mWords)) {
    mGrid.MeasureText = [this](const std::string& text) { return mCanvas->NeededTwips(text); };
    mPane->Bind(wxEVT_SIZE, [this](wxSizeEvent&) { LayOut(); });
    mPane->SetBackgroundColour(look::kWindow);
    // The canvas alone takes the keyboard; its keys scroll by moving the current cell.
    mPane->SetCanFocus(false);
    mVertical->SetCanFocus(false);
    mHorizontal->SetCanFocus(false);
    for (const auto& type :
         {wxEVT_SCROLL_TOP, wxEVT_SCROLL_BOTTOM, wxEVT_SCROLL_LINEUP, wxEVT_SCROLL_LINEDOWN,
          wxEVT_SCROLL_PAGEUP, wxEVT_SCROLL_PAGEDOWN, wxEVT_SCROLL_THUMBTRACK,
          wxEVT_SCROLL_THUMBRELEASE, wxEVT_SCROLL_CHANGED}) {
        mVertical->Bind(type, &GridView::OnScroll, this);
        mHorizontal->Bind(type, &GridView::OnScroll, this);
    }
}

GridView::~GridView() {
    mGrid.MeasureText = nullptr;
}

wxWindow& GridView::Canvas() {
    return *mCanvas;
}

wxWindow* GridView::FocusWindow() {
    return mEditor->IsShown() ? mEditor->Field() : mCanvas;
}

void GridView::LayOut() {
    const wxSize size = mPane->GetClientSize();
    const int bar = ToPixels(*mPane, controls::Grid::kScrollBar);
    const int width = size.x - bar;
    const int height = size.y - bar;
    // A scroll bar shorter than its own ends cannot be drawn.
    if (width < 2 * bar || height < 2 * bar) return;
    mCanvas->SetSize(0, 0, width, height);
    mVertical->SetSize(width, 0, bar, height);
    mHorizontal->SetSize(0, height, width, bar);
}

void GridView::Update() {
    // A top row near the end leaves the page unfilled; the bar then stands at its end.
    const int lastTop = GridMetrics::LastTopRow(mGrid);
    SetScrollBar(*mVertical, std::min(mGrid.TopRow(), lastTop) - mGrid.FixedRows(),
                 mGrid.Rows() - lastTop, mGrid.Rows() - mGrid.FixedRows());
    const int lastLeft = GridMetrics::LastLeftCol(mGrid);
    SetScrollBar(*mHorizontal, std::min(mGrid.LeftCol(), lastLeft) - mGrid.FixedCols(),
                 mGrid.Cols() - lastLeft, mGrid.Cols() - mGrid.FixedCols());
    mEditor->Sync(mCanvas->Metrics().CurrentField());
    mCanvas->Refresh(false);
    // At once, not with the next frame: who holds a key down sees every page.
    mCanvas->Update();
    // That painted the bars along, before the toolkit had moved their thumbs: once more, with the
    // next frame.
    mVertical->Refresh();
    mHorizontal->Refresh();
    mSpoken->Follow();
}

void GridView::OnScroll(wxScrollEvent& event) {
    if (event.GetEventObject() == mVertical) {
        mGrid.SetTopRow(event.GetPosition() + mGrid.FixedRows());
    } else {
        mGrid.SetLeftCol(event.GetPosition() + mGrid.FixedCols());
    }
}

bool GridView::TakeKey(const KeyStroke& stroke) {
    if (mEditor->HasFocus() && BelongsToField(stroke)) return false;
    bool used = false;
    mHost.Form().RunEvent("KeyDown", [&] { used = mGrid.KeyDown(stroke.key, stroke.shift); });
    return used;
}

bool GridView::TakeCharacter(char32_t character) {
    if (!mEditor->HasFocus() || !mGrid.TakesCharacter(character) || !mGrid.MayChangeText()) {
        mHost.Form().RunEvent("KeyPress", [&] { mGrid.KeyPress(character); });
        return true;
    }
    mEditor->ExpectCharacter(character);
    return false;
}

void GridView::TypeCharacter(char32_t character) {
    mEditor->Type(character);
}

std::string GridView::CutText() {
    if (mGrid.IsEditing() || mGrid.Row() < mGrid.FixedRows()) return {};
    return mCanvas->CutText({mGrid.Row(), mGrid.Col()});
}

bool GridView::OpenDropDown() {
    const int row = mGrid.Row();
    if (row < mGrid.FixedRows()) return false;
    if (mGrid.CanPressReference()) return mGrid.PressReference();
    if (!mGrid.HasList(mGrid.Col()) || mGrid.ReadOnly() || mGrid.IsLocked(row, mGrid.Col())) {
        return false;
    }
    ShowList();
    return true;
}

bool GridView::OpenMenu() {
    if (mGrid.IsEditing()) return false;
    const wxRect cell = mCanvas->Metrics().CellRect(mGrid.Row(), mGrid.Col());
    mCanvas->ShowMenu(cell.IsEmpty() ? wxPoint(0, 0) : cell.GetBottomLeft());
    return true;
}

void GridView::ShowList() {
    const std::vector<std::string> items = mGrid.OpenList();
    if (items.empty()) return;
    const wxRect cell = mCanvas->Metrics().CellRect(mGrid.Row(), mGrid.Col());
    wxMenu menu;
    const int first = wxID_HIGHEST + 1;
    for (std::size_t index = 0; index < items.size(); ++index) {
        // An item without a text would be taken for a stock item's caption.
        const wxString caption = items[index].empty() ? wxString(" ") : Text(items[index]);
        menu.Append(first + static_cast<int>(index), wxControl::EscapeMnemonics(caption));
    }
    const int chosen = mCanvas->GetPopupMenuSelectionFromUser(menu, cell.GetBottomLeft());
    if (chosen == wxID_NONE) return;
    mGrid.ChooseListItem(items[static_cast<std::size_t>(chosen - first)]);
}

}  // namespace kelvane::desktop
