#include "host/commands/command_line.h"

#include <kelvane/version.h>
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <sstream>

#include "host/account/item_class.h"
#include "host/commands/commands.h"
#include "host/surroundings/password.h"
#include "platform/connection_string.h"

namespace kelvane::host {

namespace {

constexpr int kWrongUsage = 2;
constexpr int kMaxTimeout = 3600;
constexpr std::int64_t kMaxEntries = 10000000;

// The account that a command is for, as its arguments name it.
struct AccountArgument {
    std::string file;
    std::string database;
    ServerTimeouts timeouts;

    AccountPlace Place() const {
        return database.empty() ? AccountPlace::File(file)
                                : AccountPlace::Database(database, timeouts, PasswordFor(database));
    }
};

void AddAccount(CLI::App& command, AccountArgument& account) {
    auto* place = command.add_option_group("Account");
    place->add_option("ACCOUNT", account.file, "The account's file")
        ->check(
            [](const std::string& text) {
                return platform::HoldsPassword(text)
                           ? std::string("a database is given with --database")
                           : std::string();
            },
            "", "");
    auto* database = place->add_option(
        "--database", account.database,
        "Instead of a file, the database on a server: an ODBC connection string. A "
        "password that it lacks is KELVANE_DATABASE_PASSWORD or asked for");
    place->require_option(1);
    const auto addTimeout = [&](const char* name, int& seconds, const char* waitedFor) {
        command.add_option(name, seconds, std::string("Seconds to wait for ") + waitedFor)
            ->needs(database)
            ->check(CLI::Range(1, kMaxTimeout))
            ->capture_default_str();
    };
    addTimeout("--connect-timeout", account.timeouts.connect, "the server of --database");
    addTimeout("--query-timeout", account.timeouts.query, "the answer to a statement");
    addTimeout("--lock-timeout", account.timeouts.lock, "what another operator holds");
}

CLI::Validator DateValidator() {
    return {[](const std::string& text) {
                platform::DateTime date;
                return platform::DateTime::Parse(text, date) ? std::string()
                                                             : text + " is no date (yyyy.mm.dd)";
            },
            "DATE"};
}

void AddInit(CLI::App& program, int& status) {
    struct Arguments {
        AccountArgument account;
        NewAccount content;
    };
    auto arguments = std::make_shared<Arguments>();
    NewAccount& content = arguments->content;
    auto* init = program.add_subcommand("init", "Create an account");
    AddAccount(*init, arguments->account);
    init->add_flag("--sample", content.sample, "With a sample construction company");
    init->add_option("--keywords", content.keyFields,
                     "Keyword fields of the project item class: 0, 1 or 2")
        ->check(CLI::Range(0, kMaxKeyFields))
        ->capture_default_str();
    auto* entries =
        init->add_option("--entries", content.entries, "Opening entries of the sample company")
            ->check(CLI::Range(std::int64_t{0}, kMaxEntries))
            ->capture_default_str();
    auto* seed =
        init->add_option("--seed", content.seed, "What the sample company's figures grow from")
            ->check(CLI::NonNegativeNumber)
            ->capture_default_str();
    init->add_flag("--force", content.replaceExisting, "Replace an existing account");
    init->callback([arguments, entries, seed, &status] {
        NewAccount& wanted = arguments->content;
        wanted.sample = wanted.sample || entries->count() != 0;
        if (seed->count() != 0 && !wanted.sample) {
            throw CLI::RequiresError("--seed", "--sample or --entries");
        }
        status = RunInit(arguments->account.Place(), wanted);
    });
}

void AddOpen(CLI::App& program, int& status) {
    auto account = std::make_shared<AccountArgument>();
    auto arguments = std::make_shared<OpenArguments>();
    auto* open = program.add_subcommand("open", "Log in and show the entry list");
    AddAccount(*open, *account);
    open->add_option("--user", arguments->login.user,
                     "Operator; the account's usual one if not given");
    open->add_option("--year", arguments->login.year, "Account year; the usual one if not given");
    open->add_option_function<std::string>(
            "--date",
            [arguments](const std::string& text) {
                platform::DateTime::Parse(text, arguments->today.emplace());
            },
            "What counts as today, yyyy.mm.dd; the clock's date if not given")
        ->check(DateValidator());
    open->callback([account, arguments, &status] {
        arguments->account = account->Place();
        status = RunOpen(*arguments);
    });
}

void AddDrive(CLI::App& program, int& status) {
    auto account = std::make_shared<AccountArgument>();
    auto arguments = std::make_shared<DriveArguments>();
    auto* drive = program.add_subcommand(
        "drive", "Act as the script on standard input says; write what happens to standard output");
    AddAccount(*drive, *account);
    auto* window = drive->add_flag("--window", arguments->window, "On real windows");
    drive
        ->add_option("--screenshot", arguments->screenshot,
                     "At the script's end, save what the window shows to this PNG file")
        ->needs(window);
    drive->callback([account, arguments, &status] {
        arguments->account = account->Place();
        status = RunDrive(*arguments);
    });
}

void AddExport(CLI::App& program, int& status) {
    auto account = std::make_shared<AccountArgument>();
    auto arguments = std::make_shared<ExportArguments>();
    auto* command = program.add_subcommand("export", "Write the entry list to a file");
    AddAccount(*command, *account);
    command
        ->add_option("--to", arguments->file,
                     "The file; its extension says what it becomes: .xlsx, .csv, .pdf or .xml. An "
                     "existing one is replaced")
        ->required();
    command->add_option("--details", arguments->details,
                        "Instead of the list, the detail lines of the entry with this identity");
    command->add_option("--user", arguments->login.user,
                        "Operator; the account's usual one if not given");
    command->callback([account, arguments, &status] {
        arguments->account = account->Place();
        status = RunExport(*arguments);
    });
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    TakePasswordVariable();
    CLI::App program("Opening balances of projects", "kelvane");
    program.set_version_flag("--version", "kelvane " KELVANE_VERSION);
    program.require_subcommand(1);
    int status = 0;
    AddInit(program, status);
    AddOpen(program, status);
    AddDrive(program, status);
    AddExport(program, status);
    try {
        auto arguments = TakeArguments(argc, argv);
        std::ranges::reverse(arguments);  // as parse() takes them
        program.parse(arguments);
        return status;
    } catch (const CLI::ParseError& stopped) {
        std::ostringstream said;
        const int code = program.exit(stopped, std::cout, said);
        std::cerr << platform::WithoutPasswords(said.str());
        return code == 0 ? 0 : kWrongUsage;
    } catch (const std::exception& failed) {
        return Fail(failed.what());
    }
}

}  // namespace kelvane::host
