#include "adapters/odbc/session.h"

#include <utility>

namespace kelvane::odbc {

using platform::DatabaseError;

namespace {

DatabaseError NoTransaction() {
    return DatabaseError("There is no transaction.", 3902);
}

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

}  // namespace

void Session::RequireIntact() const {
    if (!mExplicit || mServer.InTransaction()) return;
    if (mServer.WasLost()) {
        throw platform::ConnectionLost("与数据库服务器的连接已经断开，本次操作没有保存");
    }
    throw DatabaseError("The transaction was undone by an earlier error.", 3930);
}

void Session::Start() {
    mServer.RequireConnected();
    mServer.StartTransaction();
    ++mTransaction;
}

void Session::Begin() {
    if (mExplicit) throw DatabaseError("A transaction is open already.", 3901);
    mAnnounced.End();
    if (!IsHeld()) Start();
    mHeld = false;
    mExplicit = true;
}

void Session::Commit() {
    if (!mExplicit) throw NoTransaction();
    mAnnounced.End();
    try {
        RequireIntact();
        mExplicit = false;
        mServer.Commit();
    } catch (...) {
        mExplicit = false;
        TryRelock();
        throw;
    }
    TryRelock();
}

void Session::RollBack() {
    if (!mExplicit) throw NoTransaction();
    mAnnounced.End();
    mExplicit = false;
    if (mServer.InTransaction()) mServer.RollBack();
    TryRelock();
}

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
    if (plan.rowsLocked && mServer.InTransaction()) result.lockedIn = mTransaction;
    return result;
}

Result Session::Run(std::string_view batch, Purpose purpose) {
    RequireIntact();
    mServer.RequireConnected();
    purpose.inTransaction = mServer.InTransaction();
    bool changes = true;
    try {
        const Plan plan = mServer.Dialect().PlanBatch(batch, purpose, mServer);
        changes = plan.changes;
        Result result = RunPlan(plan, purpose);
        if (changes) MakeDurable();
        return result;
    } catch (...) {
        if (changes) DropChange();
        throw;
    }
}

void Session::Announce(std::span<const platform::StatementText> queries, bool changeable) {
    mAnnounced.Announce(queries, changeable);
}

std::optional<Result> Session::Answer(const std::string& query, bool changeable) {
    if (!mAnnounced.IsNext(query, changeable)) return {};
    // Inside a transaction a query may lock, and one that fails may end it: there each goes alone.
    if (mExplicit || mServer.InTransaction()) return {};
    if (!mAnnounced.IsAnswered()) ReadAhead(changeable);
    return mAnnounced.Take();
}

void Session::ReadAhead(bool changeable) {
    const Purpose purpose{.wantsRows = true, .changeable = changeable};
    std::vector<RunStep> steps;
    std::vector<Result> answers;
    mServer.RequireConnected();
    try {
        for (const std::string& query : mAnnounced.NextBatch()) {
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
}

void Session::Lock(bool again) {
    Start();
    mHeld = true;
    const Purpose purpose{
        .locks = true, .lockOnly = true, .lockAgain = again, .inTransaction = true};
    for (const std::string& batch : mLockers) {
        RunPlan(mServer.Dialect().PlanBatch(batch, purpose, mServer), purpose);
    }
}

Result Session::RunLocked(std::string_view batch, Locker& locker) {
    mAnnounced.End();
    if (!IsHeld()) Start();
    mHeld = true;
    try {
        const Purpose purpose{
            .wantsRows = true, .changeable = true, .locks = true, .inTransaction = true};
        Result result = RunPlan(mServer.Dialect().PlanBatch(batch, purpose, mServer), purpose);
        locker = mLockers.emplace(mLockers.end(), batch);
        return result;
    } catch (...) {
        if (mLockers.empty()) {
            mHeld = false;
            if (mServer.InTransaction()) mServer.RollBack();
        }
        throw;
    }
}

void Session::RemoveLocker(Locker locker) noexcept {
    mLockers.erase(locker);
    if (!mLockers.empty() || !mHeld) return;
    mHeld = false;
    if (mServer.InTransaction()) mServer.RollBack();
}

void Session::MakeDurable() {
    if (!IsHeld()) return;
    mHeld = false;
    mServer.Commit();
    TryRelock();
}

void Session::DropChange() noexcept {
    if (!mHeld) return;
    mHeld = false;
    if (mServer.InTransaction()) mServer.RollBack();
    TryRelock();
}

// Without waiting: the change is done, and whoever waits for the lock has a right to it.
void Session::TryRelock() noexcept {
    if (mLockers.empty() || mExplicit || !mServer.IsConnected()) return;
    try {
        Lock(true);
    } catch (...) {
        mHeld = false;
        if (mServer.InTransaction()) mServer.RollBack();
    }
}

void Session::Change(RowChange change, long lockedIn) {
    RequireIntact();
    mAnnounced.End();
    const bool own = !mExplicit && mLockers.empty();  // a transaction for this change alone
    if (own) Start();
    if (!mExplicit && !own && !IsHeld()) Lock(false);
    change.locked = lockedIn == mTransaction;
    try {
        const RunStep step = mServer.Dialect().PlanChange(change, mServer);
        const long changed = mServer.RunOne(step, false).changedRows;
        if (changed == 0) {
            throw DatabaseError(
                "Row cannot be located for updating. Some values may have been changed since it "
                "was last read.");
        }
        if (changed > 1) {
            mServer.RollBack();
            throw DatabaseError(
                "Key column information is insufficient or incorrect. Too many rows were affected "
                "by update.");
        }
        if (own) mServer.Commit();
    } catch (...) {
        if (own && mServer.InTransaction()) mServer.RollBack();
        if (!mExplicit && !own) DropChange();
        throw;
    }
    MakeDurable();
}

}  // namespace kelvane::odbc
