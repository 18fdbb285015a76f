// StyleService: what a window wants to stand on paper, together with what the style file keeps of
// earlier settings.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "adapters/output/layout/sheet.h"
#include "adapters/output/style/stored_style.h"
#include "platform/printing.h"

namespace kelvane::output {

class StyleService : public platform::PrintStyleService {
public:
    // A backslash in `path` separates folders.
    void Open(std::string_view path, std::string_view title) override;
    void SetTitle(std::string_view position, std::string_view height) override;
    void AddHeaderItem(const platform::PrintItem& item) override;
    void AddFooterItem(const platform::PrintItem& item) override;
    void SetColumns(std::string_view position, std::string_view formatText,
                    bool replaceStored) override;
    void SetRows(int count, std::function<std::string(int)> cells) override;
    std::string ErrorText() const override { return mErrorText; }

    // The sheet in the style `styleName`: settings, positions and columns as they are stored, and
    // as they were handed over where none are stored. Nothing, with an ErrorText(), when that
    // cannot be laid out.
    std::optional<Sheet> MakeSheet(std::string_view styleName);

    // Which style file the last sheet was made without, and why; empty when there was none or it
    // could be read.
    const std::string& FileRefusal() const { return mFileRefusal; }

private:
    void Refuse(const std::string& text);
    std::optional<SheetItem> ItemOf(const platform::PrintItem& item);
    static void Place(std::vector<SheetItem>& items,
                      const std::map<std::string, ItemPlace>& stored);
    PageSettings FreshSettings() const;

    std::string mPath;
    Sheet mSheet;  // as handed over
    bool mReplaceColumns = false;
    std::string mErrorText;
    std::string mFileRefusal;
};

// The texts that keep the look of `sheet` under `styleName`; what its style file keeps of other
// windows' sheets stays in them as long as all of it together makes a file that is read again.
StyleTexts TextsOf(const Sheet& sheet, std::string_view styleName);

}  // namespace kelvane::output
