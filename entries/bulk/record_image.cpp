#include "entries/bulk/record_image.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "platform/database.h"
#include "platform/statement_text.h"

#include "data/date_text.h"
#include "data/login_context.h"

namespace kelvane::entries {

using platform::BatchOutcome;
using platform::Money;
using platform::RowFields;
using platform::RowImage;
using platform::StatementText;

namespace {

std::string Field(const RowFields& fields, std::string_view name) {
    const auto found = std::ranges::find(fields, name, [](const auto& each) { return each.first; });
    if (found == fields.end()) throw std::invalid_argument("no field " + std::string(name));
    return found->second;
}

double NumberIn(const std::string& text) {
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || stop != end) throw std::invalid_argument("no number: " + text);
    return number;
}

// What a row of the account is compared by; nothing: there is none.
std::optional<std::string> ValueOf(const std::optional<RowImage>& image) {
    if (!image) return std::nullopt;
    return CheckValueOf(RecordOf(*image));
}

}  // namespace

RowImage ImageOf(const EntryRecord& record) {
    const Entry& entry = record.entry;
    RowImage image;
    image.fields = {{"dDate", entry.date.DateText('-')}, {"cCenterCode", entry.centerCode},
                    {"cItemCode", entry.itemCode},       {"cKeyCode1", entry.key1},
                    {"cKeyCode2", entry.key2},           {"cElementCode", record.elementCode},
                    {"cDigest", entry.digest},           {"mQC", entry.amount.ToFixedText()}};
    for (const DetailLine& line : record.lines) {
        image.lines.push_back({{"cCodeMx", line.code},
                               {"iUprice", line.price.ToFixedText()},
                               {"iNum", StatementText().Double(line.quantity).Text()},
                               {"mQC", line.amount.ToFixedText()}});
    }
    return image;
}

EntryRecord RecordOf(const RowImage& image) {
    const auto text = [&](std::string_view name) { return Field(image.fields, name); };
    EntryRecord record;
    record.entry = {.date = data::DateTextToDate(text("dDate")),
                    .centerCode = text("cCenterCode"),
                    .itemCode = text("cItemCode"),
                    .key1 = text("cKeyCode1"),
                    .key2 = text("cKeyCode2"),
                    .elementName = {},
                    .digest = text("cDigest"),
                    .amount = Money::FromText(text("mQC"))};
    record.elementCode = text("cElementCode");
    for (const RowFields& line : image.lines) {
        record.lines.push_back({.code = Field(line, "cCodeMx"),
                                .price = Money::FromText(Field(line, "iUprice")),
                                .quantity = NumberIn(Field(line, "iNum")),
                                .amount = Money::FromText(Field(line, "mQC"))});
    }
    return record;
}

std::optional<BatchOutcome> OutcomeInAccount(const platform::Batch& batch) {
    bool allAsBefore = true;
    platform::Transaction held(*data::gConn);
    for (const platform::BatchChange& change : batch.intent.changes) {
        const auto stored = ReadHeldRecord(static_cast<std::int32_t>(change.identity));
        const auto now = stored ? std::optional(CheckValueOf(*stored)) : std::nullopt;
        const auto before = ValueOf(change.before);
        const auto after = ValueOf(change.after);
        if (before == after) continue;
        if (now == after) return BatchOutcome::Written;
        if (now != before) allAsBefore = false;
    }
    return allAsBefore ? std::optional(BatchOutcome::NotWritten) : std::nullopt;
}

}  // namespace kelvane::entries
