// Printing and export of a grid: the print-style service, which describes what stands on a page,
// and the print control, which shows, prints and writes it. A window asks for a new one of each.
// Grids travel as the texts of platform/grid_text.h.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kelvane::platform {

// The style name under which a page's layout is kept.
inline constexpr std::string_view kDefaultStyle = "Default";

// Result of writing to a file when the operator cancelled; 0 is success, anything else a failure.
inline constexpr int kExportCancelled = 3999;

// Position texts are "LEFT,TOP", sizes are whole numbers, both in tenths of a millimetre: the title
// block and the columns are placed from the page's upper margin, header items from it as well,
// footer items from the lower end of the page's content.
struct PrintItem {
    std::string caption;
    std::string value;
    std::string position;
    std::string size;
};

class PrintStyleService {
public:
    virtual ~PrintStyleService() = default;

    // Opens the style file at `path`. A file that is missing or holds no style of this kind is
    // laid out afresh; throws nothing for it.
    virtual void Open(std::string_view path, std::string_view title) = 0;

    // What stands on the page. Positions and sizes are used when the service lays the block out
    // afresh; a stored style keeps its own.
    virtual void SetTitle(std::string_view position, std::string_view height) = 0;
    virtual void AddHeaderItem(const PrintItem& item) = 0;
    virtual void AddFooterItem(const PrintItem& item) = 0;

    // The columns, as a format text. With `replaceStored` they take the place of the stored
    // style's columns, otherwise they are used when it has none.
    virtual void SetColumns(std::string_view position, std::string_view formatText,
                            bool replaceStored) = 0;

    // All data rows: `count` of them, `cells` gives those of one, counted from 0, joined by a tab.
    // It can be asked as long as the print control lives that took this style.
    virtual void SetRows(int count, std::function<std::string(int)> cells) = 0;

    // What was wrong when the print control did not take this style; fit to be shown.
    virtual std::string ErrorText() const = 0;
};

class PrintControl {
public:
    virtual ~PrintControl() = default;

    // Whether the operator may save settings from the print window.
    virtual void SetEnableSave(bool enabled) = 0;

    // Takes data and layout from `style`, which the same host made, under `styleName`; 0 on
    // success. Keeps what it needs of it: the style goes when this has returned.
    virtual int SetDataStyleXml(PrintStyleService& style, std::string_view styleName) = 0;

    // Both show what SetDataStyleXml took.
    virtual void Preview() = 0;
    virtual void Print() = 0;

    // Asks the operator for a file and writes the grid to it; 0, kExportCancelled or a failure.
    virtual int WriteToFile(std::string_view dataText, std::string_view formatText) = 0;

    // Raised when the operator saves the print settings, with the settings' two XML texts.
    std::function<void(const std::string&, const std::string&)> SaveSettings;
};

}  // namespace kelvane::platform
