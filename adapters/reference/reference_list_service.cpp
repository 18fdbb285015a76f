#include "adapters/reference/reference_list_service.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "adapters/reference/chosen_row.h"

namespace kelvane::reference {

using platform::Connection;
using platform::DatabaseError;
using platform::HostLogin;
using platform::RecordSet;
using platform::ReferenceListOptions;
using platform::StatementText;

namespace {

constexpr const char* kUsualCaption = "参照";
constexpr std::string_view kRestrictedItems =
    "select distinct PM_DutycenterSub.cItemCode,Fitemss97.citemname";

// The lists whose columns a host's service knows by itself.
struct KnownList {
    std::string_view key;
    const char* caption;
    const char* columns;
    const char* titles;
    const char* widths;
};

constexpr std::array kKnownLists{
    KnownList{"Pm_Dutyref", "责任中心参照", "cCenterCode,cCenterName", "责任中心编码,责任中心名称",
              "2500,3000"},
    KnownList{"Pm_Eleref", "要素参照", "cElementCode,cElementName", "要素编码,要素名称",
              "2500,3000"},
    KnownList{"PM_Equipment", "设备参照", "cEquipCode,cEquipName,cEquipModel,dblTbUPrice",
              "设备编码,设备名称,规格型号,台班单价", "1500,2500,2000,1500"},
};

const KnownList& FindKnown(std::string_view key) {
    const auto* found = std::find_if(kKnownLists.begin(), kKnownLists.end(),
                                     [&](const KnownList& each) { return each.key == key; });
    if (found == kKnownLists.end()) {
        throw DatabaseError("no pick list is known as \"" + std::string(key) + "\"");
    }
    return *found;
}

std::vector<std::string> Split(std::string_view list) {
    std::vector<std::string> parts;
    for (std::size_t comma = list.find(','); comma != std::string_view::npos;
         comma = list.find(',')) {
        parts.emplace_back(list.substr(0, comma));
        list.remove_prefix(comma + 1);
    }
    parts.emplace_back(list);
    return parts;
}

// The leading part of a list of widths that can be read.
std::vector<int> ReadWidths(std::string_view list) {
    static constexpr int kMaxWidth = 20000;
    std::vector<int> widths;
    for (const std::string& part : Split(list)) {
        int width = 0;
        const auto read = std::from_chars(part.data(), part.data() + part.size(), width);
        if (read.ec != std::errc() || width <= 0) break;
        widths.push_back(std::min(width, kMaxWidth));
    }
    return widths;
}

ListLayout LayoutOf(const KnownList& list) {
    return {list.caption, Split(list.titles), ReadWidths(list.widths)};
}

}  // namespace

StatementText ReferenceListService::Completed(const StatementText& statement) const {
    if (statement.Text() != kRestrictedItems || !mSurroundings.currentCenter) return statement;
    StatementText whole = statement;
    whole << " from PM_DutycenterSub left join Fitemss97 on PM_DutycenterSub.cItemCode = "
             "Fitemss97.citemcode  where cCenterCode = '";
    whole.Inside(mSurroundings.currentCenter()) << "'";
    return whole;
}

std::unique_ptr<RecordSet> ReferenceListService::ListByKey(
    HostLogin& /*login*/, const StatementText& statement, std::string_view referenceKey,
    const ReferenceListOptions& /*options*/) {
    const KnownList& list = FindKnown(referenceKey);
    auto source = mSurroundings.dataAccess().Query(statement);
    PickRows rows(*source, Split(list.columns));
    return Show(std::move(source), std::move(rows), LayoutOf(list));
}

std::unique_ptr<RecordSet> ReferenceListService::ListByStatement(
    HostLogin& /*login*/, const StatementText& statement, std::string_view titles,
    std::string_view widths, const ReferenceListOptions& /*options*/) {
    return Show(mSurroundings.dataAccess().Query(Completed(statement)), titles, widths);
}

std::unique_ptr<RecordSet> ReferenceListService::ListByName(HostLogin& login, std::string_view name,
                                                            const ReferenceListOptions& options) {
    static constexpr std::string_view kEquipment = "PM_Equipment";
    if (name != kEquipment) {
        throw DatabaseError("no pick list has the name \"" + std::string(name) + "\"");
    }
    const StatementText statement(
        "select cEquipCode,cEquipName,cEquipModel,dblTbUPrice from pm_equipment where bEquipEnd=1");
    return ListByKey(login, statement, kEquipment, options);
}

std::unique_ptr<RecordSet> ReferenceListService::ListOnConnection(
    std::shared_ptr<Connection>& connection, const StatementText& statement,
    std::string_view titles, std::string_view widths, bool& chosen) {
    chosen = false;
    auto source =
        connection->OpenRecordSet(statement, {.location = platform::CursorLocation::Client,
                                              .cursor = platform::CursorType::Static,
                                              .lock = platform::LockType::ReadOnly});
    auto row = Show(std::move(source), titles, widths);
    chosen = row != nullptr;
    return row;
}

std::unique_ptr<RecordSet> ReferenceListService::Show(std::unique_ptr<RecordSet> source,
                                                      std::string_view titles,
                                                      std::string_view widths) {
    ListLayout layout{kUsualCaption, Split(titles), ReadWidths(widths)};
    const int columns = std::min(static_cast<int>(layout.titles.size()), source->FieldCount());
    if (columns == 0) throw DatabaseError("the query of the pick list has no columns");
    PickRows rows(*source, columns);
    return Show(std::move(source), std::move(rows), std::move(layout));
}

std::unique_ptr<RecordSet> ReferenceListService::Show(std::unique_ptr<RecordSet> source,
                                                      PickRows rows, ListLayout layout) {
    layout.present = mPresent;
    layout.settings = mSurroundings.userSettings;
    ReferenceWindow window(mSurroundings.windows, std::move(rows), std::move(layout));
    mSurroundings.windows.ShowModal(window);
    if (!window.Chosen()) return nullptr;
    return std::make_unique<ChosenRow>(std::move(source), *window.Chosen());
}

std::unique_ptr<platform::ReferenceList> MakeReferenceLists(ListSurroundings surroundings) {
    return std::make_unique<ReferenceListService>(std::move(surroundings));
}

}  // namespace kelvane::reference
