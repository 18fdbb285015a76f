#include "host/commands/command_line.h"

#include <kelvane/version.h>
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <limits>

#include "adapters/output/formats/table_file.h"
#include "adapters/tables/text_decoder.h"
#include "entries/bulk/cell_text.h"
#include "host/account/item_class.h"
#include "host/bulk/check_report.h"
#include "host/bulk/figure_file.h"
#include "host/bulk/report.h"
#include "host/commands/account_argument.h"
#include "host/commands/argument_values.h"
#include "host/commands/commands.h"
#include "host/commands/help_text.h"
#include "host/commands/usage.h"
#include "host/surroundings/password.h"
#include "host/surroundings/translation.h"
#include "platform/connection_string.h"

namespace kelvane::host {

namespace {

constexpr const char* kProgram = "kelvane";
constexpr int kWrongUsage = 2;
constexpr int kMaxYear = 9999;
constexpr std::int64_t kMaxEntries = 10000000;

// Who logs in where, as far as a command lets the operator say it.
void AddLogin(CLI::App& command, LoginRequest& login) {
    command
        .add_option("--user", login.user,
                    Translated("Operator; the account's usual one if not given"))
        ->type_name("NAME");
    command
        .add_option("--year", login.year, Translated("Account year; the usual one if not given"))
        ->transform(NumberBetween(1, kMaxYear))
        ->type_name("YEAR");
}

void AddInit(CLI::App& program, int& status) {
    struct Arguments {
        AccountArgument account;
        NewAccount content;
    };
    auto arguments = std::make_shared<Arguments>();
    NewAccount& content = arguments->content;
    auto* init = program.add_subcommand("init", Translated("Create an account"));
    AddAccount(*init, arguments->account);
    auto* sample = init->add_flag("--sample", content.sample,
                                  Translated("With a sample construction company"));
    init->add_option("--entries", content.entries,
                     Translated("Opening entries of the sample company"))
        ->needs(sample)
        ->transform(NumberBetween(0, kMaxEntries))
        ->type_name("NUMBER")
        ->capture_default_str();
    init->add_option("--seed", content.seed,
                     Translated("What the sample company's figures grow from"))
        ->needs(sample)
        ->transform(NumberBetween(0, std::numeric_limits<std::int64_t>::max()))
        ->type_name("NUMBER")
        ->capture_default_str();
    init->add_option("--keywords", content.keyFields,
                     Translated("Keyword fields of the project item class: 0, 1 or 2"))
        ->transform(NumberBetween(0, kMaxKeyFields))
        ->type_name("NUMBER")
        ->capture_default_str();
    init->add_flag("--force", content.replaceExisting, Translated("Replace an existing account"));
    init->callback(
        [arguments, &status] { status = RunInit(arguments->account.Place(), arguments->content); });
}

void AddOpen(CLI::App& program, int& status) {
    auto account = std::make_shared<AccountArgument>();
    auto arguments = std::make_shared<OpenArguments>();
    auto* open = program.add_subcommand("open", Translated("Log in and show the entry list"));
    AddAccount(*open, *account);
    AddLogin(*open, arguments->login);
    open->add_option_function<std::string>(
            "--date",
            [arguments](const std::string& text) {
                platform::DateTime::Parse(text, arguments->today.emplace());
            },
            Translated("What counts as today, yyyy.mm.dd; the clock's date if not given"))
        ->check(DateText())
        ->type_name("DATE");
    open->callback([account, arguments, &status] {
        arguments->account = account->Place();
        status = RunOpen(*arguments);
    });
}

void AddDrive(CLI::App& program, int& status) {
    auto account = std::make_shared<AccountArgument>();
    auto arguments = std::make_shared<DriveArguments>();
    auto* drive = program.add_subcommand(
        "drive", Translated("Act as the script on standard input says; write what happens to "
                            "standard output"));
    AddAccount(*drive, *account);
    auto* window = drive->add_flag("--window", arguments->window, Translated("On real windows"));
    drive
        ->add_option("--screenshot", arguments->screenshot,
                     Translated("At the script's end, save what the window shows to this PNG file"))
        ->needs(window)
        ->type_name("FILE");
    drive->callback([account, arguments, &status] {
        arguments->account = account->Place();
        status = RunDrive(*arguments);
    });
}

void AddExport(CLI::App& program, int& status) {
    auto account = std::make_shared<AccountArgument>();
    auto arguments = std::make_shared<ExportArguments>();
    auto* command = program.add_subcommand("export", Translated("Write the entry list to a file"));
    AddAccount(*command, *account);
    command
        ->add_option(
            "--to", arguments->file,
            Translated("The file; its extension says what it becomes: .xlsx, .csv, .pdf or "
                       ".xml. An existing one is replaced"))
        ->type_name("FILE")
        ->required();
    auto* details = command->add_option(
        "--details", arguments->details,
        Translated("Instead of the list, the detail lines of the entry with this identity"));
    details->transform(NumberBetween(1, std::numeric_limits<int>::max()))->type_name("NUMBER");
    command
        ->add_flag("--editable", arguments->editable,
                   Translated("Instead of the list, a workbook (.xlsx) of all entries with their "
                              "detail lines, to be changed and imported"))
        ->excludes(details);
    AddLogin(*command, arguments->login);
    command->callback([account, arguments, &status] {
        arguments->account = account->Place();
        status = arguments->editable ? RunEditableExport(*arguments) : RunExport(*arguments);
    });
}

void AddTemplate(CLI::App& program, int& status) {
    auto account = std::make_shared<AccountArgument>();
    auto arguments = std::make_shared<TemplateArguments>();
    auto* command = program.add_subcommand(
        "template", Translated("Write an empty table of entries, to be filled in"));
    AddAccount(*command, *account);
    command
        ->add_option("--to", arguments->file,
                     Translated("The file: a workbook (.xlsx) with lists to choose from, or its "
                                "titles alone (.csv). An existing one is replaced"))
        ->type_name("FILE")
        ->required();
    AddLogin(*command, arguments->login);
    command->callback([account, arguments, &status] {
        arguments->account = account->Place();
        status = RunTemplate(*arguments);
    });
}

// What whoever made the file says of it: a difference stops the import.
void AddTotals(CLI::App& command, ImportArguments& arguments) {
    command
        .add_option("--expect-rows", arguments.expectedRows,
                    Translated("How many rows the file has; another number stops the import"))
        ->transform(NumberBetween(0, kMaxEntries))
        ->type_name("NUMBER");
    command
        .add_option_function<std::string>(
            "--expect-sum",
            [&arguments](const std::string& text) {
                arguments.expectedSum = platform::Money::FromText(*entries::AmountText(text));
            },
            Translated("What its amounts come to; another sum stops the import"))
        ->check(AmountValue())
        ->type_name("AMOUNT");
}

void AddImport(CLI::App& program, int& status) {
    auto account = std::make_shared<AccountArgument>();
    auto arguments = std::make_shared<ImportArguments>();
    auto journal = std::make_shared<std::string>();
    auto* command = program.add_subcommand(
        "import", Translated("Put a table of entries into an account, all of its rows or none"));
    AddAccount(*command, *account);
    AddBehindAccount(*command, "FILE", arguments->files.entries,
                     Translated("The table: a workbook (.xlsx) or a text (.csv)"));
    command
        ->add_option("--lines", arguments->files.lines,
                     Translated("The table of detail lines, when it is a file of its own"))
        ->type_name("FILE");
    command
        ->add_option("--sheet", arguments->files.sheet,
                     Translated("The workbook's sheet of entries; the usual one if not given"))
        ->type_name("NAME");
    command->add_flag("--dry-run", arguments->dryRun,
                      Translated("Check everything and write nothing"));
    command
        ->add_option("--rejects", arguments->rejects,
                     Translated("Write the refused rows with their reasons to this file "
                                "(.xlsx, .csv)"))
        ->check(FileOfKind(
            [](const std::string& path) { return output::TableFormatOf(path).has_value(); }))
        ->type_name("FILE");
    command
        ->add_option("--report", arguments->report,
                     Translated("Write a report to this file (.xlsx, .json)"))
        ->check(FileOfKind(IsReportFile))
        ->type_name("FILE");
    command
        ->add_option_function<std::string>(
            "--hidden",
            [arguments](const std::string& text) {
                arguments->files.hidden =
                    text == "skip" ? entries::HiddenRows::Skip : entries::HiddenRows::Take;
            },
            Translated("What becomes of rows that the table hides: skip or take"))
        ->check(OneOf({"skip", "take"}))
        ->type_name("CHOICE");
    AddTotals(*command, *arguments);
    command->add_flag("--again", arguments->again,
                      Translated("Also when the file was imported before"));
    command
        ->add_option_function<std::string>(
            "--encoding",
            [arguments](const std::string& name) {
                arguments->files.encoding = *tables::FindEncoding(name);
            },
            Translated("A text's encoding: UTF-8 or GB18030; found out if not given"))
        ->check(EncodingName())
        ->type_name("NAME");
    command->add_flag("--json", arguments->json,
                      Translated("Tell what was found as one JSON object"));
    AddJournal(*command, *journal);
    AddLogin(*command, arguments->login);
    command->callback([account, arguments, journal, &status] {
        arguments->account = account->Place();
        arguments->batches = BatchFolderOf(*account, *journal);
        status = RunImport(*arguments);
    });
}

void AddUndo(CLI::App& program, int& status) {
    struct Arguments {
        AccountArgument account;
        UndoArguments undo;
        std::string batch;
        std::string journal;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = program.add_subcommand(
        "undo", Translated("Take a batch back, all of its rows that nobody has changed since"));
    AddAccount(*command, arguments->account);
    AddBehindAccount(*command, "BATCH", arguments->batch,
                     Translated("The batch's number, as \"kelvane batches\" tells it"));
    command->add_flag("--dry-run", arguments->undo.dryRun,
                      Translated("Check everything and write nothing"));
    AddJournal(*command, arguments->journal);
    AddLogin(*command, arguments->undo.login);
    command->callback([arguments, &status] {
        UndoArguments& undo = arguments->undo;
        // As a check of the argument it would make an account of what is no number.
        const auto isNumber = NumberBetween(1, std::numeric_limits<int>::max());
        if (const std::string wrong = isNumber(arguments->batch); !wrong.empty()) {
            throw CLI::ValidationError("BATCH", wrong);
        }
        undo.account = arguments->account.Place();
        undo.batch = std::stoi(arguments->batch);
        undo.batches = BatchFolderOf(arguments->account, arguments->journal);
        status = RunUndo(undo);
    });
}

void AddBatches(CLI::App& program, int& status) {
    struct Arguments {
        AccountArgument account;
        std::string journal;
        bool json = false;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* batches = program.add_subcommand(
        "batches", Translated("List what was imported at one go, and taken back"));
    AddAccount(*batches, arguments->account);
    batches->add_flag("--json", arguments->json, Translated("As one JSON object"));
    AddJournal(*batches, arguments->journal);
    batches->callback([arguments, &status] {
        status = RunBatches({.account = arguments->account.file,
                             .place = [arguments] { return arguments->account.Place(); },
                             .folder = BatchFolderOf(arguments->account, arguments->journal),
                             .json = arguments->json});
    });
}

void AddCheck(CLI::App& program, int& status) {
    auto account = std::make_shared<AccountArgument>();
    auto arguments = std::make_shared<CheckArguments>();
    auto* command = program.add_subcommand(
        "check", Translated("Look for what is wrong in an account, without changing it"));
    AddAccount(*command, *account);
    command
        ->add_option("--to", arguments->file,
                     Translated("Write what was found to this file too (.xlsx)"))
        ->check(FileOfKind(IsCheckFile))
        ->type_name("FILE");
    command->add_flag("--json", arguments->json,
                      Translated("Tell what was found as one JSON object"));
    AddLogin(*command, arguments->login);
    command->callback([account, arguments, &status] {
        arguments->account = account->Place();
        status = RunCheck(*arguments);
    });
}

// What the entries are compared with, and the sheet that says how that went.
void AddTieOut(CLI::App& command, SummaryArguments& arguments) {
    auto* against =
        command
            .add_option("--against", arguments.ledger,
                        Translated("Compare with the ledger's trial balance (.xlsx, .csv)"))
            ->type_name("FILE");
    command
        .add_option("--map", arguments.map,
                    Translated("The table that says which account of the ledger stands for which "
                               "entries; the one beside the account if not given"))
        ->needs(against)
        ->type_name("FILE");
    command
        .add_option(
            "--sign-off", arguments.signOff,
            Translated("Write a sheet to be signed, with what the check found, to this file "
                       "(.pdf)"))
        ->check(FileOfKind(IsPdfFile))
        ->type_name("FILE");
}

void AddSummary(CLI::App& program, int& status) {
    struct Arguments {
        AccountArgument account;
        SummaryArguments summary;
        std::string fields = "item,element";
        std::string journal;
    };
    auto arguments = std::make_shared<Arguments>();
    SummaryArguments& summary = arguments->summary;
    auto* command = program.add_subcommand(
        "summary", Translated("Sum up the entries, and compare them with the ledger"));
    AddAccount(*command, arguments->account);
    command
        ->add_option("--by", arguments->fields,
                     Translated("What they are summed up by: any of item, element, center, keyword "
                                "and month, in any order, separated by commas"))
        ->check(SummaryFieldNames())
        ->type_name("FIELDS")
        ->capture_default_str();
    command
        ->add_option("--to", summary.file,
                     Translated("Write it to this file, too; its extension says what it becomes: "
                                ".xlsx, .csv or .pdf. An existing one is replaced"))
        ->check(FileOfKind(IsFigureFile))
        ->type_name("FILE");
    command->add_flag("--json", summary.json, Translated("As one JSON object"));
    AddTieOut(*command, summary);
    AddJournal(*command, arguments->journal);
    AddLogin(*command, summary.login);
    command->callback([arguments, &status] {
        SummaryArguments& asked = arguments->summary;
        asked.account = arguments->account.Place();
        asked.fields = entries::SummaryFieldsOf(arguments->fields);
        if (!asked.signOff.empty()) {
            asked.batches = BatchFolderOf(arguments->account, arguments->journal);
        }
        status = asked.ledger.empty() ? RunSummary(asked) : RunTieOut(asked);
    });
}

int Refuse(const WrongUsage& wrong) {
    const bool isProgram = wrong.command->get_parent() == nullptr;
    const std::string name = isProgram ? kProgram : kProgram + (' ' + wrong.command->get_name());
    std::cerr << platform::WithoutPasswords("kelvane: " + wrong.reason) << '\n'
              << Told("\"%1\" tells more.", {name + " --help"}) << '\n';
    return kWrongUsage;
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    TakePasswordVariable();
    FollowSystemLanguage();
    CLI::App program(Translated("Opening balances of projects"), kProgram);
    program.formatter(std::make_shared<HelpText>());
    program.set_help_flag("-h,--help", Translated("Tell this and end"));
    program.set_version_flag("--version", "kelvane " KELVANE_VERSION,
                             Translated("Tell the version and end"));
    program.require_subcommand(1);
    int status = 0;
    AddInit(program, status);
    AddOpen(program, status);
    AddDrive(program, status);
    AddExport(program, status);
    AddTemplate(program, status);
    AddImport(program, status);
    AddBatches(program, status);
    AddUndo(program, status);
    AddCheck(program, status);
    AddSummary(program, status);
    try {
        auto arguments = TakeArguments(argc, argv);
        const WrongUsage wrong = WrongNames(program, arguments);
        if (!wrong.reason.empty()) return Refuse(wrong);
        PutDatabaseFirst(arguments);
        std::ranges::reverse(arguments);  // as parse() takes them
        program.parse(arguments);
        return status;
    } catch (const CLI::Success& asked) {
        return program.exit(asked);
    } catch (const CLI::ParseError& stopped) {
        return Refuse(WrongUsageOf(program, stopped));
    } catch (const std::exception& failed) {
        return Fail(failed.what());
    }
}

}  // namespace kelvane::host
