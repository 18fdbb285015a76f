// The system's cryptography.

#include <windows.h>
// Needs the one above.
#include <bcrypt.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "adapters/journal/hex_text.h"
#include "adapters/journal/sha256.h"

namespace kelvane::journal {

namespace {

constexpr std::size_t kLength = 32;

void Need(NTSTATUS status) {
    if (status < 0) throw std::runtime_error("SHA-256");
}

}  // namespace

struct Sha256::State {
    State() = default;
    ~State() {
        if (hash != nullptr) BCryptDestroyHash(hash);
        if (algorithm != nullptr) BCryptCloseAlgorithmProvider(algorithm, 0);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    BCRYPT_ALG_HANDLE algorithm = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;
};

Sha256::Sha256() : mState(std::make_unique<State>()) {
    Need(BCryptOpenAlgorithmProvider(&mState->algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0));
    Need(BCryptCreateHash(mState->algorithm, &mState->hash, nullptr, 0, nullptr, 0, 0));
}

Sha256::~Sha256() = default;

void Sha256::Add(std::string_view bytes) {
    constexpr std::size_t kMaxCount = std::size_t{1} << 30U;
    while (!bytes.empty()) {
        const std::size_t count = std::min(bytes.size(), kMaxCount);
        // The interface is older than const; the bytes are only read.
        auto* const first = reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data()));
        Need(BCryptHashData(mState->hash, first, static_cast<ULONG>(count), 0));
        bytes.remove_prefix(count);
    }
}

std::string Sha256::Finish() {
    std::array<UCHAR, kLength> digest{};
    Need(BCryptFinishHash(mState->hash, digest.data(), static_cast<ULONG>(digest.size()), 0));
    return HexOf({reinterpret_cast<const char*>(digest.data()), digest.size()});
}

}  // namespace kelvane::journal
