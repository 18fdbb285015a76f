#include "entries/unreadable_rows.h"

#include "entries/failure_reason.h"

namespace kelvane::entries {

namespace {

using platform::RecordSet;
using platform::Value;

bool IsReadable(const RecordSet& row, std::initializer_list<const char*> amounts,
                std::initializer_list<const char*> dates) {
    return CanBeRead([&] {
        for (const char* name : amounts) static_cast<void>(row.Field(name).ToMoney());
        for (const char* name : dates) {
            const Value date = row.Field(name);
            if (!date.IsNull()) static_cast<void>(date.ToDateTime());
        }
    });
}

std::string IdentityOf(const RecordSet& row) {
    std::string identity = "?";
    CanBeRead([&] { identity = row.Field("iEleVid").ToText(); });
    return identity;
}

}  // namespace

UnreadableRows FindUnreadableRows(RecordSet& rows, std::initializer_list<const char*> amounts,
                                  std::initializer_list<const char*> dates) {
    UnreadableRows found;
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        if (IsReadable(rows, amounts, dates)) continue;
        if (found.count++ == 0) found.firstIdentity = IdentityOf(rows);
    }
    return found;
}

void TellUnreadableRows(RecordSet& rows, std::initializer_list<const char*> amounts,
                        std::initializer_list<const char*> dates,
                        std::string (*tell)(const UnreadableRows& found)) {
    const auto failed = std::current_exception();
    const UnreadableRows found = FindUnreadableRows(rows, amounts, dates);
    if (found.count == 0) std::rethrow_exception(failed);
    throw ToldFailure(tell(found));
}

}  // namespace kelvane::entries
