// kelvane export

#include <iostream>

#include "adapters/output/files/named_files.h"
#include "host/account/session.h"
#include "host/commands/commands.h"
#include "host/commands/export_windows.h"

namespace kelvane::host {

namespace {

// The file is named in advance.
class ExportSurroundings : public output::NamedFiles {
public:
    explicit ExportSurroundings(std::string path)
        : NamedFiles([this, path](const platform::FileQuestion& /*question*/) {
              mAsked = true;
              return path;
          }) {}

    void Failed(std::string_view reason) override { mReason = reason; }

    bool IsWritten() const { return mAsked && mReason.empty(); }
    const std::string& Reason() const { return mReason; }

private:
    bool mAsked = false;
    std::string mReason;
};

}  // namespace

int RunExport(const ExportArguments& arguments) {
    ExportSurroundings surroundings(arguments.file);
    std::string failure;
    ExportWindows windows({
        .details = arguments.details,
        .message =
            [&](const std::string& text) {
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
        return Fail(account.AboutAccount(failed.what()));
    }
    if (!failure.empty()) return Fail(failure);
    if (!surroundings.Reason().empty()) return Fail(surroundings.Reason());
    return surroundings.IsWritten() ? 0 : 1;
}

}  // namespace kelvane::host
