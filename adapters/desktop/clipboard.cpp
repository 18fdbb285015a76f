#include "adapters/desktop/clipboard.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/textbuf.h>

#include "adapters/desktop/look.h"

namespace kelvane::desktop {

namespace {

bool gWritten = false;

}  // namespace

void WriteClipboard(const std::string& text) {
    const wxClipboardLocker clipboard;
    if (!clipboard) return;
    // The clipboard owns the object.
    auto* data = new wxTextDataObject(wxTextBuffer::Translate(Text(text)));
    gWritten = wxTheClipboard->SetData(data) || gWritten;
}

std::string ReadClipboard() {
    const wxClipboardLocker clipboard;
    wxTextDataObject data;
    if (!clipboard || !wxTheClipboard->GetData(data)) return {};
    return Utf8(wxTextBuffer::Translate(data.GetText(), wxTextFileType_Unix));
}

void KeepClipboard() {
    if (gWritten) wxTheClipboard->Flush();
    gWritten = false;
}

}  // namespace kelvane::desktop
