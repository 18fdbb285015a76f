// Statements that a test, or a host that a test plays, has at run time. The program's own never
// are: a statement of the program has its fixed pieces in the source.
#pragma once

#include <memory>
#include <string>

#include "platform/database.h"

namespace kelvane::support {

// Reaches what stands behind a statement's check.
class TextAccess : private platform::Connection {
public:
    static void Run(platform::Connection& connection, const std::string& statement) {
        ForwardExecute(connection, statement);
    }
    static std::unique_ptr<platform::RecordSet> Query(platform::Connection& connection,
                                                      const std::string& statement,
                                                      const platform::RecordSetOptions& options) {
        return ForwardOpenRecordSet(connection, statement, options);
    }
};

inline void RunText(platform::Connection& connection, const std::string& statement) {
    TextAccess::Run(connection, statement);
}

inline std::unique_ptr<platform::RecordSet> QueryText(platform::Connection& connection,
                                                      const std::string& statement,
                                                      const platform::RecordSetOptions& options = {
                                                          .lock = platform::LockType::ReadOnly}) {
    return TextAccess::Query(connection, statement, options);
}

}  // namespace kelvane::support
