// kelvane batches

#include <algorithm>
#include <array>
#include <iostream>
#include <nlohmann/json.hpp>

#include "adapters/journal/folder_journal.h"
#include "entries/bulk/batch_run.h"
#include "host/account/session.h"
#include "host/commands/commands.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/translation.h"
#include "platform/native_path.h"
#include "platform/one_line.h"

namespace kelvane::host {

namespace {

using platform::Batch;
using platform::BatchOutcome;
using Json = nlohmann::ordered_json;

struct OutcomeText {
    BatchOutcome outcome;
    const char* text;
};
constexpr std::array kOutcomes{OutcomeText{BatchOutcome::Written, ToTranslate("written")},
                               OutcomeText{BatchOutcome::NotWritten, ToTranslate("not written")},
                               OutcomeText{BatchOutcome::InDoubt, ToTranslate("in doubt")}};

// How it went, in a word.
const char* StateOf(const Batch& batch) {
    if (batch.running) return ToTranslate("running");
    if (batch.neverBegun) return ToTranslate("never begun");
    if (!batch.problem.empty()) return ToTranslate("damaged");
    const auto* const known = std::ranges::find_if(
        kOutcomes, [&](const OutcomeText& each) { return batch.outcome == each.outcome; });
    return known == kOutcomes.end() ? ToTranslate("unfinished") : known->text;
}

std::string SourceOf(const platform::BatchIntent& intent) {
    if (intent.undoes != 0) return Told("batch %1", {std::to_string(intent.undoes)});
    if (intent.linesFile.empty()) return intent.file;
    return intent.file + Translated(", ") + intent.linesFile;
}

std::string LineOf(const Batch& batch) {
    const auto& intent = batch.intent;
    std::string state = Translated(StateOf(batch));
    if (!batch.problem.empty()) state = Told("%1: %2", {state, batch.problem});
    const std::string number = std::to_string(batch.number);
    // Nothing could be read.
    if (intent.kind.empty()) return Told("%1: %2", {number, state});
    constexpr std::size_t kToTheSecond = 19;
    std::string line = number;
    for (const std::string& part :
         {std::string(
              Translated(intent.kind == "undo" ? ToTranslate("undo") : ToTranslate("import"))),
          intent.time.FullText().substr(0, kToTheSecond), intent.user, SourceOf(intent)}) {
        line += ' ' + part;
    }
    if (batch.neverBegun || !batch.problem.empty()) return Told("%1: %2", {line, state});
    return Told("%1: new %2, changed %3, deleted %4: %5",
                {line, std::to_string(batch.counts.created), std::to_string(batch.counts.changed),
                 std::to_string(batch.counts.deleted), state});
}

Json JsonOf(const Batch& batch) {
    const auto& intent = batch.intent;
    return {{"number", batch.number},
            {"kind", intent.kind},
            {"undoes", intent.undoes},
            {"time", intent.kind.empty() ? "" : intent.time.FullText()},
            {"user", intent.user},
            {"file", intent.file},
            {"hash", intent.hash},
            {"linesFile", intent.linesFile},
            {"linesHash", intent.linesHash},
            {"new", batch.counts.created},
            {"changed", batch.counts.changed},
            {"deleted", batch.counts.deleted},
            {"outcome", StateOf(batch)},
            {"problem", batch.problem}};
}

void Print(const std::vector<Batch>& batches, bool json) {
    if (!json) {
        for (const Batch& batch : batches) std::cout << platform::OneLine(LineOf(batch)) << '\n';
        return;
    }
    Json list = Json::array();
    for (const Batch& batch : batches) list.push_back(JsonOf(batch));
    // What is no UTF-8 is told by replacement characters.
    std::cout << Json::object({{"batches", std::move(list)}})
                     .dump(-1, ' ', false, Json::error_handler_t::replace)
              << '\n';
}

// Asks the account how batches ended that were cut short. Where it cannot be asked they stay so.
std::vector<Batch> Decided(platform::BatchJournal& journal, const BatchesArguments& arguments) {
    std::vector<Batch> batches = journal.Batches();
    if (std::ranges::none_of(batches, entries::IsOpen)) return batches;
    try {
        AbsentWindows windows;
        Session session(arguments.place(), windows, nullptr);
        session.LogIn({}, {});
        return entries::DecidedBatches(journal, false);
    } catch (const platform::JournalFailed&) {
        throw;
    } catch (const std::exception& failed) {
        Fail(failed.what());
        return batches;
    }
}

}  // namespace

int RunBatches(const BatchesArguments& arguments) {
    std::error_code unknown;
    if (!arguments.account.empty() && !std::filesystem::exists(arguments.folder, unknown) &&
        !std::filesystem::exists(platform::PathOf(arguments.account), unknown)) {
        return Fail(Told("there is no account file %1", {arguments.account}));
    }
    std::vector<Batch> batches;
    try {
        journal::FolderJournal journal(arguments.folder);
        batches = Decided(journal, arguments);
    } catch (const platform::JournalFailed& failed) {
        return Fail(failed.what());
    }
    Print(batches, arguments.json);
    // Of one that was never begun nothing is missing.
    const auto damaged = std::ranges::count_if(
        batches, [](const Batch& batch) { return !batch.problem.empty() && !batch.neverBegun; });
    if (damaged == 0) return 0;
    return Fail(Told("%1 of %2 batches cannot be read whole",
                     {std::to_string(damaged), std::to_string(batches.size())}));
}

}  // namespace kelvane::host
