// kelvane summary --against, --sign-off

#include "host/commands/commands.h"

namespace kelvane::host {

int RunTieOut(const SummaryArguments& arguments) {
    return Fail(arguments.ledger + arguments.signOff + ": not built yet");
}

}  // namespace kelvane::host
