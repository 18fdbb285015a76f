// GridView: a grid on the screen: the canvas its cells are painted on, the scroll bars and the
// editor of the open cell.
#pragma once

#include <wx/panel.h>
#include <wx/scrolbar.h>

#include <memory>

#include "adapters/desktop/cell_editor.h"
#include "adapters/desktop/spoken_grid.h"
#include "adapters/desktop/view.h"
#include "adapters/desktop/view_host.h"
#include "controls/grid.h"

namespace kelvane::desktop {

class GridCanvas;

class GridView : public View {
public:
    GridView(wxWindow& parent, controls::Grid& grid, ViewHost& host);
    ~GridView() override;

    wxWindow& Window() override { return *mPane; }
    wxWindow* FocusWindow() override;
    // The parent window of the controls that lie over the grid.
    wxWindow& Canvas();
    bool TakeKey(const KeyStroke& stroke) override;
    bool TakeCharacter(char32_t character) override;
    void TypeCharacter(char32_t character) override;
    std::string CutText() override;

    // Opens what the current cell offers: its list, its reference list, or the button that lies
    // over it. False when it offers nothing.
    bool OpenDropDown();
    // Opens the context menu at the current cell; false while a cell is open, whose field has its
    // own.
    bool OpenMenu();

protected:
    void Update() override;

private:
    void LayOut();
    void ShowList();
    void OnScroll(wxScrollEvent& event);

    controls::Grid& mGrid;
    ViewHost& mHost;
    wxWindow* mPane;
    wxScrollBar* mVertical;
    wxScrollBar* mHorizontal;
    GridCanvas* mCanvas;
    std::unique_ptr<CellEditor> mEditor;
    std::unique_ptr<SpokenGrid> mWords;
    std::unique_ptr<SpokenWindow> mSpoken;
};

}  // namespace kelvane::desktop
