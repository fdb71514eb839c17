// tavuhost --schema: an XSD of the interface-file format, written from the
// toolkit's key registry, so that editors can complete and check interface
// files. Tags are described as the documentation spells them (element types
// in lower case, keys capitalised), since a schema cannot ignore case.
#pragma once

#include "TAVUKeyRegistry.h"

#include <string>

class SchemaWriter {
public:
    // The schema; prefix is the tag of the contents node.
    static std::string Write(const TAVUKeyRegistryTable& registry, const std::string& prefix);
};
