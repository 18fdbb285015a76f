#include "host/surroundings/private_files.h"

#include "adapters/output/files/disk.h"
#include "platform/native_path.h"

namespace kelvane::host {

void MakePrivateFolder(const std::filesystem::path& path) try {
    output::SystemDisk().MakeFolder(platform::Utf8Of(path));
} catch (const std::exception& refused) {
    // Noticed by who uses the folder.
    return;
}

}  // namespace kelvane::host
