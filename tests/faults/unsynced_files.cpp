#include "tests/faults/unsynced_files.h"

#include <sqlite3.h>

#include <map>

namespace kelvane::faults {

namespace {

sqlite3_vfs* gSystem = nullptr;
// Each of the system's own sets of methods, but for one of them.
std::map<const sqlite3_io_methods*, sqlite3_io_methods> gMethods;

int Open(sqlite3_vfs* /*layer*/, sqlite3_filename name, sqlite3_file* file, int flags,
         int* answer) {
    const int code = gSystem->xOpen(gSystem, name, file, flags, answer);
    if (file->pMethods == nullptr) return code;
    sqlite3_io_methods& methods = gMethods[file->pMethods];
    methods = *file->pMethods;
    methods.xSync = [](sqlite3_file*, int) { return SQLITE_OK; };
    file->pMethods = &methods;
    return code;
}

int Delete(sqlite3_vfs* /*layer*/, const char* name, int /*syncFolder*/) {
    return gSystem->xDelete(gSystem, name, 0);
}

}  // namespace

UnsyncedFiles::UnsyncedFiles() {
    sqlite3_initialize();
    gSystem = sqlite3_vfs_find(nullptr);
    mLayer = std::make_unique<sqlite3_vfs>(*gSystem);
    mLayer->zName = "kelvane_unsynced";
    mLayer->pNext = nullptr;
    mLayer->xOpen = Open;
    mLayer->xDelete = Delete;
    sqlite3_vfs_register(mLayer.get(), 1);
}

UnsyncedFiles::~UnsyncedFiles() {
    sqlite3_vfs_unregister(mLayer.get());
    sqlite3_vfs_register(gSystem, 1);
}

}  // namespace kelvane::faults
