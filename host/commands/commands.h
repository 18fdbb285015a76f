// What the program's commands do. Each returns the program's exit status: 0, or 1 with the reason
// on standard error.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "entries/summary/summary_fields.h"
#include "host/account/account_host.h"
#include "host/account/account_place.h"
#include "host/bulk/bulk_source.h"
#include "host/creation/account_creation.h"
#include "platform/date_time.h"
#include "platform/money.h"

namespace kelvane::host {

struct OpenArguments {
    AccountPlace account = AccountPlace::File({});
    LoginRequest login;
    std::optional<platform::DateTime> today;
};

struct DriveArguments {
    AccountPlace account = AccountPlace::File({});
    bool window = false;
    std::string screenshot;  // where to save the last window; empty: nowhere
};

struct ExportArguments {
    AccountPlace account = AccountPlace::File({});
    std::string file;
    std::optional<int> details;  // an entry's identity; without one, the list
    bool editable = false;       // instead of what the window shows, a workbook to be imported
    LoginRequest login;
};

struct TemplateArguments {
    AccountPlace account = AccountPlace::File({});
    std::string file;
    LoginRequest login;
};

struct ImportArguments {
    AccountPlace account = AccountPlace::File({});
    BulkFiles files;
    bool dryRun = false;
    bool again = false;
    bool json = false;
    std::string rejects;  // where the refused rows go; empty: nowhere
    std::string report;   // where the report goes; empty: nowhere
    std::optional<std::int64_t> expectedRows;
    std::optional<platform::Money> expectedSum;
    std::filesystem::path batches;  // the folder of their journal
    LoginRequest login;
};

struct UndoArguments {
    AccountPlace account = AccountPlace::File({});
    int batch = 0;
    bool dryRun = false;
    std::filesystem::path batches;  // the folder of their journal
    LoginRequest login;
};

struct CheckArguments {
    AccountPlace account = AccountPlace::File({});
    std::string file;  // where the findings go besides; empty: nowhere
    bool json = false;
    LoginRequest login;
};

struct BatchesArguments {
    std::string account;  // the account's file; empty: it is on a server
    // Gives the account for asking how a batch ended that was cut short.
    std::function<AccountPlace()> place;
    std::filesystem::path folder;
    bool json = false;
};

struct SummaryArguments {
    AccountPlace account = AccountPlace::File({});
    std::vector<entries::SummaryField> fields;
    bool json = false;
    std::string file;     // where it goes beside; empty: nowhere
    std::string ledger;   // the trial balance that it is tied to; empty: none
    std::string map;      // what its accounts stand for; empty: what is kept beside the account
    std::string signOff;  // where the sheet to be signed goes; empty: nowhere
    std::filesystem::path batches;  // the folder of the journal, where a ledger or sheet is named
    LoginRequest login;
};

int RunInit(const AccountPlace& account, const NewAccount& content);
int RunOpen(const OpenArguments& arguments);
// Reads the script from standard input and writes the transcript to standard output.
int RunDrive(const DriveArguments& arguments);

// Writes the entry list, or an entry's detail lines, to a file by its extension. What the operator
// would be told goes to standard error.
int RunExport(const ExportArguments& arguments);

// The same for a workbook that can be changed and imported again.
int RunEditableExport(const ExportArguments& arguments);

// Writes an empty table to fill in and import, by the file's extension.
int RunTemplate(const TemplateArguments& arguments);

// Checks the rows of a table and puts all of them into the account, or none. Returns 3 when rows
// are refused.
int RunImport(const ImportArguments& arguments);

// Takes a batch back, but for rows that were changed since. Returns 3 when rows are refused.
int RunUndo(const UndoArguments& arguments);

// Lists the batches that are written down in the folder.
int RunBatches(const BatchesArguments& arguments);

// Checks the whole account and changes nothing. Returns 3 when there are findings.
int RunCheck(const CheckArguments& arguments);

// Sums up the entries, and writes the sheet to be signed when one is asked for.
int RunSummary(const SummaryArguments& arguments);

// The same tied to a ledger. Returns 3 when something does not agree.
int RunTieOut(const SummaryArguments& arguments);

// Writes "kelvane: TEXT" to standard error; returns 1.
int Fail(const std::string& text);

}  // namespace kelvane::host
