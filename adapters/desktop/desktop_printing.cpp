#include "adapters/desktop/desktop_printing.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/print.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <stdexcept>
#include <utility>

#include "adapters/desktop/file_name.h"
#include "adapters/desktop/look.h"
#include "adapters/desktop/paper.h"
#include "adapters/desktop/printout.h"
#include "adapters/desktop/progress_window.h"
#include "adapters/desktop/stage.h"

namespace kelvane::desktop {

namespace {

// While it lives the toolkit's complaints are kept instead of shown.
class KeptLog {
public:
    KeptLog() : mBefore(wxLog::SetActiveTarget(&mKept)) {}
    ~KeptLog() { wxLog::SetActiveTarget(mBefore); }
    KeptLog(const KeptLog&) = delete;
    KeptLog& operator=(const KeptLog&) = delete;

    std::string Complaints() const { return Utf8(mKept.GetBuffer()); }

private:
    // The toolkit flushes a log at its end, which would show what is left in it.
    class Buffer : public wxLogBuffer {
    public:
        void Flush() override {}
    };

    Buffer mKept;
    wxLog* mBefore;
};

}  // namespace

DesktopPrinting::DesktopPrinting(Stage& stage)
    : mStage(stage), mFolder(Utf8(wxStandardPaths::Get().GetDocumentsDir())) {}

std::optional<std::string> DesktopPrinting::ChooseFile(const platform::FileQuestion& question) {
    // The kind that is chosen in the dialog gives the name its extension.
    std::string name = WithoutExtension(question.suggestedName, question.types);
    std::size_t kind = 0;
    for (;;) {
        wxFileDialog dialog(mStage.TopWindow(), Text(question.title), Text(mFolder), Text(name),
                            Text(FilterOf(question.types)), wxFD_SAVE);
        dialog.SetFilterIndex(static_cast<int>(kind));
        if (Show(dialog) != wxID_OK) return std::nullopt;
        // A typed path may lead to another folder than the one that the dialog shows.
        const wxFileName file(dialog.GetPath());
        mFolder = Utf8(file.GetPath());
        name = Utf8(file.GetFullName());
        const std::size_t offered =
            std::exchange(kind, static_cast<std::size_t>(dialog.GetFilterIndex()));
        std::string path = WithExtension(Utf8(dialog.GetPath()), question.types.at(offered),
                                         question.types.at(kind), question.types);
        if (MayReplace(path, question.title)) return path;
    }
}

std::optional<std::string> DesktopPrinting::ChooseFileToOpen(
    const platform::FileQuestion& question) {
    wxFileDialog dialog(mStage.TopWindow(), Text(question.title), Text(mFolder),
                        Text(question.suggestedName), Text(FilterOf(question.types)),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (Show(dialog) != wxID_OK) return std::nullopt;
    const wxFileName file(dialog.GetPath());
    mFolder = Utf8(file.GetPath());
    return Utf8(dialog.GetPath());
}

int DesktopPrinting::Show(wxDialog& dialog) {
    const Stage::SystemDialog above(mStage);
    return dialog.ShowModal();
}

// Asks in the dialog's place: that would ask about the name as it was typed, without the extension
// that it gets afterwards.
bool DesktopPrinting::MayReplace(const std::string& path, const std::string& title) {
    const wxFileName file(Text(path));
    if (!file.Exists()) return true;
    return mStage.Ask({.text = "文件“" + Utf8(file.GetFullName()) + "”已经存在，要替换它吗？",
                       .caption = title,
                       .icon = platform::MessageIcon::Question,
                       .buttons = platform::MessageButtons::YesNo,
                       .preselected = platform::MessageAnswer::No}) == platform::MessageAnswer::Yes;
}

bool DesktopPrinting::PrintPages(const platform::PageSource& pages) {
    SetPaper(mPrinter, pages.PageWidth(), pages.PageHeight());
    wxPrintDialogData choice(mPrinter);
    choice.SetMinPage(1);
    choice.SetMaxPage(pages.PageCount());
    choice.SetFromPage(1);
    choice.SetToPage(pages.PageCount());
    choice.EnableSelection(false);
    wxPrinter printer(&choice);
    Printout printout(pages);
    const KeptLog log;
    const Stage::SystemDialog above(mStage);
    // The pages must stay as they are while they are drawn.
    const wxWindowDisabler others;
    if (printer.Print(mStage.TopWindow(), &printout, true)) {
        mPrinter = printer.GetPrintDialogData().GetPrintData();
        return true;
    }
    if (wxPrinter::GetLastError() == wxPRINTER_CANCELLED) return false;
    throw std::runtime_error("the system did not print: " + log.Complaints());
}

std::unique_ptr<platform::Progress> DesktopPrinting::StartProgress(const std::string& title) {
    return std::make_unique<ProgressWindow>(mStage.TopWindow(), title);
}

}  // namespace kelvane::desktop
