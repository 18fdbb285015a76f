#include "host/account/new_file.h"

#include <random>
#include <string>

#include "adapters/sqlite/companions.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

namespace fs = std::filesystem;

fs::path Resolved(const fs::path& path) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(path, error))) return path;
    fs::path target = fs::weakly_canonical(path, error);
    if (error) throw FileRefused(path.string() + ": " + error.message());
    return target;
}

std::string RandomName() {
    std::random_device random;
    return std::to_string(random());
}

}  // namespace

std::vector<fs::path> CompanionFiles(const fs::path& account) {
    std::vector<fs::path> companions;
    for (const char* ending : sqlite::kCompanionEndings) {
        companions.push_back(account);
        companions.back() += ending;
    }
    return companions;
}

NewFile::NewFile(const fs::path& path, Existing existing)
    : mPath(Resolved(path)), mDraft(mPath), mExisting(existing) {
    CheckPlace();
    mDraft += ".new-" + RandomName();
}

NewFile::~NewFile() {
    std::error_code ignored;
    fs::remove(mDraft, ignored);
    for (const auto& companion : CompanionFiles(mDraft)) fs::remove(companion, ignored);
}

void NewFile::CheckPlace() const {
    if (mPath.empty()) throw FileRefused(Translated("the file's name is empty"));
    std::error_code error;
    const fs::path folder = mPath.has_parent_path() ? mPath.parent_path() : fs::path(".");
    if (!fs::is_directory(folder, error)) {
        throw FileRefused(Told("%1: there is no folder %2", {mPath.string(), folder.string()}));
    }
    const fs::file_status status = fs::status(mPath, error);
    if (fs::is_directory(status)) throw FileRefused(Told("%1 is a folder", {mPath.string()}));
    if (fs::exists(status)) {
        if (!fs::is_regular_file(status))
            throw FileRefused(Told("%1 is no plain file", {mPath.string()}));
        if (mExisting == Existing::Keep) {
            throw FileRefused(Told("%1 exists already; --force replaces it", {mPath.string()}));
        }
    } else if (status.type() != fs::file_type::not_found) {
        throw FileRefused(mPath.string() + ": " + error.message());
    }
    for (const auto& companion : CompanionFiles(mPath)) {
        if (!fs::exists(companion, error)) continue;
        throw FileRefused(Told("%1 is in use, or was not closed properly: there is %2",
                               {mPath.string(), companion.string()}));
    }
}

void NewFile::Finish() {
    CheckPlace();
    std::error_code error;
    if (mExisting == Existing::Keep) {
        // A link never takes the place of a file that somebody made in the meantime.
        fs::create_hard_link(mDraft, mPath, error);
        if (!error) return;
        CheckPlace();
    }
    fs::rename(mDraft, mPath, error);
    if (error) throw FileRefused(mPath.string() + ": " + error.message());
}

}  // namespace kelvane::host
