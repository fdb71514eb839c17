#include "XMLFile.h"

#include <cstdlib>

XMLFile::XMLFile(XMLParser* owner, FILE* file) : XMLStream(owner), File(file) {}

XMLFile::~XMLFile() {
    free(Bytes);
}

size_t XMLFile::Read(char16_t* destination, size_t capacity) {
    if (capacity == 0 || !File) return 0;
    if (capacity > BytesSize) {
        char* grown = static_cast<char*>(realloc(Bytes, capacity));
        if (!grown) return 0;
        Bytes = grown;
        BytesSize = capacity;
    }
    size_t read = fread(Bytes, 1, capacity, File);
    if (read == 0) return 0;
    // UTF-8 never decodes to more units than it has bytes, so this gives up
    // bytes only in theory; those go back to the file for the next read.
    size_t kept = read;
    size_t units = Decode(Bytes, kept, destination, capacity);
    while (units == 0 && kept > 2) {
        kept /= 2;
        units = Decode(Bytes, kept, destination, capacity);
    }
    if (kept < read) fseek(File, -long(read - kept), SEEK_CUR);
    return units;
}
