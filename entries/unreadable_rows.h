// Stored values that are not what their column says, as a damaged or tampered account may have
// them: which rows, so that an operator can have them put right.
#pragma once

#include <exception>
#include <initializer_list>
#include <string>

#include "platform/database.h"

namespace kelvane::entries {

// Whether `read` ends without an error that comes from what is stored. Throws ConnectionLost and
// DatabaseBusy.
template <typename Read>
bool CanBeRead(const Read& read) {
    try {
        read();
        return true;
    } catch (const platform::ConnectionLost&) {
        throw;
    } catch (const platform::DatabaseBusy&) {
        throw;
    } catch (const std::exception&) {
        return false;
    }
}

struct UnreadableRows {
    int count = 0;
    std::string firstIdentity;  // iEleVid of the first of them
};

// Looks at the amounts and dates in the columns `amounts` and `dates`, from the current row to the
// last; the rows have a column iEleVid. Throws ConnectionLost and DatabaseBusy.
UnreadableRows FindUnreadableRows(platform::RecordSet& rows,
                                  std::initializer_list<const char*> amounts,
                                  std::initializer_list<const char*> dates);

// For use in a catch block. Throws ToldFailure with what `tell` says of the rows, of which
// FindUnreadableRows() finds some; the exception that is being handled when it finds none.
[[noreturn]] void TellUnreadableRows(platform::RecordSet& rows,
                                     std::initializer_list<const char*> amounts,
                                     std::initializer_list<const char*> dates,
                                     std::string (*tell)(const UnreadableRows& found));

}  // namespace kelvane::entries
