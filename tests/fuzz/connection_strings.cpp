// Any text as a connection string, and any password in one: what is hidden never shows it.
#include "platform/connection_string.h"

#include "tests/fuzz/fuzz.h"

using namespace kelvane;
using fuzz::Require;

namespace {

// Stands in the middle of every password that is tried.
constexpr std::string_view kMark = "Zq7xXw";

bool Shows(const std::string& text) {
    return text.find(kMark) != std::string::npos;
}

bool IsPassword(const platform::ConnectionPart& part) {
    return platform::FindValue(std::string(part.whole) + ';', platform::kPasswordNames).has_value();
}

void TryAnyText(const std::string& text) {
    const std::string hidden = platform::WithoutPasswords(text);
    Require(platform::WithoutPasswords(hidden) == hidden, "what is hidden stays as it is", hidden);
    for (const platform::ConnectionPart& part : platform::ReadConnectionString(text)) {
        if (IsPassword(part)) Require(platform::HoldsPassword(text), "a password is seen", text);
    }
    platform::ReadConnectionString(text, platform::ValueMarks::Quotes);
    platform::SecretsOf(text);
}

// A password that a program of this one's writes into a string that somebody else wrote.
void TryWritten(const std::string& text, const std::string& password) {
    const std::string written = platform::WithValue(text, platform::kPasswordNames, password);
    const auto read = platform::FindValue(written, platform::kPasswordNames);
    // In marks that the text before never closes nothing is a part of its own.
    const auto behind = platform::ReadConnectionString(platform::WithEnd(text, "A=b"));
    const bool closed = behind.back().name == "A" && behind.back().value == "b";
    Require(read == password || !closed, "the password is read as it was written", written);
    Require(!Shows(platform::WithoutPasswords(written)), "a written password is hidden", written);

    const std::vector<std::string> secrets = platform::SecretsOf(written, password);
    for (const std::string& told :
         {written, "driver: " + password + " refused", "[" + platform::OdbcValue(password) + "]"}) {
        Require(!Shows(platform::WithoutSecrets(told, secrets)), "a told password is hidden", told);
    }
}

// A password that an operator wrote, in any marks or in none, wherever it ends for him.
void TryTyped(const std::string& before, const std::string& password, int how) {
    std::string value(password);
    if (how == 0) value = platform::MarkedValue(password, platform::ValueMarks::Braces);
    if (how == 1) value = platform::MarkedValue(password, platform::ValueMarks::Quotes);
    // Without marks it ends at the first semicolon or line.
    if (how == 2 && value.find_first_of(";\r\n{\"'") != std::string::npos) return;
    const std::string text = before + "\nServer=s;Password = " + value + ";Database=d";
    Require(!Shows(platform::WithoutPasswords(text)), "a typed password is hidden", text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::Bytes input(bytes, size);
    const int how = input.Number(3);
    std::string before = input.Text();
    const std::string start = input.Text();
    const std::string password = start + std::string(kMark) + input.Rest();
    // The mark is the password's alone, so that finding it means that the password shows.
    if (Shows(before) || password.find('\0') != std::string::npos) return 0;
    TryAnyText(before);
    TryWritten(before, password);
    TryTyped(before, password, how);
    return 0;
}
