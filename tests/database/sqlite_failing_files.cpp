#include "tests/database/sqlite_failing_files.h"

#include <sqlite3.h>

#include <climits>
#include <utility>

namespace kelvane::database_test {

namespace {

struct Faults {
    int writes = INT_MAX;
    int syncs = INT_MAX;
    int refused = 0;
};
Faults faults;

// The engine allocates it, with room for the system's own file behind it.
struct File {
    sqlite3_file base;
    sqlite3_file* Own() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_file* Own(sqlite3_file* file) {
    return reinterpret_cast<File*>(file)->Own();
}

// Hands a call on to the system's file.
template <auto Method, typename... Arguments>
auto Forward(sqlite3_file* file, Arguments... arguments) {
    sqlite3_file* own = Own(file);
    return (own->pMethods->*Method)(own, arguments...);
}

bool IsRefused(int& allowed) {
    if (allowed > 0) {
        if (allowed != INT_MAX) --allowed;
        return false;
    }
    ++faults.refused;
    return true;
}

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    if (IsRefused(faults.writes)) return SQLITE_FULL;
    return Own(file)->pMethods->xWrite(Own(file), bytes, count, at);
}

int Sync(sqlite3_file* file, int flags) {
    if (IsRefused(faults.syncs)) {
        faults.syncs = INT_MAX;
        return SQLITE_IOERR_FSYNC;
    }
    return Own(file)->pMethods->xSync(Own(file), flags);
}

using Methods = sqlite3_io_methods;

constexpr Methods kMethods = {
    .iVersion = 2,
    .xClose = [](sqlite3_file* file) { return Forward<&Methods::xClose>(file); },
    .xRead = [](sqlite3_file* file, void* bytes, int count,
                sqlite3_int64 at) { return Forward<&Methods::xRead>(file, bytes, count, at); },
    .xWrite = Write,
    .xTruncate = [](sqlite3_file* file,
                    sqlite3_int64 size) { return Forward<&Methods::xTruncate>(file, size); },
    .xSync = Sync,
    .xFileSize = [](sqlite3_file* file,
                    sqlite3_int64* size) { return Forward<&Methods::xFileSize>(file, size); },
    .xLock = [](sqlite3_file* file, int kind) { return Forward<&Methods::xLock>(file, kind); },
    .xUnlock = [](sqlite3_file* file, int kind) { return Forward<&Methods::xUnlock>(file, kind); },
    .xCheckReservedLock =
        [](sqlite3_file* file, int* held) {
            return Forward<&Methods::xCheckReservedLock>(file, held);
        },
    .xFileControl =
        [](sqlite3_file* file, int what, void* argument) {
            return Forward<&Methods::xFileControl>(file, what, argument);
        },
    .xSectorSize = [](sqlite3_file* file) { return Forward<&Methods::xSectorSize>(file); },
    .xDeviceCharacteristics =
        [](sqlite3_file* file) { return Forward<&Methods::xDeviceCharacteristics>(file); },
    .xShmMap =
        [](sqlite3_file* file, int page, int size, int extend, void volatile** memory) {
            return Forward<&Methods::xShmMap>(file, page, size, extend, memory);
        },
    .xShmLock = [](sqlite3_file* file, int at, int count,
                   int flags) { return Forward<&Methods::xShmLock>(file, at, count, flags); },
    .xShmBarrier = [](sqlite3_file* file) { Forward<&Methods::xShmBarrier>(file); },
    .xShmUnmap = [](sqlite3_file* file,
                    int drop) { return Forward<&Methods::xShmUnmap>(file, drop); },
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

int Open(sqlite3_vfs* layer, sqlite3_filename name, sqlite3_file* file, int flags, int* answer) {
    auto* system = static_cast<sqlite3_vfs*>(layer->pAppData);
    const int code = system->xOpen(system, name, Own(file), flags, answer);
    file->pMethods = Own(file)->pMethods == nullptr ? nullptr : &kMethods;
    return code;
}

}  // namespace

FailingFiles::FailingFiles() {
    sqlite3_initialize();
    sqlite3_vfs* system = sqlite3_vfs_find(nullptr);
    mLayer = std::make_unique<sqlite3_vfs>(*system);
    mLayer->zName = "kelvane_failing";
    mLayer->szOsFile = static_cast<int>(sizeof(File)) + system->szOsFile;
    mLayer->pAppData = system;
    mLayer->pNext = nullptr;
    mLayer->xOpen = Open;
    faults = {};
    sqlite3_vfs_register(mLayer.get(), 1);
}

FailingFiles::~FailingFiles() {
    auto* system = static_cast<sqlite3_vfs*>(mLayer->pAppData);
    sqlite3_vfs_unregister(mLayer.get());
    sqlite3_vfs_register(system, 1);
}

void FailingFiles::FillDisk(int allowed) {
    faults.writes = allowed;
}

void FailingFiles::BreakSync(int allowed) {
    faults.syncs = allowed;
}

int FailingFiles::Heal() {
    return std::exchange(faults, {}).refused;
}

}  // namespace kelvane::database_test
