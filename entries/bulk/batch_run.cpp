#include "entries/bulk/batch_run.h"

#include <algorithm>
#include <utility>

#include "data/login_context.h"
#include "entries/bulk/import_write.h"
#include "entries/bulk/record_image.h"
#include "entries/entry_counter.h"
#include "entries/entry_store.h"
#include "entries/opening_period.h"

namespace kelvane::entries {

using data::gConn;
using platform::Batch;
using platform::BatchJournal;
using platform::BatchOutcome;

namespace {

// Other operators may write while the rows are checked; who never comes to an end gives up.
constexpr int kMostTries = 5;

class Running {
public:
    Running(const Planner& plan, MasterData& masterData, const BatchRequest& request)
        : mPlan(plan), mMasterData(masterData), mRequest(request) {}

    BatchResult Run();

private:
    void FindNumbers();
    WriteOutcome Write();
    WriteOutcome WriteInTransaction();
    platform::BatchIntent Intent() const;
    void Withdraw(int batch);
    void EndInDoubt(int batch);

    const Planner& mPlan;
    MasterData& mMasterData;
    const BatchRequest& mRequest;
    BatchResult mResult;
};

BatchResult Running::Run() {
    for (int tries = 1;; ++tries) {
        mResult.plan = mPlan();
        FindNumbers();
        if (mResult.HasFindings() || mResult.plan.isRefused || !mResult.plan.WritesAny()) break;
        if (Write() == WriteOutcome::Done) break;
        if (tries == kMostTries) {
            throw platform::DatabaseBusy("其他操作员正在录入期初，没有写入，请稍后再试");
        }
    }
    return std::move(mResult);
}

// Whether there is a number for each new row.
void Running::FindNumbers() {
    ImportPlan& plan = mResult.plan;
    if (plan.CountNumbers() == 0) return;
    std::optional<Finding> missing;
    std::vector<PlannedRow*> refused;
    std::int64_t left = 0;
    try {
        mResult.firstIdentity = NextNumber(kEntryCounter, *gConn);
        left = std::int64_t{kIdentities.largest} - mResult.firstIdentity + 1;
        if (mResult.firstIdentity < kIdentities.smallest) {
            missing = Found(Rule::IdentityBelowRange, std::to_string(kIdentities.smallest));
        }
    } catch (const platform::ConnectionLost&) {
        throw;
    } catch (const platform::DatabaseBusy&) {
        throw;
    } catch (const std::exception&) {
        missing = Found(Rule::CounterMissing);
    }
    for (PlannedRow& row : plan.rows) {
        if (!row.NeedsNumber()) continue;
        if (!missing && left-- > 0) continue;
        const Finding finding =
            missing ? *missing
                    : Found(Rule::IdentityExhausted, std::to_string(kIdentities.largest));
        plan.findings.push_back({BulkTableKind::Entries, row.row, 0, finding});
        refused.push_back(&row);
    }
    for (PlannedRow* row : refused) row->fate = RowFate::Refused;
}

platform::BatchIntent Running::Intent() const {
    platform::BatchIntent intent = mRequest.head;
    std::int32_t identity = mResult.firstIdentity;
    for (const PlannedRow& row : mResult.plan.rows) {
        if (row.fate == RowFate::Refused || row.fate == RowFate::Unchanged) continue;
        platform::BatchChange change;
        if (row.before) change.before = ImageOf(*row.before);
        if (row.after) change.after = ImageOf(*row.after);
        change.identity = row.NeedsNumber() ? identity++ : row.Identity();
        intent.changes.push_back(std::move(change));
    }
    return intent;
}

// The journal knows what is meant before anything is written, and how it ended after that.
WriteOutcome Running::Write() {
    if (mRequest.dryRun) return WriteInTransaction();
    BatchJournal& journal = *mRequest.journal;
    const int batch = journal.Begin(Intent());
    WriteOutcome outcome{};
    try {
        outcome = WriteInTransaction();
    } catch (const platform::CommitInDoubt&) {
        EndInDoubt(batch);
        throw;
    } catch (...) {
        Withdraw(batch);
        throw;
    }
    if (outcome != WriteOutcome::Done) {
        Withdraw(batch);
        return outcome;
    }
    mResult.batch = batch;
    try {
        journal.End(batch, BatchOutcome::Written);
    } catch (const platform::JournalFailed& failure) {
        mResult.notes.push_back("已经写入帐套，但批次 " + std::to_string(batch) +
                                " 的结果没有记入日志：" + failure.what());
    }
    return outcome;
}

WriteOutcome Running::WriteInTransaction() {
    platform::Transaction transaction(*gConn);
    const WriteOutcome outcome = WriteRows(mResult.plan, mResult.firstIdentity, mMasterData);
    if (outcome == WriteOutcome::Done && !mRequest.dryRun) {
        transaction.Commit();
    } else {
        transaction.RollBack();
    }
    return outcome;
}

// The intent of a batch that wrote nothing. One that stays is found out by the account later.
void Running::Withdraw(int batch) {
    try {
        mRequest.journal->Withdraw(batch);
    } catch (const platform::JournalFailed&) {
        // What failed before is what is told.
    }
}

// One that stays unfinished is found out by the account as well.
void Running::EndInDoubt(int batch) {
    try {
        mRequest.journal->End(batch, BatchOutcome::InDoubt);
    } catch (const platform::JournalFailed&) {
        // The doubt is what is told.
    }
}

}  // namespace

BatchResult RunBatch(const Planner& plan, MasterData& masterData, const BatchRequest& request) {
    return Running(plan, masterData, request).Run();
}

std::vector<BulkFinding> LocksFound() {
    std::vector<BulkFinding> found;
    for (Finding& lock : LocksOfList()) {
        found.push_back({BulkTableKind::Entries, 0, 0, std::move(lock)});
    }
    return found;
}

bool IsOpen(const Batch& batch) {
    const bool isDecided = batch.outcome && *batch.outcome != BatchOutcome::InDoubt;
    return !isDecided && !batch.running && !batch.neverBegun && batch.problem.empty();
}

std::vector<Batch> DecidedBatches(BatchJournal& journal, bool dryRun) {
    std::vector<Batch> batches = journal.Batches();
    for (Batch& batch : batches) {
        if (!IsOpen(batch)) continue;
        batch.outcome = OutcomeInAccount(journal.Read(batch.number));
        if (batch.outcome && !dryRun) journal.End(batch.number, *batch.outcome);
    }
    return batches;
}

bool IsUndone(const std::vector<Batch>& batches, int number) {
    return std::ranges::any_of(batches, [&](const Batch& each) {
        return each.intent.undoes == number && each.outcome == BatchOutcome::Written &&
               !IsUndone(batches, each.number);
    });
}

}  // namespace kelvane::entries
