#include "sys/replaced_file.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The file that a chain of links leads to; the path itself where there is no such file yet.
std::string FollowLinks(const std::string& path) {
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) ? std::string(resolved) : path;
}

std::string TemporaryNameFor(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
    // A long name is cut, so that the temporary one stays within the file system's limit.
    return path.substr(0, name) + "." + path.substr(name, 200) + ".XXXXXX";
}

mode_t DefaultMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

} // namespace

LReplacedFile::LReplacedFile(const std::string& path) : finalPath(FollowLinks(path)), writePath(finalPath) {
    struct stat old {
    }, itself{};
    const bool exists = stat(finalPath.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) {
        error = std::strerror(errno);
        return;
    }
    if (finalPath.empty()) {
        error = std::strerror(ENOENT);
        return;
    }
    if (exists && S_ISDIR(old.st_mode)) {
        error = std::strerror(EISDIR);
        return;
    }
    if (exists && access(finalPath.c_str(), W_OK) != 0) {
        error = std::strerror(errno);
        return;
    }
    if (exists && !S_ISREG(old.st_mode))
        return;
    // A link that could not be followed, to a file that is not there yet or has no name any more.
    if (lstat(finalPath.c_str(), &itself) == 0 && S_ISLNK(itself.st_mode))
        return;
    writePath = TemporaryNameFor(finalPath);
    const int descriptor = mkostemp(writePath.data(), O_CLOEXEC);
    if (descriptor < 0) {
        error = std::strerror(errno);
        return;
    }
    temporary = true;
    // A file system without permissions refuses this; the file is as good there.
    [[maybe_unused]] const int ignored = fchmod(descriptor, exists ? old.st_mode & 07777 : DefaultMode());
    close(descriptor);
}

LReplacedFile::~LReplacedFile() {
    if (temporary)
        unlink(writePath.c_str());
}

bool LReplacedFile::Commit() {
    if (!temporary)
        return error.empty();
    if (std::rename(writePath.c_str(), finalPath.c_str()) != 0) {
        error = std::strerror(errno);
        return false;
    }
    temporary = false;
    return true;
}
