#include "adapters/journal/batch_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <nlohmann/json.hpp>

#include "adapters/journal/batch_text.h"
#include "adapters/journal/failures.h"

namespace kelvane::journal {

namespace {

using platform::Batch;
using platform::BatchOutcome;

// The lines of a file, one at a time.
class LineSource {
public:
    explicit LineSource(const std::filesystem::path& path) {
        std::error_code unknown;
        if (!std::filesystem::is_regular_file(path, unknown)) throw Fault{"不是普通文件"};
        errno = 0;
        mFile.open(path, std::ios::binary);
        if (!mFile) throw Fault{ReasonOf({errno, std::generic_category()})};
    }

    // Takes the next line into `line`, without its line break. False at the end: then `line` is
    // what stands behind the last line break. Throws Fault.
    bool Next(std::string& line) {
        line.clear();
        while (line.size() <= kMaxLineLength && (!mLeft.empty() || Read())) {
            const std::size_t length = mLeft.find('\n');
            line += mLeft.substr(0, length);
            const bool whole = length != std::string_view::npos;
            mLeft.remove_prefix(whole ? length + 1 : mLeft.size());
            if (whole) return true;
        }
        return false;
    }

private:
    bool Read() {
        mFile.read(mBuffer.data(), static_cast<std::streamsize>(mBuffer.size()));
        if (mFile.bad()) throw Fault{ReasonOf(std::make_error_code(std::errc::io_error))};
        mLeft = {mBuffer.data(), static_cast<std::size_t>(mFile.gcount())};
        return !mLeft.empty();
    }

    std::ifstream mFile;
    std::array<char, 1U << 16U> mBuffer{};
    std::string_view mLeft;
};

// Makes the batch of its lines.
class Reading {
public:
    Reading(int number, bool withChanges)
        : mFile{.batch = {}, .end = 0, .chain = LineChain(number)}, mWithChanges(withChanges) {
        mFile.batch.number = number;
    }

    void Read(LineSource& lines) {
        std::string line;
        while (lines.Next(line)) {
            Take(line);
            mFile.end += line.size() + 1;
        }
        if (line.size() > kMaxLineLength) mFile.chain.Fail("太长");
        if (!mWhole) {
            End(line);
        } else if (!line.empty() && !MayBecomeOutcome(line)) {
            mFile.chain.Fail("已损坏（没有写完）");
        }
    }

    BatchFile& File() { return mFile; }

private:
    Batch& Known() { return mFile.batch; }

    void Take(std::string_view text) {
        LineChain& chain = mFile.chain;
        if (MayNotGoOn()) chain.Fail("在结果之后，不该有");
        // Said of this line, while the chain is at the next one.
        const LineChain before = chain;
        const std::string line = chain.Open(text);
        try {
            TakeContent(line, before);
        } catch (const nlohmann::json::exception& strange) {
            before.Fail("的内容看不懂");
        }
    }

    void TakeContent(const std::string& text, const LineChain& place) {
        const bool mayBeChange = !mWhole && place.NextLine() > 1;
        // A list needs to know of a change that there is one; reading all of them takes long.
        if (mayBeChange && !mWithChanges && IsChange(text, place.Start())) {
            ++mChanges;
            return;
        }
        const Json line = LineChain::Parsed(text);
        if (place.NextLine() == 1) {
            Known().intent = HeadOf(line);
        } else if (mWhole) {
            Known().outcome = OutcomeOf(line);
        } else if (IsChange(line)) {
            TakeChange(ChangeOf(line));
        } else {
            TakeCounts(CountsOf(line), place);
        }
    }

    void TakeChange(platform::BatchChange&& change) {
        ++mChanges;
        mCounted.Add(change);
        if (mWithChanges) Known().intent.changes.push_back(std::move(change));
    }

    void TakeCounts(const platform::BatchCounts& counts, const LineChain& place) {
        if (counts.All() != mChanges || (mWithChanges && counts != mCounted)) {
            place.Fail("与改动的数目不符");
        }
        Known().counts = counts;
        mWhole = true;
    }

    bool MayNotGoOn() const {
        const auto& outcome = mFile.batch.outcome;
        return outcome && *outcome != BatchOutcome::InDoubt;
    }

    // The intent is not whole. Cut off, it was being written when its program ended; anything
    // behind the end of a line is something else.
    void End(std::string_view rest) {
        for (std::size_t length = 1; length < rest.size(); ++length) {
            if (LineChain::EndsLine(rest.substr(0, length))) mFile.chain.Fail("已损坏");
        }
        Known().neverBegun = true;
        throw Fault{"没有写完，断在第 " + std::to_string(mFile.chain.NextLine()) + " 行"};
    }

    bool MayBecomeOutcome(std::string_view rest) const {
        if (MayNotGoOn()) return false;
        return std::ranges::any_of(
            std::array{BatchOutcome::Written, BatchOutcome::NotWritten, BatchOutcome::InDoubt},
            [&](BatchOutcome outcome) {
                return LineChain(mFile.chain).Seal(OutcomeLine(outcome)).starts_with(rest);
            });
    }

    BatchFile mFile;
    bool mWithChanges;
    bool mWhole = false;
    std::size_t mChanges = 0;
    platform::BatchCounts mCounted;
};

}  // namespace

BatchFile ReadBatchFile(const std::filesystem::path& path, int number, bool withChanges) {
    Reading reading(number, withChanges);
    try {
        LineSource lines(path);
        reading.Read(lines);
    } catch (const Fault& fault) {
        reading.File().batch.problem = fault.text;
    }
    return std::move(reading.File());
}

}  // namespace kelvane::journal
