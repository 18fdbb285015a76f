#include "adapters/sqlite/failures.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>

#include "adapters/tsql/language/errors.h"

namespace kelvane::sqlite {

namespace {

struct FileProblem {
    int code;
    const char* text;
};

constexpr FileProblem kFileProblems[] = {
    {SQLITE_CORRUPT, "已损坏"},
    {SQLITE_NOTADB, "已损坏或者不是账套"},
    {SQLITE_READONLY, "是只读的，不能写入"},
    {SQLITE_FULL, "所在的磁盘已满"},
    {SQLITE_IOERR, "读写出错"},
    {SQLITE_CANTOPEN, "无法打开"},
    {SQLITE_PERM, "不允许访问"},
    {SQLITE_PROTOCOL, "正被其他程序占用"},
    {SQLITE_TOOBIG, "中有超过长度上限的内容"},
    {SQLITE_INTERRUPT, "中的一步操作太久没有完成，已经中止"},
};

// "NOT NULL constraint failed: table.column" names the column last.
std::string ColumnIn(const std::string& text) {
    const std::size_t point = text.rfind('.');
    return point == std::string::npos ? text : text.substr(point + 1);
}

}  // namespace

platform::DatabaseError AccountError(const std::string& path, const std::string& reason) {
    return platform::DatabaseError("账套文件 " + path + ' ' + reason);
}

void Throw(const Failure& failure) {
    const int primary = failure.code & 0xFF;
    if (primary == SQLITE_BUSY || primary == SQLITE_LOCKED) {
        throw platform::DatabaseBusy(
            "账套文件 " + failure.path + " 正被其他操作员使用，请稍后再试（" + failure.text + "）",
            failure.code);
    }
    if (failure.code == SQLITE_CONSTRAINT_NOTNULL || primary == SQLITE_MISMATCH) {
        throw tsql::NullRefused(failure.table, ColumnIn(failure.text));
    }
    if (primary == SQLITE_CONSTRAINT) throw tsql::DuplicateKey(failure.table);
    const auto* problem =
        std::find_if(std::begin(kFileProblems), std::end(kFileProblems),
                     [&](const FileProblem& known) { return known.code == primary; });
    if (problem != std::end(kFileProblems)) {
        throw platform::DatabaseError(
            "账套文件 " + failure.path + ' ' + problem->text + "（" + failure.text + "）",
            failure.code);
    }
    throw platform::DatabaseError(failure.text, failure.code);
}

void ThrowFromCommit(const Failure& failure) {
    // The frames may have reached the disk although making them durable was not confirmed.
    if (failure.code == SQLITE_IOERR_FSYNC || failure.code == SQLITE_IOERR_DIR_FSYNC) {
        throw platform::CommitInDoubt(
            "账套文件 " + failure.path + " 的保存结果无法确认（" + failure.text + "）",
            failure.code);
    }
    Throw(failure);
}

}  // namespace kelvane::sqlite
