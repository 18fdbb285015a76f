#include <cairo.h>

#include "adapters/output/layout/cairo_use.h"

namespace kelvane::output {

namespace {

struct Users {
    std::mutex turn;
    int count = 0;  // under the turn
};

Users& AllUsers() {
    static Users users;
    return users;
}

}  // namespace

CairoUse::CairoUse() : mTurn(AllUsers().turn) {
    ++AllUsers().count;
}

CairoUse::~CairoUse() {
    if (--AllUsers().count == 0) cairo_debug_reset_static_data();
}

}  // namespace kelvane::output
