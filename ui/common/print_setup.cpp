#include "ui/common/print_setup.h"

#include "data/login_context.h"
#include "data/messages.h"

namespace kelvane::ui {

using platform::PrintItem;

namespace {

constexpr const char* kTitlePosition = "0,200";
constexpr const char* kTitleHeight = "700";
constexpr const char* kColumnsPosition = "0,260";

std::string StyleFilePath() {
    return data::gPrintStylePath + "PeriodItemStyle.xml";
}

}  // namespace

bool CanPrint() {
    return data::gServices->createPrintControl && data::gServices->createPrintStyle;
}

std::vector<PrintItem> AccountHeader() {
    return {
        {"年度", data::gAccountYear, "0,0", "500"},
        {"单位", data::gUnitName, "700,0", "500"},
        {"制表人", data::gOperatorName, "1350,0", "375"},
        {"打印日期", data::gToday, "1350,200", "375"},
    };
}

bool SetUpPrint(platform::PrintControl& print, const PrintSheet& sheet) {
    const controls::Grid& grid = sheet.grid;
    if (grid.Rows() <= 1) {
        data::ShowInformation("没有数据！", "提示");
        return false;
    }
    print.SetEnableSave(true);
    const auto style = data::gServices->createPrintStyle();
    style->Open(StyleFilePath(), sheet.title);
    style->SetTitle(kTitlePosition, kTitleHeight);
    for (const PrintItem& item : sheet.header) style->AddHeaderItem(item);
    for (const PrintItem& item : sheet.footer) style->AddFooterItem(item);
    const std::string layout = grid.FormatText();
    style->SetColumns(kColumnsPosition, layout, layout != sheet.loadedLayout);
    style->SetRows(grid.Rows() - 1, [&grid](int place) { return grid.RowText(place + 1); });
    if (print.SetDataStyleXml(*style, platform::kDefaultStyle) == 0) return true;
    data::ShowInformation(style->ErrorText(), data::kModuleCaption);
    return false;
}

bool ExportGrid(platform::PrintControl& print, const controls::Grid& grid) {
    const int result = print.WriteToFile(grid.DataText(), grid.FormatText());
    if (result == 0) {
        data::ShowInformation("成功输出到文件。", "输出成功信息");
    } else if (result != platform::kExportCancelled) {
        data::ShowInformation("输出到文件失败！", "输出失败信息");
    }
    return result == 0;
}

void SavePrintSettings(const std::string& text1, const std::string& text2) {
    try {
        if (!data::AskQuestion("确定要保存现有的打印设置？", "保存提示")) return;
        const auto document = data::gServices->createXmlDocument();
        document->LoadXml("<格式>" + text1 + text2 + "</格式>");
        document->Save(StyleFilePath());
        data::ShowInformation("格式保存成功！", "提示");
    } catch (...) {
        data::ReportTrapped("xmlPrt_SaveSettings");
    }
}

}  // namespace kelvane::ui
