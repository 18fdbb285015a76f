#include "entries/bulk/import_plan.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "data/date_text.h"
#include "data/login_context.h"
#include "data/number_format.h"
#include "data/text_conversion.h"
#include "entries/bulk/bulk_rules.h"
#include "entries/entry_rules.h"
#include "entries/trap_watch.h"

namespace kelvane::entries {

using platform::Money;

namespace {

std::optional<std::int32_t> IdentityOf(const std::string& text) {
    std::int32_t identity = 0;
    const char* end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, identity);
    return failure == std::errc() && stop == end ? std::optional(identity) : std::nullopt;
}

class Planning {
public:
    Planning(const BulkEntries& file, MasterData& masterData, const ImportProgress& progress)
        : mFile(file), mMasterData(masterData), mRules(mMasterData), mProgress(progress) {}

    ImportPlan Run(bool tellBudgets);

private:
    void FindIdentitiesTwice();
    void MeetStored(const BulkEntry& entry, PlannedRow& row);
    void CompareStored(const BulkEntry& entry, const EntryRecord& stored);
    void CheckRow(const BulkEntry& entry, PlannedRow& row);
    bool IsAsStored(const BulkEntry& entry, const EntryRecord& stored);
    std::optional<EntryRecord> RecordInFile(const BulkEntry& entry);
    void Find(const BulkEntry& entry, int column, Finding finding) {
        mPlan.findings.push_back({BulkTableKind::Entries, entry.row, column, std::move(finding)});
        mRefused.insert(entry.row);
    }

    const BulkEntries& mFile;
    FileMasterData mMasterData;
    BulkRules mRules;
    const ImportProgress& mProgress;
    EntryRecords mStored;
    ImportPlan mPlan;
    std::set<int> mRefused;
};

ImportPlan Planning::Run(bool tellBudgets) {
    const TrapWatch trapped;
    mPlan.rows.resize(mFile.entries.size());
    const bool refersToStored =
        std::ranges::any_of(mFile.entries, [](const auto& each) { return !each.identity.empty(); });
    if (refersToStored) mStored = ReadEntryRecords();
    FindIdentitiesTwice();
    for (std::size_t at = 0; at < mPlan.rows.size(); ++at) {
        mPlan.rows[at].row = mFile.entries[at].row;
        MeetStored(mFile.entries[at], mPlan.rows[at]);
    }
    for (std::size_t at = 0; at < mPlan.rows.size(); ++at) {
        CheckRow(mFile.entries[at], mPlan.rows[at]);
        trapped.Rethrow();
        if (mProgress && !mProgress(at + 1, mPlan.rows.size())) throw ImportCancelled();
    }
    if (tellBudgets) mPlan.budgets = mMasterData.Budgets();
    mPlan.totals = mMasterData.Totals();
    trapped.Rethrow();
    return std::move(mPlan);
}

void Planning::FindIdentitiesTwice() {
    std::map<std::int32_t, std::vector<const BulkEntry*>> places;
    for (const BulkEntry& entry : mFile.entries) {
        if (const auto identity = IdentityOf(entry.identity)) places[*identity].push_back(&entry);
    }
    for (const auto& [identity, entries] : places) {
        for (std::size_t i = 0; entries.size() > 1 && i < entries.size(); ++i) {
            const int other = entries[i == 0 ? 1 : 0]->row;
            Find(*entries[i], kIdentityColumn,
                 Found(Rule::EntryIdentityTwice, std::to_string(identity), std::to_string(other)));
        }
    }
}

// What a row that has an identity, or is to be deleted, means to the entry that the account has.
void Planning::MeetStored(const BulkEntry& entry, PlannedRow& row) {
    const bool deletes = entry.operation == kDeletionMark;
    if (!entry.operation.empty() && !deletes) {
        return Find(entry, kOperationColumn, Found(Rule::EntryOperation, entry.operation));
    }
    if (entry.identity.empty()) {
        row.fate = RowFate::New;
        if (deletes) Find(entry, kOperationColumn, Found(Rule::EntryDeletion));
        return;
    }
    if (mRefused.contains(entry.row)) return;
    const auto identity = IdentityOf(entry.identity);
    const auto stored = identity ? mStored.find(*identity) : mStored.end();
    // A row that was left as it was wants nothing, whatever became of its entry.
    const auto inFile = RecordInFile(entry);
    if (!deletes && inFile && CheckValueOf(*inFile) == entry.check) {
        row.fate = RowFate::Unchanged;
        return;
    }
    if (stored == mStored.end()) return Find(entry, kIdentityColumn, Found(Rule::EntryGone));
    const std::string current = CheckValueOf(stored->second);
    if (!deletes && inFile && CheckValueOf(*inFile) == current) {
        row.fate = RowFate::Unchanged;
        return;
    }
    if (current != entry.check) return CompareStored(entry, stored->second);
    row.before = stored->second;
    row.fate = deletes ? RowFate::Deleted : RowFate::Changed;
    mMasterData.Release(stored->second);
}

// The record that the row says, with numbers as they are in the file; nothing when some of it
// cannot be read.
std::optional<EntryRecord> Planning::RecordInFile(const BulkEntry& entry) {
    try {
        EntryRecord record;
        EntryTexts texts = entry.texts;
        for (std::string& text : texts.cells) text = data::Trim(text);
        record.entry = EntryOf(texts);
        if (!mMasterData.ElementDetail(texts[kElementColumn])) return std::nullopt;
        record.elementCode = mMasterData.ElementCode(texts[kElementColumn]);
        for (const BulkLine& line : entry.lines) {
            LineTexts lineTexts = line.texts;
            DetailLine each{.code = lineTexts.code,
                            .price = Money::FromText(lineTexts.price),
                            .quantity = data::DoubleOfDisplay(lineTexts.quantity),
                            .amount = {}};
            each.amount = lineTexts.amount.empty() ? AmountOf(lineTexts.price, lineTexts.quantity)
                                                   : Money::FromText(lineTexts.amount);
            record.lines.push_back(each);
        }
        return record;
    } catch (const platform::DatabaseError&) {
        throw;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

// A column of which the file says something else than the account.
void Planning::CompareStored(const BulkEntry& entry, const EntryRecord& stored) {
    const Entry& now = stored.entry;
    const std::string amount = data::DisplayOfMoney(now.amount);
    const std::pair<EntryColumn, std::string> texts[] = {{kDateColumn, now.date.DateText('-')},
                                                         {kCenterColumn, now.centerCode},
                                                         {kItemColumn, now.itemCode},
                                                         {kKey1Column, now.key1},
                                                         {kKey2Column, now.key2},
                                                         {kElementColumn, now.elementName},
                                                         {kDigestColumn, now.digest},
                                                         {kAmountColumn, amount}};
    bool differs = false;
    for (const auto& [column, text] : texts) {
        std::string inFile = data::Trim(entry.texts[column]);
        if (column == kDateColumn) {
            std::string date = inFile;
            if (data::CheckDateText(date)) inFile = data::DateTextToDate(date).DateText('-');
        }
        if (column == kAmountColumn) {
            inFile = data::NumFormatText(platform::Value(inFile), data::kMoneyKind, true);
        }
        if (inFile == data::Trim(text)) continue;
        differs = true;
        Find(entry, column, Found(Rule::EntryChanged, inFile, data::Trim(text)));
    }
    if (!differs) Find(entry, 0, Found(Rule::EntryLinesChanged));
}

void Planning::CheckRow(const BulkEntry& entry, PlannedRow& row) {
    const bool isRefused = mRefused.contains(entry.row);
    if (row.fate == RowFate::Unchanged || (row.fate == RowFate::Refused && isRefused)) return;
    if (row.fate == RowFate::Deleted) {
        return mRules.CheckDeletion(entry, *row.before, mPlan.findings);
    }
    if (row.fate == RowFate::Changed) {
        // What was settled meanwhile stays as it is.
        const Entry& before = row.before->entry;
        if (mMasterData.ItemSettled(before.itemCode, before.key1, before.key2)) {
            return Find(entry, kItemColumn, Found(Rule::ItemSettled));
        }
    }
    row.after = mRules.Check(entry, mPlan.findings);
    if (row.after && !isRefused) mMasterData.Take(*row.after);
}

}  // namespace

std::size_t ImportPlan::Count(RowFate fate) const {
    return static_cast<std::size_t>(
        std::ranges::count(rows, fate, [](const PlannedRow& row) { return row.fate; }));
}

std::size_t ImportPlan::CountNumbers() const {
    return static_cast<std::size_t>(std::ranges::count_if(rows, &PlannedRow::NeedsNumber));
}

bool ImportPlan::WritesAny() const {
    return std::ranges::any_of(rows, [](const PlannedRow& row) {
        return row.fate != RowFate::Refused && row.fate != RowFate::Unchanged;
    });
}

ImportPlan PlanImport(const BulkEntries& file, MasterData& masterData, bool tellBudgets,
                      const ImportProgress& progress) {
    return Planning(file, masterData, progress).Run(tellBudgets);
}

void RefuseFoundRows(const BulkEntries& file, ImportPlan& plan) {
    std::set<std::pair<BulkTableKind, int>> found;
    for (const BulkFinding& finding : plan.findings) found.insert({finding.table, finding.row});
    for (std::size_t at = 0; at < plan.rows.size(); ++at) {
        const BulkEntry& entry = file.entries[at];
        PlannedRow& row = plan.rows[at];
        const bool isUnchecked =
            (row.fate == RowFate::New || row.fate == RowFate::Changed) && !row.after;
        const bool refused = isUnchecked || found.contains({BulkTableKind::Entries, entry.row}) ||
                             std::ranges::any_of(entry.lines, [&](const BulkLine& line) {
                                 return found.contains({BulkTableKind::Lines, line.row});
                             });
        if (refused) row.fate = RowFate::Refused;
    }
}

}  // namespace kelvane::entries
