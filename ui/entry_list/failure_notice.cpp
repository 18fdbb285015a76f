#include "ui/entry_list/failure_notice.h"

#include <algorithm>
#include <array>

#include "data/login_context.h"
#include "entries/entry_store.h"
#include "entries/failure_reason.h"
#include "entries/rules.h"
#include "platform/database.h"
#include "ui/common/failure_texts.h"

namespace kelvane::ui {

using entries::Rule;

namespace {

struct Sentence {
    std::string_view place;
    Work work;
    std::string_view text;
};

constexpr std::string_view kKeywordLists = "读取关键字列表时出错。";

constexpr std::array kSentences{
    Sentence{"LoadEntryGrid", Work::Load, "读取期初列表时出错，列表可能不完整，请重新打开。"},
    Sentence{"Form_Load", Work::Load, "打开窗口时出错，内容可能不完整，请重新打开。"},
    Sentence{"ImportEntries", Work::Check, "导入时出错，没有录入任何行。"},
    Sentence{"LoadNumPoints", Work::Load,
             "读取小数位数设置时出错，单价和数量可能没有显示小数，请重新登录后再修改。"},
    Sentence{"LoadItemKeyFields", Work::Load, "读取项目大类的关键字设置时出错。"},
    Sentence{"LoadPmStartDate", Work::Load, "读取项目管理启用日期时出错。"},
    Sentence{"SetupToolbar", Work::Load, "读取启用期间设置时出错。"},
    Sentence{"SaveRow", Work::Save, "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。"},
    Sentence{"DeleteRow", Work::Save, "删除当前行时出错，数据库中的记录没有改变。"},
    Sentence{"NextSettingNumber", Work::Save, "取期初编号时出错，当前行没有保存。"},
    Sentence{"GridPeriodItem_RowValidate", Work::Save, "检查并保存当前行时出错，当前行没有保存。"},
    Sentence{"TellOfOthers", Work::Check, "当前行已经保存，但没有能够核对他人的修改。"},
    Sentence{"NoteOverrun", Work::Check,
             "当前行已经保存，但保存后没有能够核对项目预算，再次离开此行时会检查。"},
    Sentence{"AddEntryRow", Work::Check, "增加新行时出错。"},
    Sentence{"DutyCenterAllowed", Work::Check, "检查责任中心时出错。"},
    Sentence{"CheckPeriodClosed", Work::Check, "检查会计期间是否结账时出错。"},
    Sentence{"CheckYearCarriedOver", Work::Check, "检查年度是否结转时出错。"},
    Sentence{"CheckItemSettled", Work::Check, "检查项目是否已结算时出错。"},
    Sentence{"GetItemName", Work::Check, "读取项目名称时出错。"},
    Sentence{"CheckBeforeEntry", Work::Check, "录入前检查时出错。"},
    Sentence{"ValidateCell", Work::Check, "检查单元格内容时出错，该内容未被接受。"},
    Sentence{"WriteToFile", Work::Export, kFileNotWritten},
    Sentence{"Print", Work::Check, kNotPrinted},
    Sentence{"ReadStyle", Work::Check, kStyleUnusable},
    Sentence{"xmlPrt_SaveSettings", Work::Check, kSettingsNotSaved},
    Sentence{"SelectReference", Work::Check, "打开参照列表时出错。"},
    Sentence{"GridPeriodItem_CellReference", Work::Check, "打开参照列表或明细时出错。"},
    Sentence{"GridPeriodItem_ComboDropDown", Work::Check, kKeywordLists},
    Sentence{"ComKey1_DropDown", Work::Check, kKeywordLists},
    Sentence{"ComKey2_DropDown", Work::Check, kKeywordLists},
    Sentence{"GetItemBudget", Work::Save, "读取项目预算时出错，没有保存。"},
};

}  // namespace

void FailureNotice::Failed(std::string_view place) {
    const auto* known = std::find_if(kSentences.begin(), kSentences.end(),
                                     [&](const Sentence& entry) { return entry.place == place; });
    const bool named = known != kSentences.end();
    std::string sentence(named ? known->text : kWorkFailed);
    sentence += entries::ReasonOfFailure();
    Show(named ? known->work : Work::Check, sentence);
}

void FailureNotice::FailedSave(const std::string& sentence) {
    Show(Work::Save, sentence);
}

void FailureNotice::FailedWrite(std::string_view place, const WriteSentences& sentences) {
    data::ReportTrapped(place);
    try {
        throw;
    } catch (const entries::CounterExhausted&) {
        const auto bound = std::to_string(entries::kIdentities.largest);
        FailedSave(entries::Found(Rule::IdentityExhausted, bound).text);
    } catch (const entries::CounterBelowRange&) {
        const auto bound = std::to_string(entries::kIdentities.smallest);
        FailedSave(entries::Found(Rule::IdentityBelowRange, bound).text);
    } catch (const platform::CommitInDoubt&) {
        FailedSave(sentences.inDoubt);
    } catch (const platform::DatabaseBusy&) {
        FailedSave(sentences.busy);
    } catch (...) {
        // ReportTrapped() has put it on the line already, through the trap listener.
    }
}

void FailureNotice::Tell(const std::string& sentence) {
    mWork = Work::Check;
    mShow(sentence);
    mShown = true;
}

void FailureNotice::Remind(const std::string& sentence) {
    mReminder = sentence;
    if (!mShown) mShow(mReminder);
}

void FailureNotice::Show(Work work, const std::string& sentence) {
    mWork = work;
    mShow(sentence);
    mShown = true;
    ++mFailures;
}

void FailureNotice::Succeeded(Work work) {
    if (mShown && (work == mWork || work == Work::Save)) Clear();
}

void FailureNotice::GivenUp(Work work) {
    if (mShown && work == mWork) Clear();
}

void FailureNotice::Clear() {
    mShow(mReminder);
    mShown = false;
}

}  // namespace kelvane::ui
