#include "entries/bulk/account_choices.h"

#include <algorithm>

#include "data/login_context.h"
#include "entries/bulk/table_shape.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

using platform::StatementText;

namespace {

using Names = std::vector<std::string>;

// `exempt` for an operator who may use all centres, else `restricted`, which ends where the
// operator's id is to stand.
StatementText ForOperator(StatementText exempt, StatementText restricted) {
    if (data::gLogin->IsExemptFromCenterAuth()) return exempt;
    restricted.Inside(data::gLogin->UserId()) << "'";
    return restricted;
}

// The texts of the statement's first columns, each to the end of its list.
void Append(const StatementText& statement, std::initializer_list<Names*> lists) {
    const auto rows = data::gEnv->DataAccess().Query(statement);
    for (; !rows->EndOfFile(); rows->MoveNext()) {
        int column = 0;
        for (Names* list : lists) {
            std::string text = rows->Field(column++).ToText();
            if (!text.empty()) list->push_back(std::move(text));
        }
    }
}

void PutInOrder(Names& names) {
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
}

}  // namespace

AccountChoices ChoicesOfAccount() {
    AccountChoices choices;
    Append(ForOperator(StatementText("select cCenterCode from PM_DutyCenter"),
                       StatementText("select PM_DutyCenter.cCenterCode from PM_DutyCenter inner "
                                     "join PM_UserAuth on PM_DutyCenter.cCenterCode = "
                                     "PM_UserAuth.cCenterCode where PM_UserAuth.cUserID = '")),
           {&choices.centers});
    Append(ForOperator(StatementText("select cItemCode,cKeyWord1,cKeyWord2 from PM_DutycenterSub"),
                       StatementText("select PM_DutycenterSub.cItemCode,PM_DutycenterSub.cKeyWord1,"
                                     "PM_DutycenterSub.cKeyWord2 from PM_DutycenterSub inner join "
                                     "PM_UserAuth on PM_DutycenterSub.cCenterCode = "
                                     "PM_UserAuth.cCenterCode where PM_UserAuth.cUserID = '")),
           {&choices.items, &choices.keywords[0], &choices.keywords[1]});
    Append(StatementText("select cElementName from PM_ItemElement"), {&choices.elements});
    Append(StatementText("select cEquipCode from pm_equipment where bEquipEnd=1"),
           {&choices.lines});
    Append(StatementText("select cInvCode from inventory"), {&choices.lines});
    for (Names* list : {&choices.centers, &choices.items, &choices.keywords[0],
                        &choices.keywords[1], &choices.elements, &choices.lines}) {
        PutInOrder(*list);
    }
    return choices;
}

Names ForEntryColumn(const AccountChoices& choices, int column) {
    switch (column) {
        case kCenterColumn:
            return choices.centers;
        case kItemColumn:
            return choices.items;
        case kKey1Column:
            return choices.keywords[0];
        case kKey2Column:
            return choices.keywords[1];
        case kElementColumn:
            return choices.elements;
        case kOperationColumn:
            return {std::string(kDeletionMark)};
        default:
            return {};
    }
}

Names ForLineColumn(const AccountChoices& choices, int column) {
    return column == kLineCodeColumn ? choices.lines : Names();
}

const AccountChoices& AccountProposals::Choices() {
    if (!mChoices) mChoices = ChoicesOfAccount();
    return *mChoices;
}

CodeProposal AccountProposals::ForEntries() {
    return [this](int column, std::string_view number) {
        return OnlyCodeOf(number, ForEntryColumn(Choices(), column));
    };
}

CodeProposal AccountProposals::ForLines() {
    return [this](int column, std::string_view number) {
        return OnlyCodeOf(number, ForLineColumn(Choices(), column));
    };
}

}  // namespace kelvane::entries
