#include "ui/entry_list/center_names.h"

#include "data/login_context.h"
#include "data/text_conversion.h"
#include "platform/aside.h"

namespace kelvane::ui {

namespace {

std::map<std::string, std::string> ReadNames() {
    std::map<std::string, std::string> names;
    const platform::Aside aside;
    try {
        const auto centers = data::gEnv->DataAccess().Query(
            platform::StatementText("select cCenterCode,cCenterName from PM_DutyCenter"));
        for (; !centers->EndOfFile(); centers->MoveNext()) {
            names[data::Trim(centers->Field(0).ToText())] = data::Trim(centers->Field(1).ToText());
        }
    } catch (...) {
        data::ReportTrapped("CenterNames");
    }
    return names;
}

}  // namespace

std::string CenterNames::NameOf(const std::string& code) {
    if (!mNames) mNames = ReadNames();
    const auto found = mNames->find(data::Trim(code));
    return found == mNames->end() ? std::string() : found->second;
}

}  // namespace kelvane::ui
