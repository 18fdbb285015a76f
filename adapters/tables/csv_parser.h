// Rows of a text whose fields a separator parts. A field in double quotes may hold the separator,
// line breaks and, doubled, the quote itself. A quote that does not end, or ends within a field, is
// refused: what follows it would be another table than the one that was written.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/table.h"

namespace kelvane::tables {

class CsvParser {
public:
    // Gets each record, one of nothing but blank fields too, with the number of its fields; false
    // ends the reading.
    using Taker = std::function<bool(const platform::TableRow& row, int fields)>;

    CsvParser(char separator, Taker take) : mSeparator(separator), mTake(std::move(take)) {}

    // The next piece of the text (UTF-8). False when the taker ended it. Throws Refusal.
    bool Feed(std::string_view text);
    // The text is at its end.
    void Finish();

private:
    enum class State { FieldBegin, Plain, Quoted, QuoteEnd };

    bool Step(char c);
    void EndField();
    bool EndRecord();
    void Append(std::string_view text);
    [[noreturn]] static void Refuse(int line, const char* reason);

    char mSeparator;
    Taker mTake;
    State mState = State::FieldBegin;
    char mLast = '\0';
    int mLine = 1;
    int mQuoteLine = 1;
    int mFields = 0;
    std::size_t mRowBytes = 0;
    std::string mField;
    platform::TableRow mRow{1, 1, false, {}};
};

// What parts the fields of the text that begins with `begin`: a comma, a semicolon or a tab,
// whichever makes the most of its first rows alike.
char FindSeparator(std::string_view begin);

}  // namespace kelvane::tables
