// Accounts damaged in many ways: each is opened, or refused and left exactly as it was.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "host/account/account_host.h"
#include "host/account/account_place.h"
#include "host/creation/account_creation.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

namespace fs = std::filesystem;

// Places of the file's header at which a wrong byte changes how the engine takes the whole file:
// page size, how it is written and read, reserved space, the schema's format, encoding, version.
constexpr std::size_t kTellingPlaces[] = {16, 17, 18, 19, 20, 47, 59, 63, 95};
constexpr std::size_t kHeaderSize = 100;

class Damage {
public:
    explicit Damage(std::uint32_t seed) : mRandom(seed) {}

    std::string Of(std::string account) {
        switch (mRandom() % 5) {
            case 0:
                account.resize(mRandom() % account.size());
                break;
            case 1:
                account[kTellingPlaces[mRandom() % std::size(kTellingPlaces)]] = SmallByte();
                break;
            case 2:
                // The journal modes together with damage further on.
                account[18] = SmallByte();
                account[19] = SmallByte();
                Scatter(account);
                break;
            case 3:
                account[mRandom() % kHeaderSize] = AnyByte();
                break;
            default:
                Scatter(account);
        }
        return account;
    }

private:
    char AnyByte() { return static_cast<char>(mRandom() % 256); }
    char SmallByte() { return static_cast<char>(mRandom() % 4); }

    void Scatter(std::string& account) {
        const auto count = mRandom() % 300 + 1;
        const std::size_t start = mRandom() % account.size();
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::size_t at = std::min(start + mRandom() % 20000, account.size() - 1);
            account[at] = AnyByte();
        }
    }

    std::mt19937 mRandom;
};

// What a login says; empty when it succeeds.
std::string LogIn(const fs::path& path) {
    try {
        const host::AccountHost opened(
            {host::NewConnection, host::ConnectionStringOf(path.string()), "/opt/kelvane"}, {});
        return "";
    } catch (const std::exception& error) {
        return *error.what() == '\0' ? "refused without a word" : error.what();
    }
}

// KELVANE_DAMAGED_ACCOUNTS: how many accounts are tried.
int Rounds() {
    const char* wanted = std::getenv("KELVANE_DAMAGED_ACCOUNTS");
    return wanted == nullptr ? 250 : std::atoi(wanted);
}

TEST(DamagedAccounts, AreLeftAsTheyAreWhenTheyAreRefused) {
    TemporaryFolder folder;
    const fs::path original = folder / "original";
    host::CreateAccountFile(original, {.sample = true});
    const std::string good = ReadText(original);
    const int rounds = Rounds();
    int refused = 0;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const std::string damaged = Damage(static_cast<std::uint32_t>(round)).Of(good);
        const TemporaryFolder place;
        const fs::path path = place / "account";
        WriteText(path, damaged);
        const std::string refusal = LogIn(path);
        EXPECT_EQ(place.FileCount(), 1U) << refusal;
        if (refusal.empty()) continue;
        ++refused;
        EXPECT_TRUE(ReadText(path) == damaged) << "changed by: " << refusal;
    }
    EXPECT_GT(refused, rounds / 4);
    EXPECT_LT(refused, rounds);
}

}  // namespace
}  // namespace kelvane::host_test
