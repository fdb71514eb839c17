#include "PathHelpers.h"

#include "Platform.h"

#include <cstring>
#include <vector>

#if !defined(_WIN32)
#include <sys/stat.h>
#endif

namespace {
const int kMaxPathCharacters = 511;

// The path as UTF-16, cut at kMaxPathCharacters; empty when it does not convert.
std::vector<WCHAR> WidePath(const char* path) {
    int needed = MultiByteToWideChar(CP_UTF8, 0, path, -1, nullptr, 0);
    if (needed <= 0) return {};
    std::vector<WCHAR> wide(size_t(needed), 0);
    if (MultiByteToWideChar(CP_UTF8, 0, path, -1, wide.data(), needed) <= 0) return {};
    if (wide.size() > size_t(kMaxPathCharacters) + 1) {
        wide.resize(size_t(kMaxPathCharacters) + 1);
        wide.back() = 0;
    }
    return wide;
}
} // namespace

const char* PathLastSeparator(const char* path) {
    if (!path) return nullptr;
    const char* backslash = strrchr(path, '\\');
#if defined(_WIN32)
    return backslash;
#else
    const char* slash = strrchr(path, '/');
    if (!slash || !backslash) return slash ? slash : backslash;
    return slash > backslash ? slash : backslash;
#endif
}

#if !defined(_WIN32)
namespace {
// A path of ASCII bytes no longer than the cut goes through the conversions
// unchanged, so it is given to the file system as it is.
bool IsShortAscii(const char* path) {
    for (int index = 0; index <= kMaxPathCharacters; ++index) {
        unsigned char byte = static_cast<unsigned char>(path[index]);
        if (byte == 0) return true;
        if (byte >= 0x80) return false;
    }
    return false;
}
} // namespace
#endif

bool PathFileExists(const char* path) {
    if (!path || !path[0]) return false;
#if !defined(_WIN32)
    if (IsShortAscii(path)) {
        struct stat info;
        return stat(path, &info) == 0 && S_ISREG(info.st_mode);
    }
#endif
    std::vector<WCHAR> wide = WidePath(path);
    if (wide.empty()) return false;
#if defined(_WIN32)
    DWORD attributes = GetFileAttributesW(wide.data());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
#else
    // Back to the bytes the file system takes, after the same cut.
    int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), -1, nullptr, 0, nullptr, nullptr);
    if (bytes <= 0) return false;
    std::vector<char> narrow(size_t(bytes), 0);
    if (WideCharToMultiByte(CP_UTF8, 0, wide.data(), -1, narrow.data(), bytes, nullptr, nullptr) <=
        0)
        return false;
    struct stat info;
    return stat(narrow.data(), &info) == 0 && S_ISREG(info.st_mode);
#endif
}
