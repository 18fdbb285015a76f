// kelvane init

#include <iostream>

#include "host/commands/commands.h"
#include "host/creation/server_account.h"
#include "platform/native_path.h"

namespace kelvane::host {

int RunInit(const AccountPlace& account, const NewAccount& content) {
    try {
        if (account.IsOnServer()) {
            CreateAccountDatabase(account, content);
        } else {
            CreateAccountFile(platform::PathOf(account.Name()), content);
        }
    } catch (const CreationError& error) {
        return Fail(error.what());
    }
    std::cout << account.Name() << ": ";
    if (content.sample) {
        std::cout << "sample account with " << content.entries << " entries\n";
    } else {
        std::cout << "empty account\n";
    }
    return 0;
}

int Fail(const std::string& text) {
    std::cerr << "kelvane: " << text << '\n';
    return 1;
}

}  // namespace kelvane::host
