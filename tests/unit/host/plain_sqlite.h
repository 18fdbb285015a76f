// An account seen by another tool: the SQLite library alone, none of the program's own code.
#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelvane::host_test {

class PlainSqlite {
public:
    explicit PlainSqlite(const std::filesystem::path& path) {
        if (sqlite3_open_v2(path.c_str(), &mDatabase, SQLITE_OPEN_READWRITE, nullptr) !=
            SQLITE_OK) {
            sqlite3_close(mDatabase);
            throw std::runtime_error("cannot open " + path.string());
        }
    }
    ~PlainSqlite() { sqlite3_close(mDatabase); }
    PlainSqlite(const PlainSqlite&) = delete;
    PlainSqlite& operator=(const PlainSqlite&) = delete;

    // The rows of a query, their columns joined by "|"; Null is empty.
    std::vector<std::string> Rows(const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(mDatabase, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
            throw std::runtime_error(std::string(sqlite3_errmsg(mDatabase)) + ": " + sql);
        }
        std::vector<std::string> rows;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            std::string row;
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                if (i != 0) row += '|';
                const auto* text = sqlite3_column_text(statement, i);
                if (text != nullptr) row += reinterpret_cast<const char*>(text);
            }
            rows.push_back(row);
        }
        sqlite3_finalize(statement);
        return rows;
    }

    // The only column of the only row.
    std::string One(const std::string& sql) { return Rows(sql).at(0); }

private:
    sqlite3* mDatabase = nullptr;
};

}  // namespace kelvane::host_test
