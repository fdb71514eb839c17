// Watches files for changes by polling their modification time and size,
// which needs nothing beyond the C library on any system. A file that
// disappears counts as changed, and so does one that comes back.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class FileWatch {
public:
    // Starts watching a file, as it is now; a file already watched stays as it was.
    void Add(const std::string& path);
    // True when any watched file differs from what the last call (or Add) saw.
    bool Changed();
    size_t Count() const { return Files.size(); }

private:
    struct Stamp {
        bool Exists = false;
        int64_t Modified = 0; // nanoseconds where the system keeps them
        int64_t Size = 0;
    };
    struct Entry {
        std::string Path;
        Stamp Seen;
    };

    static Stamp StampOf(const std::string& path);
    static bool Same(const Stamp& a, const Stamp& b);

    std::vector<Entry> Files;
};
