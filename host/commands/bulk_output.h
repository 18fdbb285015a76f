// What the commands that write many entries at once tell: how far they are, what they found, how
// many rows it concerns.
#pragma once

#include <exception>
#include <initializer_list>
#include <optional>
#include <string>

#include "entries/bulk/import_plan.h"
#include "entries/rules.h"
#include "host/account/account_place.h"
#include "host/bulk/report.h"
#include "host/surroundings/interruption.h"
#include "host/surroundings/progress_line.h"

namespace kelvane::host {

// The exit status when rows were refused.
inline constexpr int kRefused = 3;

// How far the work is, on a terminal that somebody sees; Ctrl+C asks it to end.
class BulkTerminal {
public:
    explicit BulkTerminal(const std::string& work);

    void Begin(const std::string& work);
    // False when the work is to end.
    bool Count(std::size_t done, std::size_t total);
    // Makes room for other words.
    void End();

private:
    Interruption mInterruption;
    std::optional<ProgressLine> mLine;
    std::optional<ProgressTicker> mTicker;
};

// The login context as the windows have it when they open. Throws platform::DatabaseError.
void LoadContext();

RowCounts CountsOf(const entries::ImportPlan& plan);

// The reason of the exception that is being handled, about `account`, as Fail() tells it; returns
// its status. For use in a catch block.
int FailFor(const AccountPlace& account, const std::exception& failed);

// Throws std::runtime_error when a file that is to be written is one of those that are read. Empty
// paths are none, and so is what names no file.
void CheckWritten(std::initializer_list<std::string> written,
                  std::initializer_list<std::string> read);

// A line on standard error; a finding, and the last line, on standard output.
void Tell(const std::string& text);
void WriteFinding(const std::string& place, const entries::Finding& finding);
void WriteCounts(const RowCounts& counts);

}  // namespace kelvane::host
