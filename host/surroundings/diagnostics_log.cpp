#include "host/surroundings/diagnostics_log.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "host/surroundings/local_time.h"
#include "host/surroundings/private_files.h"
#include "platform/connection_string.h"
#include "platform/one_line.h"

namespace kelvane::host {

namespace {

// `text` as one line, without what a connection string would give away.
std::string Harmless(std::string_view text) {
    return platform::OneLine(platform::WithoutPasswords(text));
}

}  // namespace

std::filesystem::path LogPath() {
    const char* named = std::getenv("KELVANE_LOG");
    return named == nullptr ? std::filesystem::path() : std::filesystem::path(named);
}

DiagnosticsLog::DiagnosticsLog(std::filesystem::path path, std::function<std::string()> now)
    : mPath(std::move(path)), mNow(std::move(now)) {
    if (!mNow) mNow = [] { return LocalNow().FullText(); };
}

bool DiagnosticsLog::IsWritable() const {
    if (mPath.empty()) return true;
    MakePrivateFile(mPath);
    return std::ofstream(mPath, std::ios::app).is_open();
}

void DiagnosticsLog::Trapped(std::string_view place, std::string_view detail) noexcept {
    if (mPath.empty()) return;
    try {
        MakePrivateFile(mPath);
        std::ofstream log(mPath, std::ios::app);
        log << mNow() << " [" << Harmless(place) << "] " << Harmless(detail) + "\n" << std::flush;
    } catch (...) {
        return;  // the error being reported matters more than the report
    }
}

}  // namespace kelvane::host
