#include "entries/bulk/import.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "data/number_format.h"
#include "data/text_conversion.h"

namespace kelvane::entries {

using platform::Batch;
using platform::BatchOutcome;
using platform::Money;

namespace {

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

std::vector<std::string> FindFormer(const std::string& hash, platform::BatchJournal& journal,
                                    bool dryRun) {
    const std::vector<Batch> batches = DecidedBatches(journal, dryRun);
    std::vector<std::string> found;
    for (const Batch& batch : batches) {
        const bool isSameFile =
            !batch.neverBegun && batch.intent.kind == "import" && batch.intent.hash == hash;
        if (!isSameFile || batch.outcome == BatchOutcome::NotWritten ||
            IsUndone(batches, batch.number)) {
            continue;
        }
        found.push_back("该文件已于 " + batch.intent.time.FullText().substr(0, 19) + " 由 " +
                        batch.intent.user + " 导入（批次 " + std::to_string(batch.number) + "）");
    }
    return found;
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
    void CheckTotals();
    void CheckFormerImports();
    ImportPlan Plan() const;

    const BulkEntries& mFile;
    MasterData& mMasterData;
    const ImportRequest& mRequest;
    ImportResult mResult;
};

ImportResult Importing::Run() {
    mResult.sum = SumOf(mFile);
    // What stops everything before any row is looked at.
    CheckTotals();
    std::ranges::move(LocksFound(), std::back_inserter(mResult.plan.findings));
    CheckFormerImports();
    if (mResult.HasFindings()) {
        mResult.plan.rows.resize(mFile.entries.size());
        return std::move(mResult);
    }
    BatchResult batch = RunBatch([this] { return Plan(); }, mMasterData, mRequest);
    batch.notes.insert(batch.notes.begin(), mResult.notes.begin(), mResult.notes.end());
    static_cast<BatchResult&>(mResult) = std::move(batch);
    return std::move(mResult);
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
        Find(Rule::FileTotalAmount, data::DisplayOfMoney(expected),
             mResult.sum ? data::DisplayOfMoney(*mResult.sum) : "超出范围的金额");
    }
}

void Importing::CheckFormerImports() {
    if (mRequest.journal == nullptr) return;
    for (const std::string& told :
         FindFormer(mRequest.head.hash, *mRequest.journal, mRequest.dryRun)) {
        if (!mRequest.again) return Find(Rule::FileAgain, told);
        mResult.notes.push_back(told);
    }
}

ImportPlan Importing::Plan() const {
    ImportPlan plan = PlanImport(mFile, mMasterData, mRequest.tellBudgets, mRequest.progress);
    plan.findings.insert(plan.findings.begin(), mFile.findings.begin(), mFile.findings.end());
    plan.isRefused = mFile.isRefused;
    RefuseFoundRows(mFile, plan);
    return plan;
}

}  // namespace

std::optional<Money> SumOf(const BulkEntries& file) try {
    Money sum;
    for (const BulkEntry& entry : file.entries) {
        if (!IsDeletion(entry)) sum += AmountIn(entry).value_or(Money());
    }
    return sum;
} catch (const platform::MoneyOverflow&) {
    return std::nullopt;
}

std::vector<std::string> FormerImports(const std::string& hash, platform::BatchJournal& journal) {
    return FindFormer(hash, journal, true);
}

ImportResult RunImport(const BulkEntries& file, MasterData& masterData,
                       const ImportRequest& request) {
    return Importing(file, masterData, request).Run();
}

}  // namespace kelvane::entries
