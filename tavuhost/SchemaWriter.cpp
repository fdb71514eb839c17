#include "SchemaWriter.h"

#include <cctype>
#include <set>

namespace {

std::string Escaped(const char* text) {
    std::string out;
    for (; text && *text; ++text) {
        switch (*text) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += *text;
        }
    }
    return out;
}

std::string Documentation(const char* text, const char* indent) {
    return std::string(indent) + "<xs:annotation><xs:documentation>" + Escaped(text) +
           "</xs:documentation></xs:annotation>\n";
}

std::string Lower(const char* text) {
    std::string lower(text);
    for (char& c : lower)
        c = char(std::tolower((unsigned char)c));
    return lower;
}

// The element types, each as an element of that tag: what "Children" and the
// contents node hold.
std::string TypeChoices(const TAVUKeyRegistryTable& registry, const char* indent) {
    std::string out;
    for (unsigned type = 1; type < registry.TypeCount(); ++type)
        out += std::string(indent) + "<xs:element name=\"" + registry.TypeName(type) +
               "\" type=\"type." + registry.TypeName(type) + "\"/>\n";
    return out;
}

// The type's keys with those of its bases, nearest first, each once.
std::string TypeDefinition(const TAVUKeyRegistryTable& registry, unsigned type) {
    std::string elements, attributes;
    std::set<std::string> seen;
    for (int at = int(type); at >= 0; at = registry.FindType(registry.BaseType(unsigned(at)))) {
        for (unsigned i = 0; i < registry.KeyCount(unsigned(at)); ++i) {
            const TAVUKeyInfo* key = registry.Key(unsigned(at), i);
            if (!seen.insert(key->Name).second) continue;
            std::string kind = registry.KindName(key->Kind);
            std::string doc = Documentation((kind + ": " + key->Documentation).c_str(), "        ");
            if (key->Kind == TAVUKeyAttribute) {
                // Authors write the name in either case; both spellings are allowed.
                for (const std::string& name : std::set<std::string>{key->Name, Lower(key->Name)})
                    attributes += "    <xs:attribute name=\"" + name + "\" type=\"xs:string\">\n" +
                                  doc + "    </xs:attribute>\n";
                continue;
            }
            const char* valueType = key->Kind == TAVUKeyChildren ? "Children" : "Value";
            elements += "      <xs:element name=\"" + std::string(key->Name) + "\" type=\"" +
                        valueType + "\">\n" + "  " + doc + "      </xs:element>\n";
        }
        if (!registry.BaseType(unsigned(at))) break;
    }
    return std::string("  <xs:complexType name=\"type.") + registry.TypeName(type) + "\">\n" +
           Documentation(registry.TypeDocumentation(type), "    ") +
           "    <xs:choice minOccurs=\"0\" maxOccurs=\"unbounded\">\n" + elements +
           "    </xs:choice>\n" + attributes + "  </xs:complexType>\n";
}

} // namespace

std::string SchemaWriter::Write(const TAVUKeyRegistryTable& registry, const std::string& prefix) {
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n";
    out += "  <xs:element name=\"" + Escaped(prefix.c_str()) + "\">\n" +
           Documentation("An interface file: templates, skins and elements.", "    ") +
           "    <xs:complexType>\n      <xs:choice minOccurs=\"0\" maxOccurs=\"unbounded\">\n"
           "        <xs:element name=\"Template\" type=\"Value\"/>\n"
           "        <xs:element name=\"Skin\" type=\"Value\"/>\n" +
           TypeChoices(registry, "        ") +
           "      </xs:choice>\n    </xs:complexType>\n  </xs:element>\n";
    out += "  <xs:complexType name=\"Children\">\n"
           "    <xs:choice minOccurs=\"0\" maxOccurs=\"unbounded\">\n" +
           TypeChoices(registry, "      ") + "    </xs:choice>\n  </xs:complexType>\n";
    // A key's value is text or a structure of its own (a texture, a font, a
    // list of items), whose parts the registry does not describe.
    out += "  <xs:complexType name=\"Value\" mixed=\"true\">\n"
           "    <xs:sequence>\n"
           "      <xs:any minOccurs=\"0\" maxOccurs=\"unbounded\" processContents=\"skip\"/>\n"
           "    </xs:sequence>\n"
           "    <xs:anyAttribute processContents=\"skip\"/>\n"
           "  </xs:complexType>\n";
    for (unsigned type = 1; type < registry.TypeCount(); ++type)
        out += TypeDefinition(registry, type);
    return out + "</xs:schema>\n";
}
