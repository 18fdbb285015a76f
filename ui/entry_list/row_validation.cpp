// Checks of one cell before an entry is kept.
#include "data/date_text.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "data/number_format.h"
#include "data/reference_queries.h"
#include "data/text_conversion.h"
#include "ui/detail_editor/detail_editor.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using data::gConn;
using platform::DateTime;
using platform::StatementText;
using platform::Value;

bool frmPeriodItem::Refuse(std::string_view message, std::string_view caption) {
    data::ShowInformation(message, caption);
    GridPeriodItem.SetFocus();
    return false;
}

bool frmPeriodItem::ValidateCell(int row, int col, bool changed, std::string& text) {
    const int failuresBefore = mFailureNotice.Failures();
    try {
        const std::string raw = CellText(row, col);
        text = data::Trim(raw);
        if (text != raw) GridPeriodItem.SetText(row, col, text);
        bool accepted = true;
        switch (col) {
            case kDateColumn:
                accepted = ValidateDate(text);
                break;
            case kCenterColumn:
                accepted = ValidateCenter(row, text, changed);
                break;
            case kItemColumn:
                accepted = ValidateItem(row, text);
                break;
            case kElementColumn:
                accepted = ValidateElement(row, text, changed);
                break;
            case kDigestColumn:
                accepted = !text.empty() || Refuse("摘要不能为空");
                break;
            case kAmountColumn:
                accepted = ValidateAmount(row, text, raw == " ");
                break;
            default:
                return true;
        }
        if (accepted && mFailureNotice.Failures() == failuresBefore) {
            mFailureNotice.Succeeded(Work::Check);
        }
        return accepted;
    } catch (...) {
        data::ReportTrapped("ValidateCell");
        return false;
    }
}

bool frmPeriodItem::ValidateDate(std::string& text) {
    if (text.empty()) return Refuse("日期不能为空");
    std::string typed = text;
    const std::string date = data::DateTextOrEmpty(typed);
    if (date.empty()) return Refuse("日期非法");
    const DateTime bound = OpeningBound();
    if (date >= bound.DateText('.')) {
        return Refuse("期初录入时间应在本年度帐套启用期间第一天(" + bound.DateText('-') + ")之前");
    }
    if (date < "1900.01.01" || date > "3000.01.01") return Refuse("期初录入时间录入有误！");
    text = data::DateTextToDate(date).DateText('-');
    return true;
}

bool frmPeriodItem::ValidateCenter(int row, const std::string& text, bool changed) {
    if (text.empty()) return Refuse("责任中心不能为空");
    if (!data::DutyCenterAllowed(text)) {
        return Refuse("此责任中心不存在或操作员没有权限，须重新输入！");
    }
    if (changed && text != mEditText) {
        for (int col = kItemColumn; col <= kAmountColumn; ++col) {
            GridPeriodItem.SetText(row, col, "");
        }
    }
    return true;
}

bool frmPeriodItem::ValidateItem(int row, const std::string& text) {
    if (text.empty()) return Refuse("项目编号不能为空");
    data::gRefCenterCode = CellText(row, kCenterColumn);
    data::gRefByCenter = true;
    if (!data::ItemInDutyCenter(text)) {
        return Refuse("该责任中心下不包括此项目，须重新输入！");
    }
    if (CheckItemSettled(text, CellText(row, kKey1Column), CellText(row, kKey2Column))) {
        return Refuse("项目已经完工结算，不能在启用后对该项目录入期初！", "提示");
    }
    return true;
}

bool frmPeriodItem::ValidateElement(int row, const std::string& text, bool changed) {
    if (text.empty()) return Refuse("项目要素不能为空");
    if (!changed || text == mEditText) return true;
    std::int16_t detailFlag = 0;
    if (!data::GetElementByName(text, detailFlag)) {
        return Refuse("输入的项目要素不存在，须重新输入！");
    }
    const int identity = GridPeriodItem.RowData(row);
    // First, what can fail: then nothing of the row has changed yet.
    if (identity != 0) {
        StatementText statement("delete from pm_itemQCSub where iEleVid=");
        gConn->Execute(statement.Number(identity));
    }
    GridPeriodItem.SetText(row, kAmountColumn, "");
    GetDetailEditorForm().mColTempValues = {};
    mDetailSql = {};
    mElementDetails.Replace(std::to_string(identity), detailFlag);
    return true;
}

// `singleBlank`: the cell held exactly one blank, which is what opening an empty amount leaves.
bool frmPeriodItem::ValidateAmount(int row, std::string& text, bool singleBlank) {
    if (text.empty() && !singleBlank) return Refuse("期初不能为空");
    if (!singleBlank && !data::IsNumericText(text)) return Refuse("请输入数字");
    text = singleBlank ? "" : data::NumFormatText(Value(text), data::kMoneyKind, true);
    if (text.empty()) text = "0.00";
    GridPeriodItem.SetText(row, kAmountColumn, text);
    return true;
}

}  // namespace kelvane::ui
