#include "utf8string.h"

#include <cstdlib>
#include <cstring>
#include <utility>

utf8string::utf8string() = default;

utf8string::utf8string(const char* text) {
    if (text) Assign(text, strlen(text));
}

utf8string::utf8string(const utf8string& other) {
    Assign(other.Buffer, other.Size);
}

utf8string::utf8string(utf8string&& other) noexcept
    : Buffer(std::exchange(other.Buffer, nullptr)), Size(std::exchange(other.Size, 0)) {}

utf8string& utf8string::operator=(const utf8string& other) {
    if (this != &other) Assign(other.Buffer, other.Size);
    return *this;
}

utf8string& utf8string::operator=(utf8string&& other) noexcept {
    if (this != &other) {
        free(Buffer);
        Buffer = std::exchange(other.Buffer, nullptr);
        Size = std::exchange(other.Size, 0);
    }
    return *this;
}

utf8string& utf8string::operator=(const char* text) {
    Assign(text, text ? strlen(text) : 0);
    return *this;
}

utf8string::~utf8string() {
    free(Buffer);
}

int utf8string::Compare(const char* other) const {
    return strcmp(c_str(), other ? other : "");
}

void utf8string::Assign(const char* text, size_t size) {
    char* copy = nullptr;
    if (text) {
        copy = static_cast<char*>(malloc(size + 1));
        if (!copy)
            size = 0; // out of memory: an empty string rather than a crash
        else {
            memcpy(copy, text, size);
            copy[size] = 0;
        }
    } else {
        size = 0;
    }
    free(Buffer);
    Buffer = copy;
    Size = size;
}
