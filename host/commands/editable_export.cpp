// kelvane export --editable

#include <iostream>

#include "adapters/output/formats/table_file.h"
#include "host/account/session.h"
#include "host/bulk/editable_book.h"
#include "host/commands/commands.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

std::string Joined(const std::vector<std::int32_t>& identities) {
    std::string joined;
    for (const std::int32_t each : identities) {
        if (!joined.empty()) joined += Translated(", ");
        joined += std::to_string(each);
    }
    return joined;
}

}  // namespace

int RunEditableExport(const ExportArguments& arguments) {
    const AccountPlace account = arguments.account.ForReading();
    EditableBook book;
    try {
        AbsentWindows windows;
        Session session(account, windows, nullptr);
        session.LogIn(arguments.login, {});
        book = MakeEditableBook(entries::TitlesOfAccount(), entries::ChoicesOfAccount(),
                                account.ShortName());
        output::WriteTableFile(arguments.file, book.file);
    } catch (const std::exception& failed) {
        return Fail(account.AboutAccount(failed.what()));
    }
    if (!book.leftOut.empty()) {
        std::cerr << Told("Left out, because a table cannot tell their element or keywords: %1",
                          {Joined(book.leftOut)})
                  << '\n';
    }
    std::cout << Told("%1 is written.", {arguments.file}) << '\n';
    return 0;
}

}  // namespace kelvane::host
