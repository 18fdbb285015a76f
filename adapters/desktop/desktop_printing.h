// DesktopPrinting: the screen's file dialogs, the system's printing and a progress window.
#pragma once

#include <wx/cmndata.h>
#include <wx/dialog.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/print_surroundings.h"

namespace kelvane::desktop {

class Stage;

class DesktopPrinting : public platform::PrintSurroundings {
public:
    // `stage` outlives the surroundings; what they show lies over its topmost window.
    explicit DesktopPrinting(Stage& stage);

    // Begins in the folder of the last choice. Asks before an existing file is chosen.
    std::optional<std::string> ChooseFile(const platform::FileQuestion& question) override;
    std::optional<std::string> ChooseFileToOpen(const platform::FileQuestion& question) override;
    // With the system's print dialog, set to the pages' paper and to the printer used last.
    bool PrintPages(const platform::PageSource& pages) override;
    std::unique_ptr<platform::Progress> StartProgress(const std::string& title) override;

private:
    int Show(wxDialog& dialog);
    bool MayReplace(const std::string& path, const std::string& title);

    Stage& mStage;
    std::string mFolder;
    wxPrintData mPrinter;
};

}  // namespace kelvane::desktop
