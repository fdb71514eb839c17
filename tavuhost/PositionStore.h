// The host's store of element positions for one run. It lives in a text file
// beside the first interface file (settings.xml keeps settings.positions), one
// line "FULLNAME X Y WIDTH HEIGHT" per element, so that a script or a person
// can see what was kept. The file is made at the first store and removed when
// the run ends: every run starts with nothing stored.
#pragma once

#include "ElementAccess.h"

#include <map>
#include <string>
#include <vector>

class PositionStore {
public:
    PositionStore() = default;
    ~PositionStore();
    PositionStore(const PositionStore&) = delete;
    PositionStore& operator=(const PositionStore&) = delete;

    // Keeps positions in the file that belongs beside interfaceFile.
    void KeepBeside(const std::string& interfaceFile);
    static std::string FileBeside(const std::string& interfaceFile);

    // Names ignore case, as element names do.
    void Store(const std::string& fullName, const StoredPosition& position);
    bool Find(const std::string& fullName, StoredPosition& position) const;
    // The lines of the file as it stands; none before the first store.
    std::vector<std::string> Lines() const;
    const std::string& File() const { return Path; }

private:
    void Write();

    std::map<std::string, StoredPosition> Positions; // by lower-case full name
    std::map<std::string, std::string> Names;        // the same key: the name as written
    std::string Path;
    bool Written = false;
};
