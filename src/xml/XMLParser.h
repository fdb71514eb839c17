// Reads one XML document, from a file or from text in memory, into a tree of
// XMLNode objects, and keeps one readable text that says why a read failed.
//
// The reader is forgiving and non-validating, and its small habits are part of
// the interface file format: tags match ignoring case, "-" always ends a name,
// a character reference gives one byte, an unknown entity reads as
// "UNKNOWN-ENTITY", and a CDATA section keeps its "<![CDATA[" opener.
#pragma once

#include "TavuExport.h"
#include "XMLArena.h"
#include "XMLToken.h"

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>

class XMLAttribute;
class XMLNode;
class XMLStream;

class TAVU_API XMLParser {
public:
    static constexpr size_t ErrorTextSize = 2048;

    // With keepTree false the parser deletes its tree when it is reset or
    // destroyed; with true the caller has taken the tree over.
    explicit XMLParser(bool keepTree = false);
    XMLParser(const XMLParser&) = delete;
    XMLParser& operator=(const XMLParser&) = delete;
    ~XMLParser();

    // The name is UTF-8. A file document may use &filename; and &filepath;.
    bool ParseFile(const char* fileName);
    bool ParseFile(const wchar_t* fileName);
    // A length of 0 means that the text ends at its zero byte.
    bool ParseBuffer(const char* text, size_t length);
    // Forgets the document, the error and any entities but the default ones.
    void Reset();

    // Formats ErrorText, cut to its size.
    void SetErrorText(const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 2, 3)))
#endif
        ;

    XMLNode* Root = nullptr;
    XMLNode* Current = nullptr;
    bool KeepTree;
    // Entity names compare byte by byte, so they are case-sensitive.
    std::map<std::string, char*, std::less<>> Entities;
    char ErrorText[ErrorTextSize];
    XMLStream* Stream = nullptr;

private:
    enum TagResult { TagFailed, TagDone, TagOpened };

    XMLToken Token;
    XMLArena Arena;      // nodes and attributes of the document being read
    std::string Text;    // content, comment or literal being collected
    std::string Value;   // attribute value being collected
    std::string Name;    // attribute name
    std::string Message; // located error message

    // Lets an element with very many attributes find a repeated name without
    // searching its whole chain each time.
    std::unordered_map<std::string, XMLAttribute*> AttributeIndex;
    XMLNode* IndexedNode = nullptr;
    XMLAttribute* IndexedTail = nullptr;

    void DeleteTree();
    void LoadDefaultEntities();
    void ClearEntities();
    void SetEntity(const char* name, const char* value);
    void SetFileEntities(const char* fileName);
    bool ParseStream(XMLStream* stream);
    bool Parse();

    bool Next();
    bool NextSkippingSpace();
    bool NextAfterMarkup();
    TagResult ReadTag();
    TagResult ReadElement(XMLNode* node);
    TagResult ReadClosingTag();
    bool ReadContent(TagResult& result);
    bool ReadContentReference();
    bool ReadAttribute(XMLNode* node);
    bool ReadAttributeReference(XMLNode* node);
    bool ReadAttributeValue(XMLNode* node, int32_t quote);
    void StoreAttribute(XMLNode* node, const char* name, const char* value);
    bool ReadBang();
    bool ReadComment();
    bool ReadDoctype();
    bool ReadDoctypeLiteral(bool startWithCurrent);
    bool ReadProcessingInstruction();
    void FlushText();
    void AppendEntity(const char* name, std::string& out);
    void AppendReference(const char* text, std::string& out);
    bool FailAt(XMLNode* node, const char* format);
};
