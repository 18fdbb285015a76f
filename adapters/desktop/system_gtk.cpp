// GTK, which draws with cairo.

#include <cairo.h>
#include <gtk/gtk.h>
#include <wx/image.h>
#include <wx/utils.h>
#include <wx/wfstream.h>

#include <algorithm>
#include <clocale>
#include <string_view>

#include "adapters/desktop/look.h"
#include "adapters/desktop/system.h"
#include "platform/page.h"

namespace kelvane::desktop {

void BelongToModule() {}

// Sets the language of letters and messages alone: numbers stay as the program writes them.
void SpeakChinese() {
    wxSetEnv("LANGUAGE", "zh_CN");
    for (const int category : {LC_CTYPE, LC_MESSAGES}) {
        const char* session = std::setlocale(category, "");
        // In the C locale no translation is looked up, whatever LANGUAGE says.
        if (session == nullptr || session == std::string_view("C") ||
            session == std::string_view("POSIX")) {
            std::setlocale(category, "C.UTF-8");
        }
    }
}

namespace {

constexpr double kPlainDotsPerInch = 96;

// Whether fields have light letters: their background may be a picture.
bool IsDark() {
    GtkWidget* field = gtk_entry_new();
    g_object_ref_sink(field);
    GdkRGBA letters;
    gtk_style_context_get_color(gtk_widget_get_style_context(field), GTK_STATE_FLAG_NORMAL,
                                &letters);
    g_object_unref(field);
    return letters.red + letters.green + letters.blue > 1.5;
}

}  // namespace

// What the program itself sets also stays when the session changes from day to night.
void KeepLight() {
    GtkSettings* settings = gtk_settings_get_default();
    g_object_set(settings, "gtk-application-prefer-dark-theme", FALSE, nullptr);
    gchar* theme = nullptr;
    g_object_get(settings, "gtk-theme-name", &theme, nullptr);
    const bool dark = IsDark();
    // The variable goes before all settings.
    if (dark) wxUnsetEnv("GTK_THEME");
    g_object_set(settings, "gtk-theme-name", dark ? "Adwaita" : theme, nullptr);
    g_free(theme);
}

void ShowFocus(wxTopLevelWindow& window) {
    gtk_window_set_focus_visible(GTK_WINDOW(window.GetHandle()), TRUE);
}

// Letters on paper grow with those on the screen.
double DotsPerInch() {
    const double dots = gdk_screen_get_resolution(gdk_screen_get_default());
    return dots > 0 ? dots : kPlainDotsPerInch;
}

// The toolkit's pixels follow whole scalings alone, its texts every size that the system asks for.
double TextScale(const wxWindow* /*window*/) {
    return DotsPerInch() / kPlainDotsPerInch;
}

// The system itself takes the first font of the list that is there.
wxString PageFace() {
    return wxString::FromUTF8(platform::kPageFonts);
}

// The display does so by itself, and to ask for it now may break off what it does.
void HoldMouse(wxWindow& /*window*/) {}

void ForgetPicture(wxDC& screen) {
    cairo_surface_mark_dirty(cairo_get_target(static_cast<cairo_t*>(screen.GetHandle())));
}

bool SavePng(const wxBitmap& picture, const std::string& path) {
    wxFileOutputStream file(Text(path));
    wxImage image = picture.ConvertToImage();
    return file.IsOk() && wxPNGHandler().SaveFile(&image, file, false) && file.Close();
}

// The toolkit and the system do not agree on which margin is the left one when the paper lies on
// its side.
void MoveToCorner(wxGraphicsContext& target, const wxRect& paper) {
    auto* device = static_cast<cairo_t*>(target.GetNativeContext());
    double left = 0;
    double top = 0;
    double right = paper.width;
    double bottom = paper.height;
    cairo_user_to_device(device, &left, &top);
    cairo_user_to_device(device, &right, &bottom);
    double x = -std::min(left, right);
    double y = -std::min(top, bottom);
    cairo_device_to_user_distance(device, &x, &y);
    target.Translate(x, y);
}

}  // namespace kelvane::desktop
