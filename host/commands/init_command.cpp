// kelvane init

#include <iostream>

#include "host/commands/commands.h"
#include "host/creation/server_account.h"
#include "host/surroundings/adapter_reasons.h"
#include "host/surroundings/translation.h"
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
    std::cout << (content.sample ? Told("%1: sample account with %2 entries",
                                        {account.Name(), std::to_string(content.entries)})
                                 : Told("%1: empty account", {account.Name()}))
              << '\n';
    return 0;
}

int Fail(const std::string& text) {
    std::cerr << "kelvane: " << TranslatedReason(text) << '\n';
    return 1;
}

}  // namespace kelvane::host
