#include "entries/entry_store.h"

#include <vector>

#include "data/login_context.h"
#include "entries/announced_queries.h"
#include "entries/entry_statements.h"
#include "entries/unreadable_rows.h"
#include "platform/database.h"

namespace kelvane::entries {

using data::gConn;
using platform::StatementText;
using platform::Transaction;

namespace {

std::string ElementCodeOf(const std::string& elementName) {
    StatementText statement("select cElementCode from PM_ItemElement where cElementName = '");
    statement.Inside(elementName) << "'";
    return data::gEnv->DataAccess().Query(statement)->Field(0).ToText();
}

StatementText DetailSum(std::int64_t identity) {
    StatementText statement("Select sum(mQc) from pm_itemqcsub where iEleVid = '");
    statement.Number(identity) << "'";
    return statement;
}

// Empty when `sum` leaves the amount as it is.
StatementText AmountCorrection(std::int64_t identity, const platform::Value& sum) {
    StatementText update;
    const platform::Money amount = sum.IsNull() ? platform::Money() : sum.ToMoney();
    if (amount.IsZero()) return update;
    update << "Update PM_ItemQC set mQC = ";
    update.Amount(amount) << " where iEleVid = '";
    return update.Number(identity) << "'";
}

// The account database's number for a text that it cannot read as an amount.
constexpr int kNoAmount = 235;

std::string UnreadableLines(const UnreadableRows& found) {
    return "有 " + std::to_string(found.count) + " 行明细的金额无法识别，第一行属于期初编号 " +
           found.firstIdentity + "。";
}

// The sum that `statement` asks for.
std::unique_ptr<platform::RecordSet> SumOf(platform::HostDataAccess& access,
                                           const StatementText& statement) {
    try {
        return access.Query(statement);
    } catch (const platform::DatabaseError& error) {
        if (error.NativeCode() != kNoAmount) throw;
        const auto lines = access.Query(StatementText("select iEleVid,mQC from PM_ItemQCsub"));
        TellUnreadableRows(*lines, {"mQC"}, {}, UnreadableLines);
    }
}

}  // namespace

std::optional<Finding> EntryStore::Update(const Entry& entry, const StatementText& detailScript,
                                          WrittenEntry& written) {
    Transaction transaction(*gConn);
    const auto stored = OpenHeldEntry(entry.identity);
    if (stored->EndOfFile()) {
        transaction.RollBack();
        if (mInDoubt.count(entry.identity) == 0) return Found(Rule::EntryGone);
        Insert(entry, detailScript, written);
        return std::nullopt;
    }
    written.before = StoredEntryOf(*stored);
    written.elementCode = ElementCodeOf(entry.elementName);
    SetFields(*stored, entry, written.elementCode);
    stored->Update();
    if (!detailScript.IsEmpty()) gConn->Execute(detailScript.WithEntry(entry.identity));
    stored->Close();
    transaction.Commit();
    mInDoubt.erase(entry.identity);
    return std::nullopt;
}

void EntryStore::Insert(const Entry& entry, const StatementText& detailScript,
                        WrittenEntry& written) {
    written.elementCode = ElementCodeOf(entry.elementName);
    const StatementText insert = InsertionOf(entry, written.elementCode);
    Transaction transaction(*gConn);
    if (!detailScript.IsEmpty()) gConn->Execute(detailScript.WithEntry(entry.identity));
    gConn->Execute(insert);
    try {
        transaction.Commit();
    } catch (const platform::CommitInDoubt&) {
        // The entry may be there: under another identity it would be there twice.
        mInDoubt.insert(entry.identity);
        throw;
    }
    mInDoubt.erase(entry.identity);
}

void EntryStore::Delete(std::int32_t identity) {
    Transaction transaction(*gConn);
    gConn->Execute(DeletionOf(identity));
    gConn->Execute(LinesDeletionOf(identity));
    transaction.Commit();
}

void EntryStore::DeleteLines(std::int32_t identity) {
    gConn->Execute(LinesDeletionOf(identity));
}

void EntryStore::ReSum(platform::HostDataAccess& access) {
    const auto entries = access.Query(StatementText("Select distinct iEleVid from PM_ItemQC"));
    const auto identities =
        ReadAll(*entries, [](const platform::RecordSet& row) { return row.Field(0).ToInteger(); });
    // Writing amounts in between changes no sum: lines are another table. When another operator
    // saves after an entry's sum was read, the older sum is written over his; small pieces keep
    // that time short.
    constexpr std::size_t kPiece = 64;
    AnnouncedQueries sumQueries(
        access, identities.size(),
        [&](std::size_t i) {
            return DetailSum(i < identities.size() ? identities[i] : entries->Field(0).ToInteger());
        },
        kPiece);
    sumQueries.AnnounceChanges([&](std::size_t i, const platform::Value& sum) {
        return AmountCorrection(identities[i], sum);
    });
    for (; !entries->EndOfFile(); entries->MoveNext()) {
        const std::int64_t identity = entries->Field(0).ToInteger();
        const auto sums = SumOf(access, sumQueries.Next());
        if (sums->EndOfFile()) continue;
        const StatementText correction = AmountCorrection(identity, sums->Field(0));
        if (!correction.IsEmpty()) access.Query(correction);
    }
}

}  // namespace kelvane::entries
