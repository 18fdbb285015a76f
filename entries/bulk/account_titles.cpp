#include "entries/bulk/account_titles.h"

#include <cstdint>

#include "data/login_context.h"
#include "entries/trap_watch.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

namespace {

// The type codes of the item class's fields that are numbers.
bool IsNumber(std::int16_t type) {
    return type == 1 || type == 2;
}

}  // namespace

AccountTitles TitlesOfAccount() {
    // What the loading traps would leave titles out.
    const TrapWatch trapped;
    data::LoadItemKeyFields();
    trapped.Rethrow();
    AccountTitles titles;
    const int keywords = data::gItemKeyCount;
    if (keywords == 1 || keywords == 2)
        titles.keywords.push_back({data::gItemKeyField1, IsNumber(data::gItemKeyType1)});
    if (keywords == 2)
        titles.keywords.push_back({data::gItemKeyField2, IsNumber(data::gItemKeyType2)});
    const auto caption = data::gEnv->DataAccess().Query(platform::StatementText(
        "select ctext from fitemstructure where cfield_name='citemname' and citem_class='97'"));
    if (!caption->EndOfFile()) titles.itemName = caption->Field(0).ToText();
    return titles;
}

}  // namespace kelvane::entries
