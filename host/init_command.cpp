// kelvane init

#include <iostream>

#include "host/commands.h"

namespace kelvane::host {

int RunInit(const std::string& account, const NewAccount& content) {
    try {
        CreateAccountFile(account, content);
    } catch (const CreationError& error) {
        return Fail(error.what());
    }
    std::cout << account << ": ";
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
