#include "host/command_line.h"

#include <CLI/CLI.hpp>

#include "host/commands.h"
#include "host/item_class.h"

namespace kelvane::host {

namespace {

constexpr int kWrongUsage = 2;
constexpr std::int64_t kMostEntries = 10000000;

constexpr const char* kAccountHelp = "The account's file";

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
        std::string account;
        NewAccount content;
    };
    auto arguments = std::make_shared<Arguments>();
    NewAccount& content = arguments->content;
    auto* init = program.add_subcommand("init", "Create an account");
    init->add_option("ACCOUNT", arguments->account, kAccountHelp)->required();
    init->add_flag("--sample", content.sample, "With a sample construction company");
    init->add_option("--keywords", content.keyFields,
                     "Keyword fields of the project item class: 0, 1 or 2")
        ->check(CLI::Range(0, kMostKeyFields))
        ->capture_default_str();
    auto* entries =
        init->add_option("--entries", content.entries, "Opening entries of the sample company")
            ->check(CLI::Range(std::int64_t{0}, kMostEntries))
            ->capture_default_str();
    auto* seed =
        init->add_option("--seed", content.seed, "What the sample company's figures grow from")
            ->check(CLI::NonNegativeNumber)
            ->capture_default_str();
    init->add_flag("--force", content.replaceExisting, "Replace an existing file");
    init->callback([arguments, entries, seed, &status] {
        NewAccount& wanted = arguments->content;
        wanted.sample = wanted.sample || entries->count() != 0;
        if (seed->count() != 0 && !wanted.sample) {
            throw CLI::RequiresError("--seed", "--sample or --entries");
        }
        status = RunInit(arguments->account, wanted);
    });
}

void AddOpen(CLI::App& program, int& status) {
    auto arguments = std::make_shared<OpenArguments>();
    auto* open = program.add_subcommand("open", "Log in and show the entry list");
    open->add_option("ACCOUNT", arguments->account, kAccountHelp)->required();
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
    open->callback([arguments, &status] { status = RunOpen(*arguments); });
}

void AddDrive(CLI::App& program, int& status) {
    auto arguments = std::make_shared<DriveArguments>();
    auto* drive = program.add_subcommand(
        "drive", "Act as the script on standard input says; write what happens to standard output");
    drive->add_option("ACCOUNT", arguments->account, kAccountHelp)->required();
    auto* window = drive->add_flag("--window", arguments->window, "On real windows");
    drive
        ->add_option("--screenshot", arguments->screenshot,
                     "At the script's end, save what the window shows to this PNG file")
        ->needs(window);
    drive->callback([arguments, &status] { status = RunDrive(*arguments); });
}

void AddExport(CLI::App& program, int& status) {
    auto arguments = std::make_shared<ExportArguments>();
    auto* command = program.add_subcommand("export", "Write the entry list to a file");
    command->add_option("ACCOUNT", arguments->account, kAccountHelp)->required();
    command
        ->add_option("--to", arguments->file,
                     "The file; its ending says what it becomes: .xlsx, .csv, .pdf or .xml. An "
                     "existing one is replaced")
        ->required();
    command->add_option("--details", arguments->details,
                        "Instead of the list, the detail lines of the entry with this identity");
    command->add_option("--user", arguments->login.user,
                        "Operator; the account's usual one if not given");
    command->callback([arguments, &status] { status = RunExport(*arguments); });
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    CLI::App program("Opening balances of projects", "kelvane");
    program.set_version_flag("--version", "kelvane " KELVANE_VERSION);
    program.require_subcommand(1);
    int status = 0;
    AddInit(program, status);
    AddOpen(program, status);
    AddDrive(program, status);
    AddExport(program, status);
    try {
        program.parse(argc, argv);
        return status;
    } catch (const CLI::ParseError& stopped) {
        return program.exit(stopped) == 0 ? 0 : kWrongUsage;
    } catch (const std::exception& failed) {
        return Fail(failed.what());
    }
}

}  // namespace kelvane::host
