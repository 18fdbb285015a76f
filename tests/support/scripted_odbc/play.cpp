#include "tests/support/scripted_odbc/play.h"

#include <sstream>
#include <stdexcept>

namespace kelvane::support {

namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

std::optional<std::string> ReadValue(const std::string& text) {
    if (text == "NULL") return std::nullopt;
    const std::size_t star = text.rfind('*');
    if (star == std::string::npos || star + 1 == text.size()) return text;
    std::string result;
    for (int i = std::stoi(text.substr(star + 1)); i > 0; --i) result += text.substr(0, star);
    return result;
}

PlayedError ReadError(const std::string& text) {
    std::istringstream stream(text);
    PlayedError error;
    stream >> error.state >> error.native >> std::ws;
    std::getline(stream, error.text);
    return error;
}

PlayedColumn ReadColumn(const std::string& text) {
    std::istringstream stream(text);
    PlayedColumn column;
    stream >> column.name >> column.type >> column.size >> column.decimals;
    if (column.name == "-") column.name.clear();
    return column;
}

bool ReadResult(const std::string& word, const std::string& rest, PlayedCall& call) {
    if (word == "columns") {
        PlayedResult& result = call.results.emplace_back();
        for (const std::string& part : Split(rest, '|')) result.columns.push_back(ReadColumn(part));
    } else if (word == "row") {
        auto& row = call.results.back().rows.emplace_back();
        for (const std::string& part : Split(rest, '|')) row.push_back(ReadValue(part));
    } else if (word == "count") {
        call.results.emplace_back().count = std::stol(rest);
    } else if (word == "warning") {
        if (call.results.empty()) call.results.emplace_back();
        call.results.back().warning = ReadError(rest);
    } else if (word == "error") {
        call.results.emplace_back().error = ReadError(rest);
    } else if (word == "dies") {
        if (call.results.empty()) call.results.emplace_back();
        call.results.back().dies = true;
    } else {
        return false;
    }
    return true;
}

void ReadLine(const std::string& word, const std::string& rest, Play& play) {
    if (word == "engine") {
        play.engine = rest;
    } else if (word == "pieces") {
        play.inPieces = true;
    } else if (word == "always") {
        play.always.insert(rest);
    } else if (word == "run") {
        play.calls.push_back({word, rest, {}, {}});
    } else if (word == "refuse" || word == "commit" || word == "rollback") {
        play.calls.push_back({word, {}, {}, {}});
        if (!rest.empty()) play.calls.back().error = ReadError(rest);
    } else if (play.calls.empty() || !ReadResult(word, rest, play.calls.back())) {
        throw std::invalid_argument("the play has no such line: " + word);
    }
}

}  // namespace

Play ReadPlay(std::string_view script) {
    Play play;
    for (const std::string& line : Split(std::string(script), '\n')) {
        const std::size_t start = line.find_first_not_of(' ');
        if (start == std::string::npos) continue;
        const std::size_t end = line.find(' ', start);
        const std::string word = line.substr(start, end - start);
        ReadLine(word, end == std::string::npos ? "" : line.substr(end + 1), play);
    }
    return play;
}

}  // namespace kelvane::support
