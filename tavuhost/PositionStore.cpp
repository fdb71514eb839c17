#include "PositionStore.h"

#include <cctype>
#include <cstdio>

namespace {
std::string Lower(std::string text) {
    for (char& c : text)
        c = char(tolower(static_cast<unsigned char>(c)));
    return text;
}
} // namespace

PositionStore::~PositionStore() {
    if (Written) remove(Path.c_str());
}

std::string PositionStore::FileBeside(const std::string& interfaceFile) {
    size_t slash = interfaceFile.find_last_of("/\\");
    size_t dot = interfaceFile.rfind('.');
    bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash);
    return (hasExtension ? interfaceFile.substr(0, dot) : interfaceFile) + ".positions";
}

void PositionStore::KeepBeside(const std::string& interfaceFile) {
    Path = FileBeside(interfaceFile);
}

void PositionStore::Store(const std::string& fullName, const StoredPosition& position) {
    std::string key = Lower(fullName);
    Positions[key] = position;
    Names[key] = fullName;
    Write();
}

bool PositionStore::Find(const std::string& fullName, StoredPosition& position) const {
    auto found = Positions.find(Lower(fullName));
    if (found == Positions.end()) return false;
    position = found->second;
    return true;
}

void PositionStore::Write() {
    if (Path.empty()) return;
    FILE* file = fopen(Path.c_str(), "wb");
    if (!file) return;
    Written = true;
    for (const auto& [key, position] : Positions)
        fprintf(file, "%s %d %d %u %u\n", Names[key].c_str(), position.X, position.Y,
                position.Width, position.Height);
    fclose(file);
}

std::vector<std::string> PositionStore::Lines() const {
    std::vector<std::string> lines;
    FILE* file = Written ? fopen(Path.c_str(), "rb") : nullptr;
    if (!file) return lines;
    char line[1024];
    while (fgets(line, sizeof(line), file)) {
        std::string text = line;
        while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
            text.pop_back();
        lines.push_back(text);
    }
    fclose(file);
    return lines;
}
