// Printing and export of a grid: the print control, the print-style service that describes a page,
// and the grid-format service that describes a grid's columns and data as text.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::platform {

class Window;

// Result of writing to a file when the operator cancelled; 0 is success, anything else a failure.
inline constexpr int kExportCancelled = 3999;

// A caption with its value at a position of the page ("700,0").
struct PrintItem {
    std::string caption;
    std::string value;
    std::string position;
    std::string width;
};

// What a page shows beside the grid's rows.
struct PrintLayout {
    std::string title;
    std::string titlePosition;
    std::string titleHeight;
    std::vector<PrintItem> header;
    std::vector<PrintItem> footer;
    std::string columnsPosition;
    std::string columnFormat;
    std::vector<std::string> rows;  // cells joined by a tab
};

class PrintStyleService {
public:
    virtual ~PrintStyleService() = default;
    // Opens the style file at `path`; a file that is missing or holds no style is laid out afresh.
    virtual void Open(std::string_view path, std::string_view title) = 0;
    // True when the header block takes the positions handed over and not the stored ones.
    virtual bool LaysOutAfresh() const = 0;
    virtual void SetLayout(const PrintLayout& layout) = 0;
    virtual std::string StyleXml() const = 0;
    virtual std::string ErrorText() const = 0;
};

class PrintControl {
public:
    virtual ~PrintControl() = default;
    virtual void SetEnableSave(bool enabled) = 0;
    // Applies data and style under the style name; 0 on success.
    virtual int SetDataStyleXml(PrintStyleService& style, std::string_view styleName) = 0;
    virtual void Preview() = 0;
    virtual void Print() = 0;
    // Asks the operator for a file; 0, kExportCancelled or a failure number.
    virtual int WriteToFile(std::string_view dataText, std::string_view formatText) = 0;
    // Raised when the operator saves the print settings, with the settings' two XML texts.
    std::function<void(const std::string&, const std::string&)> SaveSettings;
};

}  // namespace kelvane::platform
