// tavuhost --lint: reads interface files without running them and reports
// what an author would want to know before a run, one line each as
// "file:line:column: message": XML errors, element types with no factory,
// keys that the element's type never reads (with the nearest key it does),
// templates, textures and fonts that cannot be found, skins that map to
// templates that do not exist, event scripts that do not compile, and sibling
// elements that share a name.
#pragma once

#include "LintDocument.h"
#include "TAVUKeyRegistry.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

class FontLibrary;

class Linter {
public:
    using Reporter = std::function<void(const std::string& line)>;

    // Textures are looked for beside each file and in the folders given;
    // fonts in the previewer's library, when there is one.
    Linter(const TAVUKeyRegistryTable& registry, std::vector<std::string> folders,
           std::string prefix, FontLibrary* fonts, Reporter report);

    // Types that the registry does not list but a factory makes (a module's
    // that lists no keys): accepted, with one note each that their keys go
    // unchecked. Notes go to standard error and are not problems.
    void AcceptTypes(std::function<bool(const char* type)> hasFactory) {
        HasFactory = std::move(hasFactory);
    }

    // Checks every file; answers how many problems were reported.
    unsigned Run(const std::vector<std::string>& files);

private:
    struct Loaded {
        std::string File;
        std::unique_ptr<LintElement> Root;
    };

    bool Load(const std::string& file, Loaded& loaded);
    void CollectTemplates(const LintElement& root);
    void CollectFontTemplates(const LintElement& node);
    void CheckContents(const LintElement& root);
    void CheckTemplate(const LintElement& node);
    void CheckSiblings(const LintElement& parent);
    void CheckElement(const LintElement& node);
    void CheckKey(int type, const LintElement& key);
    void CheckAttributes(int type, const LintElement& node);
    void CheckTemplateName(const LintAttribute* attribute);
    void CheckTexture(const LintElement& key);
    void CheckFont(const LintElement& key);
    void CheckSkin(const LintElement& node);
    void CheckScript(const LintElement& key);
    bool FindFile(const std::string& name) const;
    void Report(const LintPlace& place, const std::string& message);

    const TAVUKeyRegistryTable& Registry;
    std::vector<std::string> Folders;
    std::string Prefix;
    FontLibrary* Fonts;
    Reporter Out;
    std::set<std::string> Templates; // lower-cased names
    std::set<std::string> SkinBases; // templates that skins take entries from
    std::set<std::string> FontBases; // templates that fonts take keys from
    std::function<bool(const char*)> HasFactory;
    std::set<std::string> Unchecked; // types whose note was given
    std::string File;                // the file being checked
    unsigned Problems = 0;
};
