#include "tests/faults/memory/failing_memory.h"

#include <cstdlib>
#include <new>

namespace kelvane::faults {

namespace {

long gLeft = 0;
bool gRefused = false;

}  // namespace

void RefuseAllocation(long number) {
    gRefused = false;
    gLeft = number;
}

bool GiveMemory() {
    gLeft = 0;
    return gRefused;
}

// Null when there is none.
static void* AllocateIfAny(std::size_t size) noexcept {
    if (gLeft > 0 && --gLeft == 0) {
        gRefused = true;
        return nullptr;
    }
    return std::malloc(size == 0 ? 1 : size);
}

static void* Allocate(std::size_t size) {
    void* memory = AllocateIfAny(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

}  // namespace kelvane::faults

void* operator new(std::size_t size) {
    return kelvane::faults::Allocate(size);
}
void* operator new[](std::size_t size) {
    return kelvane::faults::Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*unused*/) noexcept {
    return kelvane::faults::AllocateIfAny(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*unused*/) noexcept {
    return kelvane::faults::AllocateIfAny(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
