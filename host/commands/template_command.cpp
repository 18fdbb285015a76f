// kelvane template

#include <iostream>

#include "adapters/output/formats/table_file.h"
#include "entries/bulk/table_shape.h"
#include "host/account/session.h"
#include "host/bulk/bulk_sheets.h"
#include "host/commands/commands.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

using platform::ColumnUse;
using platform::TableFile;
using platform::TableFileSheet;

// What the table is to come to; blank, nothing is compared.
TableFileSheet TotalSheet() {
    TableFileSheet sheet;
    sheet.name = "合计";
    sheet.columns = {{.title = "行数", .use = ColumnUse::Number, .width = 16, .choices = {}},
                     {.title = "未结转期初", .use = ColumnUse::Amount, .width = 16, .choices = {}}};
    return sheet;
}

// A text has room for the entries alone, whose lines then come in a text of their own.
TableFile Template(output::TableFormat format) {
    const entries::AccountTitles titles = entries::TitlesOfAccount();
    if (format == output::TableFormat::Text) {
        return {{EntrySheet(titles, {}, entries::kRowNumberColumn)}, {}};
    }
    const entries::AccountChoices choices = entries::ChoicesOfAccount();
    return {
        {EntrySheet(titles, choices, entries::kRowNumberColumn), LineSheet(choices), TotalSheet()},
        {}};
}

}  // namespace

int RunTemplate(const TemplateArguments& arguments) {
    const AccountPlace account = arguments.account.ForReading();
    try {
        AbsentWindows windows;
        Session session(account, windows, nullptr);
        session.LogIn(arguments.login, {});
        // Whatever the extension is, writing says whether it is one.
        const auto format = output::TableFormatOf(arguments.file);
        output::WriteTableFile(arguments.file,
                               Template(format.value_or(output::TableFormat::Text)));
    } catch (const std::exception& failed) {
        return Fail(account.AboutAccount(failed.what()));
    }
    std::cout << Told("%1 is written.", {arguments.file}) << '\n';
    return 0;
}

}  // namespace kelvane::host
