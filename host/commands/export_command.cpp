// kelvane export

#include <iostream>
#include <optional>

#include "adapters/output/files/named_files.h"
#include "host/account/session.h"
#include "host/commands/commands.h"
#include "host/commands/export_windows.h"
#include "host/surroundings/progress_line.h"
#include "host/surroundings/terminal.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

// How far writing is, on the terminal.
class LineProgress : public platform::Progress {
public:
    explicit LineProgress(ProgressLine& line) : mLine(line) {}

    bool Show(std::size_t done, std::size_t total) override {
        mLine.Count(done, total);
        return true;
    }

private:
    ProgressLine& mLine;
};

// The file is named in advance.
class ExportSurroundings : public output::NamedFiles {
public:
    // `line`: null when nobody sees it.
    ExportSurroundings(const std::string& path, ProgressLine* line)
        : NamedFiles([this, path](const platform::FileQuestion& /*question*/) {
              mAsked = true;
              if (mLine != nullptr) mLine->Begin(Translated("Writing the file"));
              return path;
          }),
          mLine(line) {}

    std::unique_ptr<platform::Progress> StartProgress(const std::string& /*title*/) override {
        if (mLine == nullptr) return nullptr;
        return std::make_unique<LineProgress>(*mLine);
    }
    void Failed(std::string_view reason) override { mReason = reason; }

    bool IsWritten() const { return mAsked && mReason.empty(); }
    const std::string& Reason() const { return mReason; }

private:
    ProgressLine* mLine;
    bool mAsked = false;
    std::string mReason;
};

}  // namespace

int RunExport(const ExportArguments& arguments) {
    std::optional<ProgressLine> line;
    std::optional<ProgressTicker> ticker;
    if (ErrorsAreSeen()) {
        line.emplace(std::cerr).Begin(Translated("Reading the account"));
        ticker.emplace(*line);
    }
    ExportSurroundings surroundings(arguments.file, line ? &*line : nullptr);
    std::string failure;
    ExportWindows windows({
        .details = arguments.details,
        .message =
            [&](const std::string& text) {
                if (line) line->Clear();
                (surroundings.IsWritten() ? std::cout : std::cerr) << text << '\n';
            },
        .failed = [&](const std::string& reason) { failure = reason; },
    });
    const AccountPlace account = arguments.account.ForReading();
    try {
        Session session(account, windows, nullptr, &surroundings);
        session.LogIn(arguments.login, {});
        session.Show();
    } catch (const std::exception& failed) {
        failure = account.AboutAccount(failed.what());
    }
    ticker.reset();
    line.reset();
    if (!failure.empty()) return Fail(failure);
    if (!surroundings.Reason().empty()) return Fail(surroundings.Reason());
    return surroundings.IsWritten() ? 0 : 1;
}

}  // namespace kelvane::host
