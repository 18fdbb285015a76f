#include "adapters/odbc/session.h"

#include <utility>

#include "adapters/database/refusals.h"

namespace kelvane::odbc {

using platform::DatabaseError;

namespace {

void NameBaseColumns(const RunStep& step, ResultRows& rows) {
    for (std::size_t i = step.columns.size(); i < rows.columns.size(); ++i) {
        tsql::ResultColumn& column = rows.columns[i];
        if (step.baseColumns.empty()) {
            column.baseColumn = column.name;
        } else if (i < step.baseColumns.size()) {
            column.baseColumn = step.baseColumns[i];
        }
    }
}

platform::Value FirstOf(const Result& answer) {
    const bool isThere = answer.rows.RowCount() > 0 && !answer.rows.columns.empty();
    return isThere ? answer.rows.ValueAt(0, 0) : platform::Value();
}

}  // namespace

Result Session::RunPlan(const Plan& plan, const Purpose& purpose) {
    Result result;
    result.source = plan.source;
    for (const RunStep& step : plan.steps) {
        const bool collects = purpose.wantsRows && !result.rows.hasResult;
        ResultRows rows = mServer.RunOne(step, collects);
        if (!collects || !rows.hasResult) continue;
        result.rows = std::move(rows);
        if (!plan.source.table.empty()) NameBaseColumns(step, result.rows);
    }
    if (plan.rowsLocked) result.lockedIn = mTransactions.Current();
    return result;
}

Result Session::Run(std::string_view batch, Purpose purpose) {
    mTransactions.RequireIntact();
    if (purpose.locks) mTransactions.RequireChangeable();
    mServer.RequireConnected();
    purpose.inTransaction = mServer.InTransaction();
    bool changes = true;
    try {
        const Plan plan = mServer.Dialect().PlanBatch(batch, purpose, mServer);
        changes = plan.changes;
        if (changes) mTransactions.RequireChangeable();
        Result result = RunPlan(plan, purpose);
        if (changes) mTransactions.MakeDurable();
        return result;
    } catch (...) {
        if (changes) mTransactions.DropChange();
        throw;
    }
}

void Session::Announce(std::span<const platform::StatementText> queries, bool changeable) {
    mAnnounced.Announce(queries, changeable);
}

std::optional<Result> Session::Answer(const std::string& query, bool changeable) {
    if (!mAnnounced.IsNext(query, changeable)) return {};
    // Inside a transaction a query may lock, and one that fails may end it: there each goes alone.
    if (IsExplicit() || mServer.InTransaction()) return {};
    if (!mAnnounced.IsAnswered()) ReadAhead(changeable);
    return mAnnounced.Take();
}

void Session::ReadAhead(bool changeable) {
    const Purpose purpose{.wantsRows = true, .changeable = changeable};
    std::vector<RunStep> steps;
    std::vector<Result> answers;
    mServer.RequireConnected();
    try {
        for (const std::string_view query : mAnnounced.NextBatch()) {
            Plan plan = mServer.Dialect().PlanBatch(query, purpose, mServer);
            const bool together = !plan.changes && plan.steps.size() == 1 &&
                                  plan.steps.front().givesRows && !plan.steps.front().error;
            if (!together) break;
            steps.push_back(std::move(plan.steps.front()));
            answers.push_back({{}, std::move(plan.source)});
        }
        std::vector<ResultRows> rows;
        if (!steps.empty()) rows = mServer.RunTogether(steps);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (!answers[i].source.table.empty()) NameBaseColumns(steps[i], rows[i]);
            answers[i].rows = std::move(rows[i]);
        }
        if (rows.empty()) answers.clear();
    } catch (const platform::ConnectionLost&) {
        mAnnounced.End();
        throw;
    } catch (const DatabaseError&) {
        answers.clear();
    }
    mAnnounced.SetAnswers(std::move(answers));
    mAnnounced.CollectChanges(FirstOf);
}

bool Session::MakeAnnounced(const std::string& change, bool changeable) {
    database::AnnouncedChanges& changes = mAnnounced.Changes();
    if (changes.IsNext(change) && !changes.IsMade()) MakeTogether(changeable);
    return changes.TakeMade(change);
}

void Session::MakeTogether(bool changeable) {
    database::AnnouncedChanges& changes = mAnnounced.Changes();
    const Purpose purpose{.wantsRows = true, .changeable = changeable};
    try {
        mServer.RequireConnected();
        std::vector<RunStep> steps;
        for (const std::string_view change : changes.Rest()) {
            Plan plan = mServer.Dialect().PlanBatch(change, purpose, mServer);
            if (plan.steps.size() != 1 || plan.steps.front().error) return changes.LeaveAlone();
            steps.push_back(std::move(plan.steps.front()));
        }
        std::string text = mServer.Dialect().AllOrNone(steps);
        if (steps.size() < 2 || text.empty()) return changes.LeaveAlone();
        mServer.RunOne({.text = std::move(text)}, false);
        changes.SetMade();
    } catch (const platform::ConnectionLost&) {
        mAnnounced.End();
        throw;
    } catch (const DatabaseError&) {
        changes.LeaveAlone();
    }
}

Result Session::RunLocked(std::string_view batch, Locker& locker) {
    mAnnounced.End();
    mTransactions.AddLocker();
    try {
        const Purpose purpose{
            .wantsRows = true, .changeable = true, .locks = true, .inTransaction = true};
        Result result = RunPlan(mServer.Dialect().PlanBatch(batch, purpose, mServer), purpose);
        locker = mTransaction.Add(std::string(batch));
        return result;
    } catch (...) {
        mTransactions.RemoveLocker();
        throw;
    }
}

void Session::RemoveLocker(Locker locker) noexcept {
    mTransaction.Remove(locker);
    mTransactions.RemoveLocker();
}

void Session::Change(RowChange change, long lockedIn) {
    mTransactions.RequireIntact();
    mTransactions.RequireChangeable();
    mAnnounced.End();
    const bool own = !IsExplicit() && !mTransactions.HasLockers();
    if (own) {
        mTransaction.Start();
    } else {
        mTransactions.RegainLock();
    }
    change.locked = lockedIn != 0 && lockedIn == mTransactions.Current();
    try {
        const RunStep step = mServer.Dialect().PlanChange(change, mServer);
        const long changed = mServer.RunOne(step, false).changedRows;
        if (changed == 0) throw database::RowGone();
        if (changed > 1) {
            mServer.RollBack();
            throw database::ManyRowsChanged();
        }
        if (own) mServer.Commit();
    } catch (...) {
        if (own && mServer.InTransaction()) mServer.RollBack();
        mTransactions.DropChange();
        throw;
    }
    mTransactions.MakeDurable();
}

}  // namespace kelvane::odbc
