// Paths as the platform writes them. Interface files and scripts name folders
// with either separator, but the toolkit finds a texture beside its interface
// file by the platform's own separator alone (only a backslash on Windows), so
// every path the host hands over, and every folder it joins, uses that one.
#pragma once

#include <string>

#if defined(_WIN32)
const char kPathSeparator = '\\';
#else
const char kPathSeparator = '/';
#endif

inline std::string NativePath(std::string path) {
    for (char& c : path)
        if (c == '\\' || c == '/') c = kPathSeparator;
    return path;
}

inline std::string JoinPath(const std::string& folder, const std::string& name) {
    return NativePath(folder + kPathSeparator + name);
}
