#include "tests/faults/power/cut_files.h"

#include <sqlite3.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace kelvane::faults {

namespace {

struct Change {
    sqlite3_int64 at = 0;
    std::string bytes;
    bool isTruncation = false;  // at `at`
};

// What is surely on the disk, and what may be.
struct Shadow {
    std::string synced;
    std::vector<Change> pending;
};

struct Opened {
    const sqlite3_io_methods* own = nullptr;
    std::string name;
};

sqlite3_vfs* gSystem = nullptr;
CutFiles* gFiles = nullptr;
std::map<std::string, Shadow> gShadows;
std::map<sqlite3_file*, Opened> gOpened;
// Each of the system's own sets of methods, with those that are watched.
std::map<const sqlite3_io_methods*, sqlite3_io_methods> gMethods;

void Step() {
    if (gFiles->stepped) gFiles->stepped();
}

void Apply(std::string& content, const Change& change) {
    const auto at = static_cast<std::size_t>(change.at);
    if (change.isTruncation) {
        content.resize(std::min(content.size(), at));
        return;
    }
    content.resize(std::max(content.size(), at + change.bytes.size()));
    content.replace(at, change.bytes.size(), change.bytes);
}

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    const Opened& opened = gOpened.at(file);
    const int code = opened.own->xWrite(file, bytes, count, at);
    if (code != SQLITE_OK) return code;
    const auto* text = static_cast<const char*>(bytes);
    gShadows[opened.name].pending.push_back(
        {at, std::string(text, static_cast<std::size_t>(count)), false});
    Step();
    return code;
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    const Opened& opened = gOpened.at(file);
    gShadows[opened.name].pending.push_back({size, {}, true});
    return opened.own->xTruncate(file, size);
}

// The real disk need not be waited for.
int Sync(sqlite3_file* file, int /*flags*/) {
    Step();
    Shadow& shadow = gShadows[gOpened.at(file).name];
    for (const Change& change : shadow.pending) Apply(shadow.synced, change);
    shadow.pending.clear();
    Step();
    return SQLITE_OK;
}

int Close(sqlite3_file* file) {
    const auto* own = gOpened.at(file).own;
    gOpened.erase(file);
    return own->xClose(file);
}

int Open(sqlite3_vfs* /*layer*/, sqlite3_filename name, sqlite3_file* file, int flags,
         int* answer) {
    const bool isNew = name != nullptr && !gShadows.contains(name);
    std::string content;
    if (isNew) {
        std::ifstream input(name, std::ios::binary);
        content.assign(std::istreambuf_iterator<char>(input), {});
    }
    const int code = gSystem->xOpen(gSystem, name, file, flags, answer);
    if (file->pMethods == nullptr || name == nullptr) return code;
    if (isNew) gShadows[name].synced = content;
    gOpened[file] = {file->pMethods, name};
    sqlite3_io_methods& methods = gMethods[file->pMethods];
    methods = *file->pMethods;
    methods.iVersion = std::min(methods.iVersion, 2);
    methods.xWrite = Write;
    methods.xTruncate = Truncate;
    methods.xSync = Sync;
    methods.xClose = Close;
    file->pMethods = &methods;
    return code;
}

int Delete(sqlite3_vfs* /*layer*/, const char* name, int /*syncFolder*/) {
    gShadows.erase(name);
    return gSystem->xDelete(gSystem, name, 0);
}

// Kept, lost, or kept up to somewhere in the middle.
void MeetCut(std::string& content, Change change, std::mt19937& random) {
    const auto fate = random() % 3;
    if (fate == 0) return;
    if (fate == 1) change.bytes.resize(random() % (change.bytes.size() + 1));
    Apply(content, change);
}

}  // namespace

CutFiles::CutFiles() {
    sqlite3_initialize();
    gSystem = sqlite3_vfs_find(nullptr);
    gFiles = this;
    mLayer = std::make_unique<sqlite3_vfs>(*gSystem);
    mLayer->zName = "kelvane_cut";
    mLayer->pNext = nullptr;
    mLayer->xOpen = Open;
    mLayer->xDelete = Delete;
    sqlite3_vfs_register(mLayer.get(), 1);
}

CutFiles::~CutFiles() {
    sqlite3_vfs_unregister(mLayer.get());
    sqlite3_vfs_register(gSystem, 1);
    gShadows.clear();
}

void CutFiles::Cut(const std::filesystem::path& folder, std::mt19937& random) const {
    std::filesystem::create_directories(folder);
    for (const auto& [name, shadow] : gShadows) {
        if (!std::filesystem::exists(name)) continue;
        std::string content = shadow.synced;
        for (const Change& change : shadow.pending) MeetCut(content, change, random);
        std::ofstream(folder / std::filesystem::path(name).filename(), std::ios::binary) << content;
    }
}

}  // namespace kelvane::faults
