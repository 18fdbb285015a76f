#include "host/commands/account_argument.h"

#include <algorithm>

#include "host/commands/argument_values.h"
#include "host/commands/help_text.h"
#include "host/surroundings/batch_folder.h"
#include "host/surroundings/password.h"
#include "host/surroundings/translation.h"
#include "platform/connection_string.h"
#include "platform/native_path.h"

namespace kelvane::host {

namespace {

constexpr int kMaxTimeout = 3600;
constexpr const char* kDatabase = "--database";

std::string RefusalOfFile(const std::string& text) {
    if (!platform::HoldsPassword(text)) return {};
    return Translated("a database is given with --database");
}

}  // namespace

AccountPlace AccountArgument::Place() const {
    return database.empty() ? AccountPlace::File(file)
                            : AccountPlace::Database(database, timeouts, PasswordFor(database));
}

void AddAccount(CLI::App& command, AccountArgument& account) {
    constexpr const char* kGroup = ToTranslate("Account");
    auto* place = command.add_option_group(kGroup);
    place->set_help_flag();
    place->add_option("ACCOUNT", account.file, Translated("The account's file"))
        ->check(RefusalOfFile, "", "");
    auto* database =
        place
            ->add_option(kDatabase, account.database,
                         Translated("Instead of a file, the database on a server: an ODBC "
                                    "connection string. A password that it lacks is "
                                    "KELVANE_DATABASE_PASSWORD or asked for"))
            ->type_name("CONNECTION");
    place->require_option(1);
    const auto addTimeout = [&](const char* name, int& seconds, const char* description) {
        command.add_option(name, seconds, Translated(description))
            ->needs(database)
            ->transform(NumberBetween(1, kMaxTimeout))
            ->type_name("SECONDS")
            ->group(kGroup)
            ->capture_default_str();
    };
    addTimeout("--connect-timeout", account.timeouts.connect,
               ToTranslate("How long to wait for the server of --database"));
    addTimeout("--query-timeout", account.timeouts.query,
               ToTranslate("How long to wait for its answer to a statement"));
    addTimeout("--lock-timeout", account.timeouts.lock,
               ToTranslate("How long to wait there for what another operator holds"));
}

CLI::Option* AddBehindAccount(CLI::App& command, const std::string& name, std::string& value,
                              const char* description) {
    const CLI::App* account = GroupsOf(command).front();
    // An argument that is refused goes to the account.
    command.validate_positionals();
    return command.add_option(name, value, description)
        ->check(
            [account](const std::string& /*text*/) {
                return account->count_all() == 0 ? Translated("the account comes first")
                                                 : std::string();
            },
            "", "")
        ->required();
}

void PutDatabaseFirst(std::vector<std::string>& arguments) {
    if (arguments.empty()) return;
    const auto end = std::ranges::find(arguments, "--");
    const auto option = std::find_if(arguments.begin(), end, [](const std::string& each) {
        return each == kDatabase || each.starts_with(std::string(kDatabase) + '=');
    });
    if (option == end) return;
    const auto behind = option + (*option == kDatabase && option + 1 != arguments.end() ? 2 : 1);
    std::rotate(arguments.begin() + 1, option, behind);
}

void AddJournal(CLI::App& command, std::string& folder) {
    command
        .add_option("--journal", folder,
                    Translated("The folder of the account's batches, instead of ACCOUNT.batches or "
                               "one among your files"))
        ->type_name("FOLDER");
}

std::filesystem::path BatchFolderOf(const AccountArgument& account, const std::string& folder) {
    if (!folder.empty()) return platform::PathOf(folder);
    return account.database.empty() ? BatchFolderOfFile(account.file)
                                    : BatchFolderOfServer(account.database);
}

}  // namespace kelvane::host
