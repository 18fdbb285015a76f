#include "tests/windows/automation/module.h"

#include <atomic>

namespace kelvane::automation {
namespace {

std::atomic<long> gObjects{0};

}  // namespace

void ObjectMade() {
    ++gObjects;
}
void ObjectGone() {
    --gObjects;
}
bool HasObjects() {
    return gObjects != 0;
}

}  // namespace kelvane::automation
