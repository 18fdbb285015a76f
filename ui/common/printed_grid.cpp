#include "ui/common/printed_grid.h"

#include <utility>

#include "data/login_context.h"
#include "ui/common/print_setup.h"

namespace kelvane::ui {

void PrintedGrid::CaptureLayout() {
    layout = mGrid.FormatText();
}

bool PrintedGrid::SetUp(const std::string& title, std::vector<platform::PrintItem> header,
                        std::vector<platform::PrintItem> footer) {
    control = data::gServices->createPrintControl();
    control->SaveSettings = mSaveSettings;
    return SetUpPrint(*control, {.grid = mGrid,
                                 .title = title,
                                 .loadedLayout = layout,
                                 .header = std::move(header),
                                 .footer = std::move(footer)});
}

bool PrintedGrid::Export() {
    return ExportGrid(*control, mGrid);
}

}  // namespace kelvane::ui
