#include "ElementSource.h"

#include "HostText.h"
#include "XmlCheck.h"

#include <algorithm>
#include <cctype>

namespace {

enum : size_t { ValueShown = 48 };
// Templates that name each other in a ring, or lists of names that name
// lists again, would never end the chain: it is cut.
enum : unsigned { ChainDepth = 32, ChainNodes = 256 };

std::string AttributeOf(const LintElement* node, const char* name) {
    const LintAttribute* attribute = node ? node->Attribute(name) : nullptr;
    return attribute ? attribute->Value : "";
}

// One line of a value: spaces and line breaks run together, cut to fit.
std::string OneLine(const std::string& text) {
    std::string line;
    for (char c : text) {
        bool space = std::isspace((unsigned char)c) != 0;
        if (space && (line.empty() || line.back() == ' ')) continue;
        line += space ? ' ' : c;
    }
    if (!line.empty() && line.back() == ' ') line.pop_back();
    if (line.size() > ValueShown) line = line.substr(0, ValueShown - 3) + "...";
    return line;
}

std::string ValueOf(const LintElement& key) {
    if (SameName(key.Name, "Children"))
        return std::to_string(key.Children.size()) + " element" +
               (key.Children.size() == 1 ? "" : "s");
    std::string value;
    for (const LintAttribute& attribute : key.Attributes)
        value += (value.empty() ? "" : " ") + attribute.Name + "=\"" + attribute.Value + "\"";
    std::string text = OneLine(key.Text);
    if (!text.empty()) value += (value.empty() ? "" : " ") + text;
    if (!key.Children.empty()) value += (value.empty() ? "" : " ") + std::string("{...}");
    return OneLine(value);
}

// A template as the toolkit merges it from its chain of bases: a later
// template's key replaces a base's whole, and each key remembers the
// template that gave it.
struct MergedTemplate {
    struct Key {
        const LintElement* Node;
        std::string From;
    };
    struct Setting {
        const LintAttribute* Attribute;
        std::string From;
    };
    std::vector<Key> Keys;
    std::vector<Setting> Attributes;

    void Lay(const LintElement& node) {
        std::string from = AttributeOf(&node, "Name");
        for (const LintAttribute& attribute : node.Attributes) {
            auto same = [&](const Setting& s) {
                return SameName(s.Attribute->Name, attribute.Name);
            };
            Attributes.erase(std::remove_if(Attributes.begin(), Attributes.end(), same),
                             Attributes.end());
            Attributes.push_back({&attribute, from});
        }
        for (const auto& child : node.Children) {
            auto same = [&](const Key& k) { return SameName(k.Node->Name, child->Name); };
            auto found = std::find_if(Keys.begin(), Keys.end(), same);
            if (found != Keys.end()) Keys.erase(found);
            Keys.push_back({child.get(), from});
        }
    }
    const Key* Find(const char* name) const {
        for (const Key& key : Keys)
            if (SameName(key.Node->Name, name)) return &key;
        return nullptr;
    }
    const Setting* FindAttribute(const char* name) const {
        for (const Setting& setting : Attributes)
            if (SameName(setting.Attribute->Name, name)) return &setting;
        return nullptr;
    }
};

} // namespace

struct ElementSource::Index {
    enum : unsigned { Latest = ~0u };
    std::vector<Document> Documents;
    // Every definition of each name in the order of loading: a template
    // merges the bases that stood before it, as the toolkit read them then.
    std::map<std::string, std::vector<const LintElement*>, NameLess> Templates;
    std::map<const LintElement*, unsigned> Order;

    const LintElement* FindTemplate(const std::string& name, unsigned before = Latest) const {
        auto found = Templates.find(name);
        if (found == Templates.end()) return nullptr;
        for (auto each = found->second.rbegin(); each != found->second.rend(); ++each)
            if (Order.at(*each) < before) return *each;
        return nullptr;
    }

    void Add(Document document) {
        for (const auto& entry : document.Root->Children) {
            std::string name = AttributeOf(entry.get(), "Name");
            if (!SameName(entry->Name, "Template") || name.empty()) continue;
            Order[entry.get()] = unsigned(Order.size());
            Templates[name].push_back(entry.get());
        }
        Documents.push_back(std::move(document));
    }

    // The chain of a template, deepest base first, as the toolkit collects
    // it; a list of names merges every name before the last comma.
    void Chain(const LintElement* node, std::vector<const LintElement*>& chain,
               unsigned depth) const {
        for (unsigned visit = 0; node && depth < ChainDepth && chain.size() < ChainNodes;
             ++visit, ++depth) {
            chain.insert(chain.begin(), node);
            std::string base = AttributeOf(node, "Template");
            if (base.find(',') == std::string::npos) {
                const LintElement* next =
                    base.empty() ? nullptr : FindTemplate(base, Order.at(node));
                if (next == node) return;
                node = next;
                continue;
            }
            for (size_t at = 0, comma; (comma = base.find(',', at)) != std::string::npos;
                 at = comma + 1)
                Chain(FindTemplate(base.substr(at, comma - at), Order.at(node)), chain, depth + 1);
            if (visit > 0) return; // the node's second visit ends the chain
        }
    }

    MergedTemplate Merge(const LintElement* node) const {
        std::vector<const LintElement*> chain;
        Chain(node, chain, 0);
        MergedTemplate merged;
        for (const LintElement* each : chain)
            merged.Lay(*each);
        return merged;
    }
};

void ElementSource::FileLoaded(const std::string& path) {
    Files.erase(std::remove(Files.begin(), Files.end(), path), Files.end());
    Files.push_back(path);
}

namespace {

struct Found {
    const LintElement* Node = nullptr;
    std::string File;
};

std::vector<std::string> NamesFromTop(const std::string& fullName) {
    std::vector<std::string> names;
    size_t at = 0;
    for (size_t mark; (mark = fullName.find('@', at)) != std::string::npos; at = mark + 1)
        names.insert(names.begin(), fullName.substr(at, mark - at));
    names.insert(names.begin(), fullName.substr(at));
    return names;
}

const LintElement* NamedChild(const LintElement* holder, const std::string& name) {
    if (!holder) return nullptr;
    for (const auto& child : holder->Children)
        if (!SameName(child->Name, "Template") && !SameName(child->Name, "Skin") &&
            SameName(AttributeOf(child.get(), "Name"), name))
            return child.get();
    return nullptr;
}

std::string TemplateNameOf(const LintElement& node) {
    std::string name = AttributeOf(&node, "Template");
    return name.empty() ? node.Name : name;
}

} // namespace

std::vector<std::string> ElementSource::Describe(const TAVUKeyRegistryTable* registry,
                                                 const std::string& fullName,
                                                 const std::string& type,
                                                 const SkinMap& skinned) const {
    Index index;
    for (const std::string& file : Files) {
        std::string text;
        XmlProblem problem;
        if (!ReadWholeFile(file, text) || !XmlCheck::Check(text, problem)) continue;
        Document document{file, LintDocument::Read(text)};
        if (document.Root && SameName(document.Root->Name, Prefix)) index.Add(std::move(document));
    }
    // The element's node: the latest file first, and an element loaded under
    // a parent that no file names is found by the rest of its name.
    std::vector<std::string> names = NamesFromTop(fullName);
    Found found;
    for (auto document = index.Documents.rbegin();
         document != index.Documents.rend() && !found.Node; ++document)
        for (size_t start = 0; start < names.size() && !found.Node; ++start) {
            const LintElement* node = NamedChild(document->Root.get(), names[start]);
            for (size_t at = start + 1; node && at < names.size(); ++at) {
                const LintElement* children = node->Child("Children");
                if (!children)
                    if (const LintElement* made =
                            index.FindTemplate(skinned(TemplateNameOf(*node))))
                        children = made->Child("Children");
                node = NamedChild(children, names[at]);
            }
            if (node) found = {node, document->File};
        }

    std::vector<std::string> lines;
    if (!found.Node) {
        lines.push_back(
            "  no node in the loaded interface files: made by a script or by its parent control");
        return lines;
    }
    const LintElement& node = *found.Node;
    // The files beside the program are named as the command line named them.
    std::string file = found.File;
    if (file.size() > 2 && file[0] == '.' && (file[1] == '/' || file[1] == '\\')) file.erase(0, 2);
    lines.push_back("  node " + file + ":" + std::to_string(node.Place.Line) + ":" +
                    std::to_string(node.Place.Column));
    std::string templateName = TemplateNameOf(node);
    std::string skinnedName = skinned(templateName);
    const LintElement* made = index.FindTemplate(skinnedName);
    std::string why =
        node.Attribute("Template") ? "named by its Template attribute" : "named by its type word";
    if (!SameName(skinnedName, templateName))
        why = "the current skin's for " + templateName + ", " + why;
    lines.push_back(made ? "  made from template " + AttributeOf(made, "Name") + " (" + why + ")"
                         : "  made from no template: " + skinnedName + " (" + why +
                               ") is not loaded");
    MergedTemplate merged = index.Merge(made);

    int typeIndex = registry ? registry->FindType(type.c_str()) : -1;
    if (typeIndex < 0) {
        lines.push_back("  keys: the type " + type + " lists none, so they are not shown");
        return lines;
    }
    std::vector<unsigned> types; // the type's bases first
    for (int at = typeIndex; at >= 0 && types.size() < ChainDepth;
         at = registry->BaseType(unsigned(at))
                  ? registry->FindType(registry->BaseType(unsigned(at)))
                  : -1)
        types.insert(types.begin(), unsigned(at));

    lines.push_back("  keys (the node's over the template's):");
    unsigned defaults = 0;
    for (unsigned each : types)
        for (unsigned k = 0; k < registry->KeyCount(each); ++k) {
            const TAVUKeyInfo* info = registry->Key(each, k);
            std::string value, from;
            if (info->Kind == TAVUKeyAttribute) {
                bool own = SameName(info->Name, "Name") || SameName(info->Name, "Template");
                const MergedTemplate::Setting* setting =
                    own ? nullptr : merged.FindAttribute(info->Name);
                if (const LintAttribute* attribute = node.Attribute(info->Name))
                    value = attribute->Value, from = "node";
                else if (setting)
                    value = setting->Attribute->Value, from = "template " + setting->From;
            } else if (const LintElement* key = node.Child(info->Name)) {
                value = ValueOf(*key), from = "node";
            } else if (const MergedTemplate::Key* key = merged.Find(info->Name)) {
                value = ValueOf(*key->Node), from = "template " + key->From;
            }
            if (from.empty())
                ++defaults;
            else
                lines.push_back("    " + std::string(info->Name) + " = " + value + "  (" + from +
                                ")");
        }
    auto unread = [&](const std::string& name, const std::string& value, const std::string& from) {
        if (!registry->FindKey(unsigned(typeIndex), name.c_str()))
            lines.push_back("    " + name + " = " + value + "  (" + from + ", not read by " + type +
                            ")");
    };
    for (const LintAttribute& attribute : node.Attributes)
        unread(attribute.Name, attribute.Value, "node");
    for (const auto& key : node.Children)
        unread(key->Name, ValueOf(*key), "node");
    for (const MergedTemplate::Key& key : merged.Keys)
        if (!node.Child(key.Node->Name.c_str()))
            unread(key.Node->Name, ValueOf(*key.Node), "template " + key.From);
    lines.push_back("  " + std::to_string(defaults) + " other keys read their defaults");
    return lines;
}
