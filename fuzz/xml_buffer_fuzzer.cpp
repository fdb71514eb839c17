// Parses the input as text in memory, then checks the tree and its clone.
#include "FuzzChecks.h"

#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // A terminated copy: a length of 0 makes the parser look for the zero byte.
    std::string text(reinterpret_cast<const char*>(data), size);
    XMLParser parser;
    bool parsed = parser.ParseBuffer(text.c_str(), text.size());
    fuzzcheck::CheckParser(parser, parsed);
    if (parser.Root) {
        XMLNode* copy = parser.Root->Clone(nullptr);
        fuzzcheck::Require(fuzzcheck::Dump(copy) == fuzzcheck::Dump(parser.Root), "clone");
        copy->Destroy();
    }
    // Once a document is held, a second parse must change nothing.
    if (parser.Root) {
        std::string before = fuzzcheck::Dump(parser.Root);
        fuzzcheck::Require(!parser.ParseBuffer("<a/>", 0), "second parse");
        fuzzcheck::Require(fuzzcheck::Dump(parser.Root) == before, "second parse tree");
    }
    return 0;
}
