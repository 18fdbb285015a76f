#include "adapters/output/layout/cairo_use.h"

namespace kelvane::output {

CairoUse::CairoUse() = default;

CairoUse::~CairoUse() = default;

}  // namespace kelvane::output
