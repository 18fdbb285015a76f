// The transcript of a script: one line for each thing that happened, written at once, so that a
// program that drives the script through pipes sees it before it sends its next command.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::drive {

class Transcript {
public:
    // `out` must outlive the transcript.
    explicit Transcript(std::ostream& out) : mOut(out) {}

    // Writes `text` as one line; a line break in it is written as \n.
    void Line(std::string_view text) {
        for (std::size_t at = 0; at < text.size(); ++at) {
            const bool pair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
            if (pair) continue;
            if (text[at] == '\n' || text[at] == '\r') {
                mOut << "\\n";
            } else {
                mOut << text[at];
            }
        }
        mOut << '\n' << std::flush;
    }

private:
    std::ostream& mOut;
};

// The texts of a row as the transcript shows them, with `separator` between them.
inline std::string Join(const std::vector<std::string>& texts, char separator) {
    std::string line;
    for (const std::string& text : texts) {
        if (&text != &texts.front()) line += separator;
        line += text;
    }
    return line;
}

}  // namespace kelvane::drive
