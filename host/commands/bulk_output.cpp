#include "host/commands/bulk_output.h"

#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <system_error>

#include "data/login_context.h"
#include "entries/failure_reason.h"
#include "entries/trap_watch.h"
#include "host/commands/commands.h"
#include "host/surroundings/terminal.h"
#include "host/surroundings/translation.h"
#include "platform/native_path.h"
#include "platform/one_line.h"

namespace kelvane::host {

using entries::RowFate;
using platform::OneLine;

BulkTerminal::BulkTerminal(const std::string& work) {
    if (!ErrorsAreSeen()) return;
    mLine.emplace(std::cerr).Begin(work);
    mTicker.emplace(*mLine);
}

void BulkTerminal::Begin(const std::string& work) {
    if (mLine) mLine->Begin(work);
}

bool BulkTerminal::Count(std::size_t done, std::size_t total) {
    if (mLine && total > 0) mLine->Count(done, total);
    return !Interruption::IsAsked();
}

void BulkTerminal::End() {
    mTicker.reset();
    mLine.reset();
}

void LoadContext() {
    const entries::TrapWatch trapped;
    data::LoadPmStartDate();
    data::LoadItemKeyFields();
    trapped.Rethrow();
}

RowCounts CountsOf(const entries::ImportPlan& plan) {
    return {.rows = plan.rows.size(),
            .added = plan.Count(RowFate::New),
            .changed = plan.Count(RowFate::Changed),
            .deleted = plan.Count(RowFate::Deleted),
            .unchanged = plan.Count(RowFate::Unchanged),
            .refused = plan.Count(RowFate::Refused)};
}

int FailFor(const AccountPlace& account, const std::exception& failed) {
    const std::string reason = entries::ReasonOfFailure();
    return Fail(account.AboutAccount(reason.empty() ? failed.what() : reason));
}

void CheckWritten(std::initializer_list<std::string> written,
                  std::initializer_list<std::string> read) {
    for (const std::string& target : written) {
        for (const std::string& source : read) {
            std::error_code unknown;
            const bool isSame = !target.empty() && !source.empty() &&
                                std::filesystem::equivalent(platform::PathOf(target),
                                                            platform::PathOf(source), unknown);
            if (isSame) {
                throw std::runtime_error(Told("%1 is read and cannot be written", {target}));
            }
        }
    }
}

void Tell(const std::string& text) {
    std::cerr << OneLine(text) << '\n';
}

void WriteFinding(const std::string& place, const entries::Finding& finding) {
    std::cout << OneLine(place) << ": " << finding.id << ": " << OneLine(finding.text) << '\n';
}

void WriteCounts(const RowCounts& counts) {
    std::cout << "rows " << counts.rows << ": new " << counts.added << ", changed "
              << counts.changed << ", deleted " << counts.deleted << ", unchanged "
              << counts.unchanged << ", refused " << counts.refused << '\n';
}

}  // namespace kelvane::host
