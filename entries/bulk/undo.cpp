#include "entries/bulk/undo.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "entries/bulk/record_image.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

using platform::Batch;
using platform::BatchChange;
using platform::BatchOutcome;

namespace {

std::string BatchNamed(int number) {
    return "批次 " + std::to_string(number);
}

class Undoing {
public:
    Undoing(MasterData& masterData, const UndoRequest& request)
        : mMasterData(masterData), mRequest(request) {}

    UndoResult Run();

private:
    void FindBatch();
    ImportPlan Plan();
    BulkEntries RowsOf(const std::set<std::int32_t>& used) const;
    BulkEntry RowOf(const BatchChange& change, std::size_t at) const;
    void KeepChangedRows(const BulkEntries& rows, ImportPlan& plan);
    void KeepUsedIdentities(const std::set<std::int32_t>& used, ImportPlan& plan);
    void RefuseKeptRows(ImportPlan& plan);
    void TakeRecords(ImportPlan& plan) const;
    std::int32_t IdentityOf(std::size_t at) const {
        return static_cast<std::int32_t>(mBatch.intent.changes[at].identity);
    }

    MasterData& mMasterData;
    const UndoRequest& mRequest;
    Batch mBatch;
    std::map<std::string, std::string> mElementNames;  // one that is gone is told by its code
    UndoResult mResult;
};

UndoResult Undoing::Run() {
    FindBatch();
    mResult.plan.findings = LocksFound();
    if (mResult.HasFindings()) {
        mResult.plan.rows.resize(mBatch.intent.changes.size());
        return std::move(mResult);
    }
    mElementNames = ReadElementNames();
    BatchRequest request = mRequest;
    request.head.kind = "undo";
    request.head.undoes = mRequest.batch;
    static_cast<BatchResult&>(mResult) = RunBatch([this] { return Plan(); }, mMasterData, request);
    return std::move(mResult);
}

void Undoing::FindBatch() {
    const std::vector<Batch> batches = DecidedBatches(*mRequest.journal, mRequest.dryRun);
    const auto found = std::ranges::find(batches, mRequest.batch, &Batch::number);
    const std::string name = BatchNamed(mRequest.batch);
    if (found == batches.end()) throw UndoRefused("没有" + name);
    if (!found->problem.empty()) throw UndoRefused(name + " 的日志已损坏：" + found->problem);
    if (found->running) throw UndoRefused(name + " 正在写入");
    if (found->outcome == BatchOutcome::NotWritten || found->neverBegun) {
        throw UndoRefused(name + " 没有写入，不必撤回");
    }
    if (found->outcome != BatchOutcome::Written) {
        throw UndoRefused("不能确定" + name + " 是否已经写入，请核对帐套");
    }
    if (IsUndone(batches, mRequest.batch)) throw UndoRefused(name + " 已经撤回");
    mBatch = mRequest.journal->Read(mRequest.batch);
    for (const BatchChange& change : mBatch.intent.changes) {
        mResult.identities.push_back(change.identity);
    }
}

// The rows as a table that brings the account back to what it was would have them.
BulkEntries Undoing::RowsOf(const std::set<std::int32_t>& used) const {
    BulkEntries rows;
    for (std::size_t at = 0; at < mBatch.intent.changes.size(); ++at) {
        const BatchChange& change = mBatch.intent.changes[at];
        if (!used.contains(IdentityOf(at))) rows.entries.push_back(RowOf(change, at));
    }
    return rows;
}

BulkEntry Undoing::RowOf(const BatchChange& change, std::size_t at) const {
    BulkEntry row;
    row.row = static_cast<int>(at) + 1;
    const EntryRecord record = RecordOf(change.before ? *change.before : *change.after);
    const Entry& entry = record.entry;
    const auto element = mElementNames.find(record.elementCode);
    row.texts[kDateColumn] = entry.date.DateText('-');
    row.texts[kCenterColumn] = entry.centerCode;
    row.texts[kItemColumn] = entry.itemCode;
    row.texts[kKey1Column] = entry.key1;
    row.texts[kKey2Column] = entry.key2;
    row.texts[kElementColumn] =
        element == mElementNames.end() ? record.elementCode : element->second;
    row.texts[kDigestColumn] = entry.digest;
    row.texts[kAmountColumn] = entry.amount.ToText();
    for (const DetailLine& line : record.lines) {
        BulkLine& each = row.lines.emplace_back();
        each.row = row.row;
        each.texts = {.code = line.code,
                      .name = {},
                      .price = line.price.ToText(),
                      .quantity = platform::StatementText().Double(line.quantity).Text(),
                      .amount = line.amount.ToText()};
    }
    if (!change.after) return row;
    row.identity = std::to_string(change.identity);
    row.check = CheckValueOf(RecordOf(*change.after));
    if (!change.before) row.operation = kDeletionMark;
    return row;
}

ImportPlan Undoing::Plan() {
    mResult.kept.clear();
    // Identities of entries that the batch deleted and that somebody has entered again.
    std::set<std::int32_t> used;
    const auto isPutBack = [](const BatchChange& change) { return !change.after; };
    if (std::ranges::any_of(mBatch.intent.changes, isPutBack)) {
        const EntryRecords stored = ReadEntryRecords();
        for (std::size_t at = 0; at < mBatch.intent.changes.size(); ++at) {
            if (isPutBack(mBatch.intent.changes[at]) && stored.contains(IdentityOf(at))) {
                used.insert(IdentityOf(at));
            }
        }
    }
    const BulkEntries rows = RowsOf(used);
    ImportPlan plan = PlanImport(rows, mMasterData, false, mRequest.progress);
    KeepChangedRows(rows, plan);
    RefuseFoundRows(rows, plan);
    KeepUsedIdentities(used, plan);
    if (!plan.WritesAny() && plan.findings.empty()) RefuseKeptRows(plan);
    TakeRecords(plan);
    return plan;
}

// A row that is not what the batch made of it stays, whatever else was found in it.
void Undoing::KeepChangedRows(const BulkEntries& rows, ImportPlan& plan) {
    std::map<int, Rule> kept;
    for (const BulkFinding& each : plan.findings) {
        if (each.finding.rule == Rule::EntryGone) kept[each.row] = Rule::EntryGone;
        if (each.finding.id == Found(Rule::EntryKept).id) kept[each.row] = Rule::EntryKept;
    }
    std::erase_if(plan.findings, [&](const BulkFinding& each) { return kept.contains(each.row); });
    for (std::size_t at = 0; at < rows.entries.size(); ++at) {
        const auto why = kept.find(rows.entries[at].row);
        if (why == kept.end()) continue;
        plan.rows[at].fate = RowFate::Unchanged;
        mResult.kept.push_back({BulkTableKind::Entries, why->first, 0, Found(why->second)});
    }
}

void Undoing::KeepUsedIdentities(const std::set<std::int32_t>& used, ImportPlan& plan) {
    for (std::size_t at = 0; at < mBatch.intent.changes.size(); ++at) {
        if (!used.contains(IdentityOf(at))) continue;
        const int row = static_cast<int>(at) + 1;
        mResult.kept.push_back({BulkTableKind::Entries, row, 0, Found(Rule::EntryIdentityUsed)});
        plan.rows.push_back({.row = row, .fate = RowFate::Unchanged, .before = {}, .after = {}});
    }
}

// Where nothing else would be taken back.
void Undoing::RefuseKeptRows(ImportPlan& plan) {
    plan.findings = std::exchange(mResult.kept, {});
    for (const BulkFinding& each : plan.findings) {
        const auto row = std::ranges::find(plan.rows, each.row, &PlannedRow::row);
        row->fate = RowFate::Refused;
    }
}

// What is put back is what was there, to the last digit, under the identities that were there.
void Undoing::TakeRecords(ImportPlan& plan) const {
    for (PlannedRow& row : plan.rows) {
        if (row.fate != RowFate::New && row.fate != RowFate::Changed) continue;
        const auto at = static_cast<std::size_t>(row.row) - 1;
        const BatchChange& change = mBatch.intent.changes[at];
        row.after = RecordOf(*change.before);
        row.after->entry.identity = static_cast<std::int32_t>(change.identity);
    }
}

}  // namespace

UndoResult UndoBatch(MasterData& masterData, const UndoRequest& request) {
    return Undoing(masterData, request).Run();
}

}  // namespace kelvane::entries
