// Writes the input to a file and parses it from there, so that the file's
// piece-by-piece reading is exercised, then parses the same bytes from memory:
// both must give the same result, tree and error text.
#include "FuzzChecks.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace {

std::string FilePath() {
    return "/tmp/tavu_xml_file_fuzzer_" + std::to_string(getpid()) + ".xml";
}

bool MentionsFileEntities(const std::string& text) {
    return text.find("filename") != std::string::npos || text.find("filepath") != std::string::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string path = FilePath();
    std::string text(reinterpret_cast<const char*>(data), size);
    FILE* file = fopen(path.c_str(), "wb");
    if (!file) return 0;
    fwrite(text.data(), 1, text.size(), file);
    fclose(file);

    XMLParser fromFile;
    bool fileParsed = fromFile.ParseFile(path.c_str());
    fuzzcheck::CheckParser(fromFile, fileParsed);
    if (MentionsFileEntities(text)) return 0;

    // A file drops any three leading bytes that start with 0xEF as a mark.
    size_t skip = size >= 3 && data[0] == 0xEF ? 3 : 0;
    std::string body = text.substr(skip);
    XMLParser fromBuffer;
    bool bufferParsed = fromBuffer.ParseBuffer(body.c_str(), body.size());
    fuzzcheck::Require(fileParsed == bufferParsed, "file and buffer results");
    fuzzcheck::Require(strcmp(fromFile.ErrorText, fromBuffer.ErrorText) == 0,
                       "file and buffer error texts");
    fuzzcheck::Require(fuzzcheck::Dump(fromFile.Root) == fuzzcheck::Dump(fromBuffer.Root),
                       "file and buffer trees");
    return 0;
}
