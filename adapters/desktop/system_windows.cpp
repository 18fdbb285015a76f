// Windows, which draws with GDI.

#include <wx/fontenum.h>
#include <wx/msw/private.h>
#include <wx/tokenzr.h>
// Comes after the headers that define Windows' own types, which it uses.
#include <gdiplus.h>

#include "adapters/desktop/look.h"
#include "adapters/desktop/system.h"
#include "platform/page.h"

// The linker's name for the start of the module.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace kelvane::desktop {

namespace {

// Keeps the drawing library running for as long as the object lives.
class Drawing {
public:
    Drawing() { mRuns = Gdiplus::GdiplusStartup(&mToken, &mInput, nullptr) == Gdiplus::Ok; }
    ~Drawing() {
        if (mRuns) Gdiplus::GdiplusShutdown(mToken);
    }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    bool Runs() const { return mRuns; }

private:
    Gdiplus::GdiplusStartupInput mInput;
    ULONG_PTR mToken = 0;
    bool mRuns = false;
};

// The system's writer of PNG files.
constexpr CLSID kPngWriter = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

}  // namespace

void BelongToModule() {
    wxSetInstance(reinterpret_cast<HINSTANCE>(&__ImageBase));
}

// The system's dialogs speak its own language.
void SpeakChinese() {}

// The toolkit's fields and dialogs are light whatever the session's are.
void KeepLight() {}

void ShowFocus(wxTopLevelWindow& window) {
    SendMessage(window.GetHWND(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
}

// The drawing library's own resolution, whatever the screen's.
double DotsPerInch() {
    return 96;
}

// Texts and all other pixels grow alike.
double TextScale(const wxWindow* window) {
    constexpr int kProbe = 9600;  // long enough that rounding to whole pixels does not show
    return static_cast<double>(wxWindow::FromDIP(kProbe, window)) / kProbe;
}

wxString PageFace() {
    wxStringTokenizer faces(wxString::FromUTF8(platform::kPageFonts), ",");
    while (faces.HasMoreTokens()) {
        wxString face = faces.GetNextToken().Trim(false);
        if (wxFontEnumerator::IsValidFacename(face)) return face;
    }
    return {};
}

void HoldMouse(wxWindow& window) {
    if (!window.HasCapture()) window.CaptureMouse();
}

// The screen is read anew every time.
void ForgetPicture(wxDC& /*screen*/) {}

bool SavePng(const wxBitmap& picture, const std::string& path) {
    const Drawing drawing;
    if (!drawing.Runs()) return false;
    Gdiplus::Bitmap bitmap(picture.GetHBITMAP(), nullptr);
    return bitmap.Save(Text(path).wc_str(), &kPngWriter, nullptr) == Gdiplus::Ok;
}

// The origin lies in the corner of the area that the printer reaches, not in the paper's.
void MoveToCorner(wxGraphicsContext& target, const wxRect& paper) {
    target.Translate(paper.x, paper.y);
}

}  // namespace kelvane::desktop
