#include "host/bulk/summary_report.h"

#include <nlohmann/json.hpp>

namespace kelvane::host {

using Json = nlohmann::ordered_json;

namespace {

constexpr const char* kTitle = "期初汇总";

void AddSums(Json& object, const entries::SummaryRow& row) {
    object["entries"] = row.entries;
    object["sum"] = row.sum.FixedText();
    if (!row.budget) return;
    object["budget"] = row.budget->budget.FixedText();
    object["used"] = row.budget->used.FixedText();
    object["left"] = row.budget->left.FixedText();
}

Json ValuesOf(const entries::Summary& summary, const entries::SummaryRow& row) {
    Json values = Json::object();
    for (std::size_t place = 0; place < row.values.size(); ++place) {
        const std::string name(entries::Declared(summary.fields[place]).name);
        values[name] = {{"code", row.values[place].code}, {"name", row.values[place].name}};
    }
    return values;
}

}  // namespace

FigureTable FigureTableOf(const entries::Summary& summary) {
    FigureTable table;
    table.title = kTitle;
    table.titles = entries::SummaryTitles(summary);
    table.textColumns = entries::SummaryTextColumns(summary);
    for (const entries::SummaryRow& row : summary.rows) {
        table.rows.push_back(entries::SummaryTexts(summary, row));
    }
    return table;
}

std::string JsonOf(const entries::Summary& summary) {
    constexpr int kIndent = 2;
    Json fields = Json::array();
    for (const entries::SummaryField field : summary.fields) {
        fields.push_back(entries::Declared(field).name);
    }
    Json rows = Json::array();
    Json total = Json::object();
    for (const entries::SummaryRow& row : summary.rows) {
        if (row.values.empty()) {
            AddSums(total, row);
            continue;
        }
        Json& object = rows.emplace_back();
        object["level"] = row.values.size();
        object["values"] = ValuesOf(summary, row);
        AddSums(object, row);
    }
    const Json object = {{"by", std::move(fields)},
                         {"rows", std::move(rows)},
                         {"total", std::move(total)},
                         {"notes", summary.notes}};
    return object.dump(kIndent, ' ', false, Json::error_handler_t::replace);
}

}  // namespace kelvane::host
