#include "entries/bulk/import.h"

#include <algorithm>
#include <utility>

#include "data/login_context.h"
#include "data/number_format.h"
#include "data/text_conversion.h"
#include "entries/bulk/import_write.h"
#include "entries/bulk/record_image.h"
#include "entries/entry_counter.h"
#include "entries/entry_store.h"
#include "entries/failure_reason.h"
#include "entries/opening_period.h"

namespace kelvane::entries {

using data::gConn;
using platform::Batch;
using platform::BatchJournal;
using platform::BatchOutcome;
using platform::Money;

namespace {

// Other operators may write while the rows are checked; who never comes to an end gives up.
constexpr int kMostTries = 5;

std::string MoneyText(Money amount) {
    return data::NumFormatText(platform::Value(amount), data::kMoneyKind, true);
}

bool IsDeletion(const BulkEntry& entry) {
    return !entry.operation.empty();
}

// The amount that the row says, or that its lines come to; nothing when it cannot be read.
std::optional<Money> AmountIn(const BulkEntry& entry) try {
    const std::string amount = data::Trim(entry.texts[kAmountColumn]);
    if (!amount.empty()) return Money::FromText(amount);
    Money total;
    for (const BulkLine& line : entry.lines) {
        const std::string price = LineNumberText(line.texts.price, data::kPriceKind);
        const std::string quantity = LineNumberText(line.texts.quantity, data::kQuantityKind);
        total += data::MoneyOfDisplay(LineAmountText(price, quantity));
    }
    return total;
} catch (const std::exception&) {
    return std::nullopt;
}

std::optional<Money> SumOf(const BulkEntries& file) try {
    Money sum;
    for (const BulkEntry& entry : file.entries) {
        if (!IsDeletion(entry)) sum += AmountIn(entry).value_or(Money());
    }
    return sum;
} catch (const platform::MoneyOverflow&) {
    return std::nullopt;
}

class Importing {
public:
    Importing(const BulkEntries& file, MasterData& masterData, const ImportRequest& request)
        : mFile(file), mMasterData(masterData), mRequest(request) {}

    ImportResult Run();

private:
    void Find(Rule rule, std::string_view first, std::string_view second = {}) {
        mResult.plan.findings.push_back({BulkTableKind::Entries, 0, 0, Found(rule, first, second)});
    }
    void CheckFile();
    void CheckTotals();
    void CheckLocks();
    void CheckFormerImports();
    std::optional<BatchOutcome> OutcomeOf(const Batch& batch);
    bool IsRefused() const { return mFile.isRefused || mResult.HasFindings(); }
    void RefuseAll();
    void Plan();
    void FindNumbers();
    WriteOutcome Write();
    WriteOutcome WriteInTransaction();
    platform::BatchIntent Intent() const;

    const BulkEntries& mFile;
    MasterData& mMasterData;
    const ImportRequest& mRequest;
    ImportResult mResult;
};

ImportResult Importing::Run() {
    mResult.sum = SumOf(mFile);
    CheckFile();
    if (mResult.HasFindings()) {
        RefuseAll();
        return std::move(mResult);
    }
    for (int tries = 1;; ++tries) {
        Plan();
        if (IsRefused() || !mResult.plan.WritesAny()) return std::move(mResult);
        const WriteOutcome outcome = Write();
        if (outcome == WriteOutcome::Done) return std::move(mResult);
        if (tries == kMostTries) {
            throw platform::DatabaseBusy("其他操作员正在录入期初，没有导入，请稍后再试");
        }
    }
}

void Importing::RefuseAll() {
    mResult.plan.rows.assign(mFile.entries.size(), {});
}

// What stops everything before any row is looked at.
void Importing::CheckFile() {
    CheckTotals();
    CheckLocks();
    CheckFormerImports();
}

void Importing::CheckTotals() {
    const auto rows = static_cast<std::int64_t>(mFile.entries.size());
    for (const std::int64_t expected : mRequest.expectedRows) {
        if (expected == rows) continue;
        Find(Rule::FileTotalRows, std::to_string(expected), std::to_string(rows));
    }
    // A sum of what cannot be read would be none.
    const bool isUnread = std::ranges::any_of(
        mFile.entries, [](const BulkEntry& each) { return each.unread.Has(kAmountColumn); });
    if (isUnread) return;
    for (const Money expected : mRequest.expectedSums) {
        if (expected == mResult.sum) continue;
        Find(Rule::FileTotalAmount, MoneyText(expected),
             mResult.sum ? MoneyText(*mResult.sum) : "超出范围的金额");
    }
}

void Importing::CheckLocks() {
    for (Finding& lock : LocksOfList()) {
        mResult.plan.findings.push_back({BulkTableKind::Entries, 0, 0, std::move(lock)});
    }
}

void Importing::CheckFormerImports() {
    if (mRequest.journal == nullptr) return;
    const std::vector<Batch> batches = mRequest.journal->Batches();
    const auto isUndone = [&](int number) {
        return std::ranges::any_of(batches, [&](const Batch& each) {
            return each.intent.undoes == number && each.outcome == BatchOutcome::Written;
        });
    };
    for (const Batch& batch : batches) {
        if (batch.neverBegun || batch.intent.kind != "import") continue;
        if (batch.intent.hash != mRequest.head.hash || isUndone(batch.number)) continue;
        if (OutcomeOf(batch) == BatchOutcome::NotWritten) continue;
        const std::string told = "该文件已于 " + batch.intent.time.FullText().substr(0, 19) +
                                 " 由 " + batch.intent.user + " 导入（批次 " +
                                 std::to_string(batch.number) + "）";
        if (!mRequest.again) return Find(Rule::FileAgain, told);
        mResult.notes.push_back(told);
    }
}

// How a batch ended; of one that was cut short the account tells.
std::optional<BatchOutcome> Importing::OutcomeOf(const Batch& batch) {
    const bool isOpen = !batch.outcome || *batch.outcome == BatchOutcome::InDoubt;
    if (!isOpen || batch.running || !batch.problem.empty()) return batch.outcome;
    const auto outcome = OutcomeInAccount(mRequest.journal->Read(batch.number));
    if (outcome && !mRequest.dryRun) mRequest.journal->End(batch.number, *outcome);
    return outcome;
}

void Importing::Plan() {
    mResult.plan = PlanImport(mFile, mMasterData, mRequest.tellBudgets, mRequest.progress);
    auto& findings = mResult.plan.findings;
    findings.insert(findings.begin(), mFile.findings.begin(), mFile.findings.end());
    RefuseFoundRows(mFile, mResult.plan);
    FindNumbers();
    RefuseFoundRows(mFile, mResult.plan);
}

// Whether there is a number for each new row.
void Importing::FindNumbers() {
    ImportPlan& plan = mResult.plan;
    if (plan.Count(RowFate::New) == 0) return;
    std::optional<Finding> missing;
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
    for (std::size_t at = 0; at < plan.rows.size(); ++at) {
        if (plan.rows[at].fate != RowFate::New) continue;
        if (!missing && left-- > 0) continue;
        const Finding finding =
            missing ? *missing
                    : Found(Rule::IdentityExhausted, std::to_string(kIdentities.largest));
        plan.findings.push_back({BulkTableKind::Entries, mFile.entries[at].row, 0, finding});
    }
}

platform::BatchIntent Importing::Intent() const {
    platform::BatchIntent intent = mRequest.head;
    std::int32_t identity = mResult.firstIdentity;
    for (const PlannedRow& row : mResult.plan.rows) {
        if (row.fate == RowFate::Refused || row.fate == RowFate::Unchanged) continue;
        platform::BatchChange change;
        if (row.before) change.before = ImageOf(*row.before);
        if (row.after) change.after = ImageOf(*row.after);
        change.identity = row.before ? row.before->entry.identity : identity++;
        intent.changes.push_back(std::move(change));
    }
    return intent;
}

// The journal knows what is meant before anything is written, and how it ended after that.
WriteOutcome Importing::Write() {
    if (mRequest.dryRun) return WriteInTransaction();
    BatchJournal& journal = *mRequest.journal;
    const int batch = journal.Begin(Intent());
    WriteOutcome outcome{};
    try {
        outcome = WriteInTransaction();
    } catch (const platform::CommitInDoubt&) {
        journal.End(batch, BatchOutcome::InDoubt);
        throw;
    } catch (...) {
        journal.Withdraw(batch);
        throw;
    }
    if (outcome != WriteOutcome::Done) {
        journal.Withdraw(batch);
        return outcome;
    }
    mResult.batch = batch;
    try {
        journal.End(batch, BatchOutcome::Written);
    } catch (const platform::JournalFailed& failure) {
        mResult.notes.push_back("已经导入，但批次 " + std::to_string(batch) +
                                " 的结果没有记入日志：" + failure.what());
    }
    return outcome;
}

WriteOutcome Importing::WriteInTransaction() {
    platform::Transaction transaction(*gConn);
    const WriteOutcome outcome = WriteRows(mResult.plan, mResult.firstIdentity, mMasterData);
    if (outcome == WriteOutcome::Done && !mRequest.dryRun) {
        transaction.Commit();
    } else {
        transaction.RollBack();
    }
    return outcome;
}

}  // namespace

ImportResult RunImport(const BulkEntries& file, MasterData& masterData,
                       const ImportRequest& request) {
    return Importing(file, masterData, request).Run();
}

}  // namespace kelvane::entries
