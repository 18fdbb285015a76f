#include "entries/bulk/import_write.h"

#include <algorithm>

#include "data/login_context.h"
#include "entries/entry_counter.h"
#include "entries/entry_statements.h"
#include "entries/entry_store.h"

namespace kelvane::entries {

using data::gConn;

namespace {

bool IsAsItWas(const EntryRecord& before) {
    const auto stored = ReadHeldRecord(before.entry.identity);
    return stored && CheckValueOf(*stored) == CheckValueOf(before);
}

void WriteLines(const EntryRecord& record, std::int32_t identity) {
    gConn->Execute(ReplacementOf(record.lines).WithEntry(identity));
}

void Delete(std::int32_t identity) {
    gConn->Execute(DeletionOf(identity));
    gConn->Execute(LinesDeletionOf(identity));
}

void Change(const EntryRecord& before, const EntryRecord& after) {
    const auto stored = OpenHeldEntry(before.entry.identity);
    SetFields(*stored, after.entry, after.elementCode);
    stored->Update();
    if (!before.lines.empty() || !after.lines.empty()) WriteLines(after, before.entry.identity);
    stored->Close();
}

void Insert(const EntryRecord& record, std::int32_t identity) {
    if (!record.lines.empty()) WriteLines(record, identity);
    Entry entry = record.entry;
    entry.identity = identity;
    gConn->Execute(InsertionOf(entry, record.elementCode));
}

}  // namespace

WriteOutcome WriteRows(const ImportPlan& plan, std::int32_t firstIdentity, MasterData& masterData) {
    const auto numbers = static_cast<std::int32_t>(plan.CountNumbers());
    if (numbers > 0 && TakeNumbers(kEntryCounter, *gConn, numbers, kIdentities) != firstIdentity) {
        return WriteOutcome::NumbersMoved;
    }
    const bool holds =
        std::ranges::all_of(
            plan.rows,
            [](const PlannedRow& row) { return !row.before || IsAsItWas(*row.before); }) &&
        std::ranges::all_of(plan.totals,
                            [&](const RecordedTotal& total) { return total.Holds(masterData); });
    if (!holds) return WriteOutcome::AccountMoved;
    std::int32_t identity = firstIdentity;
    for (const PlannedRow& row : plan.rows) {
        if (row.fate == RowFate::Deleted) Delete(row.before->entry.identity);
        if (row.fate == RowFate::Changed) Change(*row.before, *row.after);
        if (row.fate != RowFate::New) continue;
        Insert(*row.after, row.NeedsNumber() ? identity++ : row.Identity());
    }
    return WriteOutcome::Done;
}

}  // namespace kelvane::entries
