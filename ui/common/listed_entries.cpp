#include "ui/common/listed_entries.h"

#include <string>

#include "data/messages.h"

namespace kelvane::ui {

bool MayGoToEntry(std::int64_t identity, const IsListed& isListed) {
    if (identity == 0) {
        data::ShowInformation("这一条说的不是某一行期初。");
        return false;
    }
    if (isListed(identity)) return true;
    data::ShowInformation("列表中没有编号为 " + std::to_string(identity) +
                          " 的期初：它已不存在，或者它的项目不存在，或者它是列表打开以后增加的。");
    return false;
}

}  // namespace kelvane::ui
