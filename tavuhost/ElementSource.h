// Where an element on the screen came from: its node in the interface files
// that the host loaded, and the template it was made from. The toolkit keeps
// no XML once an element is made, so the files are read again, with the
// linter's reader, and the node is found by the element's full name.
#pragma once

#include "LintDocument.h"
#include "TAVUKeyRegistry.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

class ElementSource {
public:
    explicit ElementSource(std::string prefix) : Prefix(std::move(prefix)) {}

    // An interface file the toolkit read; a file read again counts as the latest.
    void FileLoaded(const std::string& path);

    // The lines that tell the element's node, its template and every key its
    // type reads with the value found and where, the node's over the
    // template's; keys that the type does not read are flagged. Skinned
    // gives the template that the current skin puts in place of a name.
    using SkinMap = std::function<std::string(const std::string& name)>;
    std::vector<std::string> Describe(const TAVUKeyRegistryTable* registry,
                                      const std::string& fullName, const std::string& type,
                                      const SkinMap& skinned) const;

private:
    struct Document {
        std::string File;
        std::unique_ptr<LintElement> Root;
    };
    struct Index; // the templates of every file

    std::string Prefix;
    std::vector<std::string> Files; // in the order of their latest loading
};
