#include "adapters/tables/csv_parser.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"
#include "platform/formula_guard.h"

namespace kelvane::tables {

using platform::CellKind;

bool CsvParser::Feed(std::string_view text) {
    while (!text.empty()) {
        // Most characters mean nothing but themselves.
        if (mState == State::Plain || mState == State::Quoted) {
            const std::array<char, 3> plainEnds{mSeparator, '\r', '\n'};
            const std::string_view ends = mState == State::Plain
                                              ? std::string_view(plainEnds.data(), plainEnds.size())
                                              : std::string_view("\"\r\n");
            const std::size_t run = std::min(text.find_first_of(ends), text.size());
            if (run > 0) {
                Append(text.substr(0, run));
                mLast = text[run - 1];
                text.remove_prefix(run);
                continue;
            }
        }
        const char c = text.front();
        text.remove_prefix(1);
        const bool goesOn = Step(c);
        mLast = c;
        if (!goesOn) return false;
    }
    return true;
}

bool CsvParser::Step(char c) {
    if (mState == State::Quoted) {
        if (c == '"') {
            mState = State::QuoteEnd;
        } else {
            Append({&c, 1});
        }
        return true;
    }
    if (mState == State::QuoteEnd && c == '"') {
        mState = State::Quoted;
        Append({&c, 1});
        return true;
    }
    if (c == mSeparator) {
        EndField();
        return true;
    }
    if (c == '\n' && mLast == '\r') return true;
    if (c == '\r' || c == '\n') {
        ++mLine;
        return EndRecord();
    }
    if (mState == State::QuoteEnd) Refuse(mLine, "引号后面还有文字");
    if (mState == State::FieldBegin && c == '"') {
        mState = State::Quoted;
        mQuoteLine = mLine;
        return true;
    }
    mState = State::Plain;
    Append({&c, 1});
    return true;
}

void CsvParser::Finish() {
    if (mState == State::Quoted) Refuse(mQuoteLine, "的引号没有结束");
    if (mState != State::FieldBegin || mFields > 0) EndRecord();
}

void CsvParser::EndField() {
    ++mFields;
    if (mFields > kMaxColumn) Refuse(mRow.number, "列太多");
    if (platform::IsGuarded(mField)) mField.erase(0, 1);
    if (!mField.empty()) mRow.cells.push_back({mFields, CellKind::Text, mField, {}});
    mField.clear();
    mState = State::FieldBegin;
}

bool CsvParser::EndRecord() {
    EndField();
    const bool goesOn = mTake(mRow, mFields);
    mRow.number = mLine;
    ++mRow.position;
    mRow.cells.clear();
    mFields = 0;
    mRowBytes = 0;
    return goesOn;
}

void CsvParser::Append(std::string_view text) {
    mField += text;
    mRowBytes += text.size();
    if (mField.size() > kMaxCellBytes || mRowBytes > kMaxRowBytes) {
        Refuse(mState == State::Quoted ? mQuoteLine : mLine, "文字太长");
    }
    if (mState != State::Quoted) return;
    char last = mLast;
    for (const char c : text) {
        if (c == '\r' || (c == '\n' && last != '\r')) ++mLine;
        last = c;
    }
}

void CsvParser::Refuse(int line, const char* reason) {
    throw Refusal("第 " + std::to_string(line) + " 行" + reason);
}

char FindSeparator(std::string_view begin) {
    constexpr std::array kSeparators{',', ';', '\t'};
    constexpr int kLooked = 20;
    char best = kSeparators.front();
    // Rows that are alike say more than one that has many separators.
    std::pair<bool, int> most{false, 0};
    for (const char separator : kSeparators) {
        // How many rows have so many fields.
        std::map<int, int> rows;
        int looked = 0;
        CsvParser parser(separator, [&](const platform::TableRow& /*row*/, int fields) {
            ++rows[fields];
            return ++looked < kLooked;
        });
        try {
            parser.Feed(begin);
            // The last row may be cut off, and is all there is.
            if (looked == 0) parser.Feed("\n");
        } catch (const Refusal&) {
            continue;
        }
        for (const auto& [fields, count] : rows) {
            const std::pair<bool, int> parted{fields > 1 && count > 1, count * (fields - 1)};
            if (parted <= most) continue;
            most = parted;
            best = separator;
        }
    }
    return best;
}

}  // namespace kelvane::tables
