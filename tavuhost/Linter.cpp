#include "Linter.h"

#include "FontFace.h"
#include "HostText.h"
#include "ScriptCompiler.h"
#include "XmlCheck.h"

#include <cctype>
#include <cstdio>
#include <map>
#include <utility>

namespace {

std::string Lower(const std::string& text) {
    std::string lower = text;
    for (char& c : lower)
        c = char(std::tolower((unsigned char)c));
    return lower;
}

bool Same(const std::string& a, const char* b) {
    return Lower(a) == Lower(b);
}

std::string Trimmed(const std::string& text) {
    size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return "";
    size_t last = text.find_last_not_of(" \t\r\n");
    return text.substr(first, last - first + 1);
}

std::string FolderOf(const std::string& path) {
    size_t separator = path.find_last_of("/\\");
    return separator == std::string::npos ? "." : path.substr(0, separator);
}

// The name of an entry of the file, as the toolkit takes it.
const LintAttribute* NameOf(const LintElement& node) {
    return node.Attribute("Name");
}

} // namespace

Linter::Linter(const TAVUKeyRegistryTable& registry, std::vector<std::string> folders,
               std::string prefix, FontLibrary* fonts, Reporter report)
    : Registry(registry), Folders(std::move(folders)), Prefix(std::move(prefix)), Fonts(fonts),
      Out(std::move(report)) {}

void Linter::Report(const LintPlace& place, const std::string& message) {
    ++Problems;
    Out(File + ":" + std::to_string(place.Line) + ":" + std::to_string(place.Column) + ": " +
        message);
}

// Every file is read before any is checked: a template may stand in a file
// named after the one that uses it.
unsigned Linter::Run(const std::vector<std::string>& files) {
    std::vector<Loaded> documents;
    for (const std::string& file : files) {
        Loaded loaded;
        if (Load(file, loaded)) documents.push_back(std::move(loaded));
    }
    FontBases.insert("default font"); // every font's template of last resort
    for (const Loaded& loaded : documents) {
        CollectTemplates(*loaded.Root);
        CollectFontTemplates(*loaded.Root);
    }
    for (const Loaded& loaded : documents) {
        File = loaded.File;
        CheckContents(*loaded.Root);
    }
    return Problems;
}

bool Linter::Load(const std::string& file, Loaded& loaded) {
    File = file;
    std::string text;
    if (!ReadWholeFile(file, text)) {
        Report(LintPlace(), "cannot read the file");
        return false;
    }
    XmlProblem problem;
    if (!XmlCheck::Check(text, problem)) {
        LintPlace place;
        place.Line = problem.Line > 0 ? problem.Line : 1;
        Report(place, problem.Message);
        return false;
    }
    loaded.File = file;
    loaded.Root = LintDocument::Read(text);
    if (!loaded.Root || !Same(loaded.Root->Name, Prefix.c_str())) {
        Report(loaded.Root ? loaded.Root->Place : LintPlace(),
               "no <" + Prefix + "> element: nothing of this file is loaded");
        return false;
    }
    Folders.push_back(FolderOf(file));
    return true;
}

void Linter::CollectTemplates(const LintElement& root) {
    for (const auto& entry : root.Children) {
        if (Same(entry->Name, "Template"))
            if (const LintAttribute* name = NameOf(*entry)) Templates.insert(Lower(name->Value));
        if (Same(entry->Name, "Skin"))
            if (const LintAttribute* base = entry->Attribute("Template"))
                SkinBases.insert(Lower(base->Value));
    }
}

void Linter::CollectFontTemplates(const LintElement& node) {
    for (const auto& child : node.Children) {
        if (Same(child->Name, "Font"))
            if (const LintAttribute* base = child->Attribute("Template"))
                FontBases.insert(Lower(base->Value));
        CollectFontTemplates(*child);
    }
}

void Linter::CheckContents(const LintElement& root) {
    CheckSiblings(root);
    for (const auto& entry : root.Children) {
        if (Same(entry->Name, "Template"))
            CheckTemplate(*entry);
        else if (Same(entry->Name, "Skin"))
            CheckSkin(*entry);
        else
            CheckElement(*entry);
    }
}

// Only the elements of one parent share a namespace; templates and skins
// have their own.
void Linter::CheckSiblings(const LintElement& parent) {
    std::map<std::string, std::map<std::string, int>> seen; // kind -> name -> line
    for (const auto& child : parent.Children) {
        const LintAttribute* name = NameOf(*child);
        if (!name || name->Value.empty()) continue;
        std::string kind =
            Same(child->Name, "Template") || Same(child->Name, "Skin") ? Lower(child->Name) : "";
        auto found = seen[kind].find(Lower(name->Value));
        if (found == seen[kind].end()) {
            seen[kind][Lower(name->Value)] = child->Place.Line;
            continue;
        }
        Report(name->Place, "duplicate name '" + name->Value + "' among siblings (first at line " +
                                std::to_string(found->second) + ")");
    }
}

// A template named after a type holds that type's keys; any other may serve
// any type, so its keys need only be read by one.
void Linter::CheckTemplate(const LintElement& node) {
    CheckTemplateName(node.Attribute("Template"));
    const LintAttribute* name = NameOf(node);
    if (name && SkinBases.count(Lower(name->Value))) return CheckSkin(node);
    if (name && FontBases.count(Lower(name->Value))) return CheckFont(node);
    int type = name ? Registry.FindType(name->Value.c_str()) : -1;
    for (const auto& key : node.Children) {
        if (Same(key->Name, "Children")) {
            CheckSiblings(*key);
            for (const auto& child : key->Children)
                CheckElement(*child);
            continue;
        }
        if (type >= 0) {
            CheckKey(type, *key);
            continue;
        }
        const TAVUKeyInfo* info = nullptr;
        for (unsigned at = 0; at < Registry.TypeCount() && !info; ++at)
            info = Registry.FindKey(at, key->Name.c_str());
        if (!info)
            Report(key->Place, "'" + key->Name + "' is not a key of any element type");
        else if (info->Kind == TAVUKeyTexture)
            CheckTexture(*key);
        else if (info->Kind == TAVUKeyFont)
            CheckFont(*key);
        else if (info->Kind == TAVUKeyScript)
            CheckScript(*key);
    }
}

void Linter::CheckElement(const LintElement& node) {
    int type = Registry.FindType(node.Name.c_str());
    if (type < 0 && HasFactory && HasFactory(node.Name.c_str())) {
        if (Unchecked.insert(Lower(node.Name)).second)
            fprintf(stderr,
                    "%s:%d:%d: note: the keys of '%s' are not checked: its module lists none\n",
                    File.c_str(), node.Place.Line, node.Place.Column, node.Name.c_str());
        if (const LintElement* children = node.Child("Children")) {
            CheckSiblings(*children);
            for (const auto& child : children->Children)
                CheckElement(*child);
        }
        return;
    }
    if (type < 0) {
        Report(node.Place, "no element factory for type '" + node.Name + "'");
        return;
    }
    if (!Registry.MadeFromFiles(unsigned(type))) {
        Report(node.Place, "elements of type '" + node.Name +
                               "' are made by their owners, not by interface files");
        return;
    }
    CheckAttributes(type, node);
    for (const auto& key : node.Children) {
        if (!Same(key->Name, "Children")) {
            CheckKey(type, *key);
            continue;
        }
        CheckSiblings(*key);
        for (const auto& child : key->Children)
            CheckElement(*child);
    }
}

void Linter::CheckKey(int type, const LintElement& key) {
    const TAVUKeyInfo* info = Registry.FindKey(unsigned(type), key.Name.c_str());
    if (info && info->Kind == TAVUKeyAttribute) {
        Report(key.Place, "'" + key.Name + "' is an attribute, not a key: write " + key.Name +
                              "=\"...\" in the tag");
        return;
    }
    if (!info) {
        std::string message =
            "'" + key.Name + "' is not a key of " + Registry.TypeName(unsigned(type));
        if (const TAVUKeyInfo* near = Registry.NearestKey(unsigned(type), key.Name.c_str()))
            message += std::string(": did you mean '") + near->Name + "'?";
        Report(key.Place, message);
        return;
    }
    if (info->Kind == TAVUKeyTexture) CheckTexture(key);
    if (info->Kind == TAVUKeyFont) CheckFont(key);
    if (info->Kind == TAVUKeyScript) CheckScript(key);
    if (info->Kind == TAVUKeyTemplate) {
        std::string name = Trimmed(key.Text);
        if (!name.empty() && !Templates.count(Lower(name)))
            Report(key.TextPlace, "template '" + name + "' not found");
    }
}

void Linter::CheckAttributes(int type, const LintElement& node) {
    for (const LintAttribute& attribute : node.Attributes) {
        const TAVUKeyInfo* info = Registry.FindKey(unsigned(type), attribute.Name.c_str());
        if (!info || info->Kind != TAVUKeyAttribute)
            Report(attribute.Place, "attribute '" + attribute.Name + "' is not read by " +
                                        Registry.TypeName(unsigned(type)));
    }
    CheckTemplateName(node.Attribute("Template"));
}

// A template named after a type that no file defines is simply absent: the
// element then reads its type's defaults.
void Linter::CheckTemplateName(const LintAttribute* attribute) {
    if (attribute && !attribute->Value.empty() && !Templates.count(Lower(attribute->Value)) &&
        Registry.FindType(attribute->Value.c_str()) < 0)
        Report(attribute->Place, "template '" + attribute->Value + "' not found");
}

void Linter::CheckTexture(const LintElement& key) {
    CheckTemplateName(key.Attribute("Template"));
    const LintAttribute* file = key.Attribute("Filename");
    // Names from '#' on are the host's own fills, not files.
    if (file && !file->Value.empty() && file->Value[0] != '#' && !FindFile(file->Value))
        Report(file->Place, "texture file '" + file->Value + "' not found");
}

// Found means what the previewer finds: a face of that family, not a stand-in.
void Linter::CheckFont(const LintElement& key) {
    CheckTemplateName(key.Attribute("Template"));
    const LintElement* name = key.Child("Name");
    std::string family = name ? Trimmed(name->Text) : "";
    if (Fonts && !family.empty() && !Fonts->Has(family))
        Report(name->TextPlace, "font '" + family + "' not found");
}

// A skin's entries replace template names; an entry that names a template no
// file defines leaves the elements of that template with their defaults.
void Linter::CheckSkin(const LintElement& node) {
    if (!Same(node.Name, "Template")) CheckTemplateName(node.Attribute("Template"));
    for (const auto& entry : node.Children) {
        if (!Same(entry->Name, "SkinTemplate")) {
            Report(entry->Place, "'" + entry->Name + "' is not a skin entry: write SkinTemplate");
            continue;
        }
        const LintAttribute* base = entry->Attribute("Base");
        const LintAttribute* skin = entry->Attribute("Skin");
        const LintAttribute* prefix = entry->Attribute("SkinPrefix");
        if (!base || base->Value.empty()) continue;
        const LintAttribute* named = skin && !skin->Value.empty() ? skin : prefix;
        if (!named || named->Value.empty()) continue;
        std::string wanted = named == skin ? skin->Value : prefix->Value + base->Value;
        if (!Templates.count(Lower(wanted)))
            Report(named->Place,
                   "skin entry for '" + base->Value + "': template '" + wanted + "' not found");
    }
}

void Linter::CheckScript(const LintElement& key) {
    ScriptCompiler compiler;
    ScriptProgram program;
    std::vector<AtomDefinition> atoms;
    if (!compiler.Compile(key.Text, key.Name, program, atoms))
        Report(key.TextPlace, "script does not compile: " + compiler.Error());
}

bool Linter::FindFile(const std::string& name) const {
    auto exists = [](const std::string& path) {
        FILE* file = fopen(path.c_str(), "rb");
        if (file) fclose(file);
        return file != nullptr;
    };
    if (exists(name)) return true;
    for (const std::string& folder : Folders)
        if (exists(folder + "/" + name)) return true;
    return false;
}
