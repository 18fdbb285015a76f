#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/surroundings/private_files.h"

namespace kelvane::host {

void MakePrivateFile(const std::filesystem::path& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file >= 0) close(file);
}

}  // namespace kelvane::host
