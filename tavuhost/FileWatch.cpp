#include "FileWatch.h"

#include <sys/stat.h>

FileWatch::Stamp FileWatch::StampOf(const std::string& path) {
    Stamp stamp;
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return stamp;
    stamp.Exists = true;
    stamp.Size = int64_t(status.st_size);
#if defined(_WIN32) || defined(__APPLE__)
    stamp.Modified = int64_t(status.st_mtime) * 1000000000;
#else
    stamp.Modified = int64_t(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec;
#endif
    return stamp;
}

bool FileWatch::Same(const Stamp& a, const Stamp& b) {
    return a.Exists == b.Exists && a.Modified == b.Modified && a.Size == b.Size;
}

void FileWatch::Add(const std::string& path) {
    for (const Entry& entry : Files)
        if (entry.Path == path) return;
    Files.push_back({path, StampOf(path)});
}

bool FileWatch::Changed() {
    bool changed = false;
    for (Entry& entry : Files) {
        Stamp now = StampOf(entry.Path);
        if (!Same(now, entry.Seen)) changed = true;
        entry.Seen = now;
    }
    return changed;
}
