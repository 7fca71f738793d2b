#include "sys/replaced_file.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
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

/// A link that could not be followed leads to a file that is not there yet, or has no name any more.
bool IsLink(const std::string& path) {
    struct stat itself {};
    return lstat(path.c_str(), &itself) == 0 && S_ISLNK(itself.st_mode);
}

mode_t DefaultMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

} // namespace

LReplacedFile::LReplacedFile(const std::string& path) : finalPath(FollowLinks(path)), writePath(finalPath) {
    struct stat old {};
    const bool exists = stat(finalPath.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
        failure = LFailure::OfLastCall(); // NOLINT(bugprone-branch-clone): each is of a call of its own
    else if (finalPath.empty())
        failure = LFailure::OfSystem(ENOENT);
    else if (exists && S_ISDIR(old.st_mode))
        failure = LFailure::OfSystem(EISDIR);
    else if (exists && access(finalPath.c_str(), W_OK) != 0)
        failure = LFailure::OfLastCall();
    else if ((!exists || S_ISREG(old.st_mode)) && !IsLink(finalPath))
        // A file system without permissions refuses the mode; the file is as good there.
        CreateTemporary(exists ? old.st_mode & 07777 : DefaultMode());
}

void LReplacedFile::CreateTemporary(unsigned int mode) {
    std::string created = TemporaryNameFor(finalPath);
    const int descriptor = mkostemp(created.data(), O_CLOEXEC);
    if (descriptor < 0) {
        failure = LFailure::OfLastCall();
        return;
    }
    writePath = created;
    temporary = true;
    [[maybe_unused]] const int ignored = fchmod(descriptor, mode);
    close(descriptor);
}

LReplacedFile::~LReplacedFile() {
    if (temporary)
        unlink(writePath.c_str());
}

LFailure LReplacedFile::Commit() {
    if (!temporary)
        return failure;
    if (std::rename(writePath.c_str(), finalPath.c_str()) != 0)
        return failure = LFailure::OfLastCall();
    temporary = false;
    return {};
}
