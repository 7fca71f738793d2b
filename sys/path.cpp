#include "sys/path.h"

#include "sys/file.h"

#include <algorithm>
#include <strings.h>
#include <unistd.h>

std::string GetFolder(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, std::max<std::size_t>(slash, 1));
}

std::string GetFileName(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::string GetExtension(const std::string& path) {
    const std::string name = GetFileName(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot);
}

bool HasExtension(const std::string& path, const char* extension) {
    return strcasecmp(GetExtension(path).c_str(), extension) == 0;
}

bool FileExists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

bool IsSameFile(const std::string& path, const std::string& otherPath) {
    return IsOneOfFiles(path, {otherPath});
}

bool IsOneOfFiles(const std::string& path, const std::set<std::string>& others) {
    const LFileIdentity identity = GetFileIdentity(path.c_str());
    return identity.Exists() && std::any_of(others.begin(), others.end(), [&](const std::string& other) {
               return identity == GetFileIdentity(other.c_str());
           });
}
