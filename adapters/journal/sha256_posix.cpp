#include <glib.h>

#include <stdexcept>

#include "adapters/journal/sha256.h"

namespace kelvane::journal {

struct Sha256::State {
    struct Free {
        void operator()(GChecksum* used) const { g_checksum_free(used); }
    };
    std::unique_ptr<GChecksum, Free> checksum{g_checksum_new(G_CHECKSUM_SHA256)};
};

Sha256::Sha256() : mState(std::make_unique<State>()) {
    if (!mState->checksum) throw std::runtime_error("SHA-256");
}

Sha256::~Sha256() = default;

void Sha256::Add(std::string_view bytes) {
    g_checksum_update(mState->checksum.get(), reinterpret_cast<const guchar*>(bytes.data()),
                      static_cast<gssize>(bytes.size()));
}

std::string Sha256::Finish() {
    return g_checksum_get_string(mState->checksum.get());
}

}  // namespace kelvane::journal
