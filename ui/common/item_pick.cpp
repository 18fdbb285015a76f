#include "ui/common/item_pick.h"

#include <array>
#include <cstddef>

#include "data/login_context.h"
#include "data/messages.h"
#include "data/text_conversion.h"
#include "entries/entry.h"

namespace kelvane::ui {

using data::gConn;
using platform::StatementText;

bool HasCenterForItem(const std::string& centerCode) {
    const bool has = !data::Trim(centerCode).empty();
    if (!has) data::ShowInformation("责任中心不能为空！");
    return has;
}

std::optional<PickedItem> PickItemOfCenter(const std::string& centerCode,
                                           const std::string& present) {
    const int keywords = data::gItemKeyCount;
    StatementText statement("select a.citemcode,b.citemname");
    std::string titles = "项目编码,项目名称";
    if (keywords > 0) {
        statement << ",ckeyword1";
        titles += "," + data::gItemKeyField1 + "(关键字)";
    }
    if (keywords == 2) {
        statement << ",ckeyword2";
        titles += "," + data::gItemKeyField2 + "(关键字)";
    }
    statement << " from pm_dutycentersub a,fitemss97 b where ccentercode='";
    statement.Inside(centerCode) << "' and a.citemcode=b.citemcode order by a.citemcode";
    static constexpr std::array kWidths{"2500,3000", "2000,2500,2000", "1500,2500,1500,1500"};
    const bool known = keywords >= 0 && keywords <= 2;
    const char* widths = known ? kWidths[static_cast<std::size_t>(keywords)] : "";

    bool chosen = false;
    const auto service = data::gServices->createReferenceList();
    service->OpenOn(present);
    const auto record = service->ListOnConnection(gConn, statement, titles, widths, chosen);
    if (!chosen || record == nullptr) return std::nullopt;
    PickedItem item{.code = record->Field(0).ToText(),
                    .name = record->Field(1).ToText(),
                    .key1 = {},
                    .key2 = {}};
    if (keywords > 0) item.key1 = record->Field(2).ToText();
    if (keywords == 2) item.key2 = record->Field(3).ToText();
    return item;
}

std::vector<std::string> KeywordsOfItem(const std::string& centerCode, const std::string& itemCode,
                                        int column) {
    StatementText statement;
    if (column == entries::kKey1Column && data::gItemKeyCount >= 1) {
        statement << "select cKeyWord1 from PM_DutycenterSub where cCenterCode = '";
        statement.Inside(centerCode) << "' and cItemCode = '";
    } else if (column == entries::kKey2Column && data::gItemKeyCount == 2) {
        statement << "select  cKeyWord2 from PM_DutycenterSub where cCenterCode = '";
        statement.Inside(centerCode) << "' and  cItemCode = '";
    } else {
        return {};
    }
    statement.Inside(itemCode) << "'";
    std::vector<std::string> keywords;
    const auto rows = gConn->OpenRecordSet(statement);
    for (; !rows->EndOfFile(); rows->MoveNext()) keywords.push_back(rows->Field(0).ToText());
    return keywords;
}

}  // namespace kelvane::ui
