// From the summary to the ledger: which trial balance, and by which mapping.
#include <vector>

#include "data/login_context.h"
#include "data/messages.h"
#include "ui/summary/summary_window.h"
#include "ui/summary/tie_out_window.h"

namespace kelvane::ui {

namespace {

platform::FileQuestion QuestionFor(const char* title) {
    return {title, {}, {{"Excel 工作簿", "xlsx"}, {"CSV 文件", "csv"}}};
}

// The one that is kept for the account, else one that the operator chooses; nothing when he has
// none.
std::optional<std::string> MapToUse(platform::TableImport& service) {
    std::string kept = service.MapFile();
    if (!kept.empty()) return kept;
    std::optional<std::string> chosen;
    if (data::AskQuestion("没有为账套保存科目对应表。要选择一个吗？", data::kPromptCaption)) {
        chosen = service.ChooseFile(QuestionFor("科目对应表"));
    }
    if (!chosen) {
        data::ShowInformation(
            "没有科目对应表，不能与总账核对。对应表是有科目、项目编号、要素、责任中心四列的工作簿或"
            " "
            "CSV 文件，每行说明总账的一个科目对应哪些期初。");
    }
    return chosen;
}

}  // namespace

void frmSummary::CompareWithLedger() {
    platform::TableImport& service = *data::gServices->tableImport;
    const auto trial = service.ChooseFile(QuestionFor("总账余额表"));
    if (!trial) return;
    const auto map = MapToUse(service);
    if (!map) return;
    mAnswer = frmTieOut(*trial, *map, mIsListed).Ask();
    if (mAnswer) Unload();
}

}  // namespace kelvane::ui
