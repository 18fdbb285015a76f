#include "tests/windows/host_process/process_use.h"

#include <psapi.h>
#include <tlhelp32.h>
#include <winternl.h>

#include <algorithm>
#include <array>
#include <span>
#include <vector>

namespace kelvane::windows_test {

namespace {

constexpr UINT kFirstName = 0xC000;
constexpr UINT kLastName = 0xFFFF;

// How long this process' table of handles is, from the list of processes; 0 when it is not told.
ULONG HandleTableLength() {
    std::vector<std::byte> list(1 << 20);
    ULONG size = 0;
    if (NtQuerySystemInformation(SystemProcessInformation, list.data(),
                                 static_cast<ULONG>(list.size()), &size) < 0) {
        return 0;
    }
    for (const std::byte* at = list.data();;) {
        const auto* const process = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(at);
        if (process->UniqueProcessId == UlongToHandle(GetCurrentProcessId())) {
            return process->HandleCount;
        }
        if (process->NextEntryOffset == 0) return 0;
        at += process->NextEntryOffset;
    }
}

// Wine does not tell the number, but how many handles its table has room for: each is tried.
unsigned Handles() {
    DWORD told = 0;
    GetProcessHandleCount(GetCurrentProcess(), &told);
    if (told != 0) return told;
    unsigned count = 0;
    const ULONG length = HandleTableLength();
    for (ULONG place = 1; place <= length; ++place) {
        DWORD flags = 0;
        if (GetHandleInformation(UlongToHandle(place * 4), &flags)) ++count;
    }
    return count;
}

// An entry of the table of drawing objects that a process shares with the system.
struct DrawingEntry {
    ULONG64 object;
    ULONG owner;
    USHORT unique;
    UCHAR type;
    UCHAR flags;
    ULONG64 user;
};
constexpr std::size_t kDrawingEntries = 0x4000;
constexpr std::size_t kTableInEnvironmentBlock = sizeof(void*) == 8 ? 0xF8 : 0x94;

// Wine does not tell the number; there the table holds this process' objects alone.
unsigned DrawingObjects() {
    const DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    if (told != 0) return told;
    PROCESS_BASIC_INFORMATION process{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process,
                              sizeof(process), nullptr);
    const auto* const block = reinterpret_cast<const std::byte*>(process.PebBaseAddress);
    if (block == nullptr) return 0;
    const auto* const table =
        *reinterpret_cast<const DrawingEntry* const*>(block + kTableInEnvironmentBlock);
    if (table == nullptr) return 0;
    return static_cast<unsigned>(
        std::ranges::count_if(std::span(table, kDrawingEntries),
                              [](const DrawingEntry& entry) { return entry.type != 0; }));
}

unsigned OwnWindowsBelow(HWND parent) {
    unsigned count = 0;
    for (HWND window = nullptr;
         (window = FindWindowExW(parent, window, nullptr, nullptr)) != nullptr;) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process == GetCurrentProcessId()) count += 1 + OwnWindowsBelow(window);
    }
    return count;
}

// The module that a thread's first routine lies in; null for none or when it is not told.
HMODULE HomeOf(DWORD thread) {
    constexpr auto kStartAddress = static_cast<THREADINFOCLASS>(9);
    void* start = nullptr;
    HMODULE module = nullptr;
    const HANDLE handle = OpenThread(THREAD_QUERY_INFORMATION, FALSE, thread);
    NtQueryInformationThread(handle, kStartAddress, &start, sizeof(start), nullptr);
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        static_cast<const wchar_t*>(start), &module);
    CloseHandle(handle);
    return module;
}

// The system's own workers come and go as it likes.
unsigned Threads() {
    const HMODULE workers = GetModuleHandleW(L"ntdll.dll");
    unsigned count = 0;
    const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Thread32First(list, &entry); more; more = Thread32Next(list, &entry)) {
        if (entry.th32OwnerProcessID != GetCurrentProcessId()) continue;
        if (HomeOf(entry.th32ThreadID) != workers) ++count;
    }
    CloseHandle(list);
    return count;
}

std::size_t Memory() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof(counters);
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return counters.WorkingSetSize;
}

}  // namespace

ProcessUse ProcessUse::Now() {
    return {.handles = Handles(),
            .drawingObjects = DrawingObjects(),
            .windows = OwnWindowsBelow(nullptr) + OwnWindowsBelow(HWND_MESSAGE),
            .threads = Threads(),
            .bytes = Memory()};
}

// The names of classes lie in one table with those of clipboard formats. What a module that has no
// window finds too is the system's.
int WindowClasses(HMODULE module) {
    const HMODULE other = GetModuleHandleW(L"kernel32.dll");
    int count = 0;
    for (UINT number = kFirstName; number <= kLastName; ++number) {
        std::array<wchar_t, 256> name{};
        WNDCLASSW description{};
        if (GetClipboardFormatNameW(number, name.data(), static_cast<int>(name.size())) != 0 &&
            GetClassInfoW(module, name.data(), &description) &&
            !GetClassInfoW(other, name.data(), &description)) {
            ++count;
        }
    }
    return count;
}

}  // namespace kelvane::windows_test
