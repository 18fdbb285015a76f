#include "adapters/database/secret.h"

#include <cstring>
#include <new>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/mman.h>
#endif

namespace kelvane::database {

namespace {

#ifdef _WIN32

void* TakePages(std::size_t size) {
    return VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void GivePagesBack(void* pages, std::size_t /*size*/) {
    VirtualFree(pages, 0, MEM_RELEASE);
}

#else

void* TakePages(std::size_t size) {
    void* pages = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) return nullptr;
    madvise(pages, size, MADV_DONTDUMP);
    return pages;
}

void GivePagesBack(void* pages, std::size_t size) {
    munmap(pages, size);
}

#endif

// An empty text has a page, too: no memory is none to the system.
std::size_t RoomFor(std::size_t size) {
    return size + 1;
}

}  // namespace

Secret::Secret(std::string_view text)
    : mPages(static_cast<char*>(TakePages(RoomFor(text.size())))), mSize(text.size()) {
    if (mPages == nullptr) throw std::bad_alloc();
    std::memcpy(mPages, text.data(), text.size());
}

Secret::~Secret() {
    WipeBytes(mPages, mSize);
    GivePagesBack(mPages, RoomFor(mSize));
}

void WipeBytes(void* bytes, std::size_t count) noexcept {
    auto* at = static_cast<volatile char*>(bytes);
    for (; count > 0; --count) *at++ = '\0';
}

}  // namespace kelvane::database
