#include "host/bulk/finding_json.h"

namespace kelvane::host {

using Json = nlohmann::ordered_json;

Json JsonOf(const std::vector<entries::PlacedFinding>& findings) {
    Json all = Json::array();
    for (const entries::PlacedFinding& each : findings) {
        all.push_back({{"place", each.place},
                       {"row", each.row},
                       {"column", each.title},
                       {"rule", each.finding.id},
                       {"text", each.finding.text}});
    }
    return all;
}

Json JsonOf(const std::vector<entries::TableNote>& notes) {
    Json all = Json::array();
    for (const entries::TableNote& each : notes) {
        all.push_back({{"place", each.place}, {"text", each.text}});
    }
    return all;
}

}  // namespace kelvane::host
