#include "XMLFile.h"

#include <cstdlib>

XMLFile::XMLFile(XMLParser* owner, FILE* file) : XMLStream(owner), File(file) {}

XMLFile::~XMLFile() {
    free(Bytes);
}

// UTF-8 never decodes to more units than it has bytes, so a read of capacity
// bytes always fits the capacity and no byte has to go back to the file.
size_t XMLFile::Read(char* destination, size_t capacity) {
    if (capacity == 0 || !File) return 0;
    if (capacity > BytesSize) {
        char* grown = static_cast<char*>(realloc(Bytes, capacity));
        if (!grown) return 0;
        Bytes = grown;
        BytesSize = capacity;
    }
    size_t read = fread(Bytes, 1, capacity, File);
    return read ? Decode(Bytes, read, destination) : 0;
}
