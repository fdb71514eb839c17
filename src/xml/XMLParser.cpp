#include "XMLParser.h"

#include "Platform.h"
#include "StringHelpers.h"
#include "XMLAttribute.h"
#include "XMLBuffer.h"
#include "XMLFile.h"
#include "XMLNode.h"
#include "XMLNumbers.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#if defined(_WIN32)
#include <cwchar>
#else
#include <sys/stat.h>
#endif

namespace {

const char kUnknownError[] = "Unknown Error";
const char kUnexpectedEnd[] = "Unexpected end in attribute %s";
const char kUnknownEntity[] = "UNKNOWN-ENTITY";

// An attribute value fills at most a 4096-byte buffer with its terminator, a
// DOCTYPE literal about half of that; longer ones are refused.
constexpr size_t kMaximumValueBytes = 4095;
constexpr size_t kMaximumLiteralBytes = 2047;
// Located error paths and file names are cut to these sizes.
constexpr size_t kPathBytes = 4096;
constexpr size_t kFileNameUnits = 512;
// Past this many attributes an element looks repeated names up in an index.
constexpr size_t kIndexedAttributes = 16;

// A character reference stands for one byte: only the low 8 bits of its
// number are kept. "x" (lower case only) starts a hexadecimal number.
char ReferenceByte(const char* text) {
    if (text[0] == 'x') {
        char hex[129];
        StrCopyBounded(hex, text + 1, sizeof hex);
        return char(XMLReadHex(StrLower(hex)));
    }
    return char(XMLReadDecimal(text));
}

// Whether two names are equal ignoring ASCII case. A closing tag nearly
// always repeats its opening tag byte for byte, so equal bytes go first.
bool SameName(const char* a, const char* b) {
    for (;; ++a, ++b) {
        unsigned char x = static_cast<unsigned char>(*a);
        unsigned char y = static_cast<unsigned char>(*b);
        if (x == y) {
            if (x == 0) return true;
            continue;
        }
        unsigned char lower = x | 0x20;
        if (lower != (y | 0x20) || lower < 'a' || lower > 'z') return false;
    }
}

std::string LowerCopy(const char* text) {
    std::string lower(text);
    StrLower(lower.data());
    return lower;
}

// UTF-8 for a UTF-16 name; invalid units become replacement characters.
std::string Utf8FromUnits(const WCHAR* units) {
    char name[kFileNameUnits * 3 + 1];
    int bytes = WideCharToMultiByte(CP_UTF8, 0, units, -1, name, sizeof name, nullptr, nullptr);
    return bytes > 0 ? std::string(name) : std::string();
}

// UTF-8 for a wide name as the system's wchar_t holds it.
std::string Utf8FromWide(const wchar_t* name) {
    std::string text;
#if defined(_WIN32)
    text = Utf8FromUnits(name);
#else
    for (; *name; ++name) {
        char32_t cp = char32_t(*name);
        if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = 0xFFFD;
        if (cp < 0x80) {
            text += char(cp);
        } else if (cp < 0x800) {
            text += char(0xC0 | (cp >> 6));
            text += char(0x80 | (cp & 0x3F));
        } else if (cp < 0x10000) {
            text += char(0xE0 | (cp >> 12));
            text += char(0x80 | ((cp >> 6) & 0x3F));
            text += char(0x80 | (cp & 0x3F));
        } else {
            text += char(0xF0 | (cp >> 18));
            text += char(0x80 | ((cp >> 12) & 0x3F));
            text += char(0x80 | ((cp >> 6) & 0x3F));
            text += char(0x80 | (cp & 0x3F));
        }
    }
#endif
    return text;
}

#if !defined(_WIN32)
// A folder opens for reading here but not on Windows: refuse it the same way.
FILE* OpenNarrow(const std::string& name) {
    if (name.empty()) return nullptr;
    FILE* file = fopen(name.c_str(), "rb");
    struct stat status;
    if (file && (fstat(fileno(file), &status) != 0 || S_ISDIR(status.st_mode))) {
        fclose(file);
        return nullptr;
    }
    return file;
}
#endif

FILE* OpenUnits(const WCHAR* name) {
#if defined(_WIN32)
    return _wfopen(name, L"rb");
#else
    return OpenNarrow(Utf8FromUnits(name));
#endif
}

FILE* OpenWide(const wchar_t* name) {
#if defined(_WIN32)
    return _wfopen(name, L"rb");
#else
    return OpenNarrow(Utf8FromWide(name));
#endif
}

// Any three bytes that begin with 0xEF are taken for a byte order mark;
// otherwise the document starts at the first byte.
void SkipByteOrderMark(FILE* file) {
    unsigned char mark[3];
    if (fread(mark, 1, 3, file) != 3 || mark[0] != 0xEF) fseek(file, 0, SEEK_SET);
}

} // namespace

XMLParser::XMLParser(bool keepTree) : KeepTree(keepTree) {
    StrCopyBounded(ErrorText, kUnknownError, sizeof ErrorText);
    LoadDefaultEntities();
}

XMLParser::~XMLParser() {
    DeleteTree();
    delete Stream;
    ClearEntities();
}

void XMLParser::Reset() {
    StrCopyBounded(ErrorText, kUnknownError, sizeof ErrorText);
    DeleteTree();
    delete Stream;
    Stream = nullptr;
    ClearEntities();
    Root = Current = nullptr;
    LoadDefaultEntities();
}

// A tree that nobody changed since the parse lies wholly in the arena's
// chunks, which go at once; visiting a large tree node by node to free it
// costs about as much as a tenth of reading it.
void XMLParser::DeleteTree() {
    if (KeepTree) return;
    if (Root && Arena.Unchanged()) {
        Arena.FreeAll();
        return;
    }
    Arena.LetGo();
    delete Root;
}

void XMLParser::SetErrorText(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(ErrorText, sizeof ErrorText, format, arguments);
    va_end(arguments);
}

void XMLParser::LoadDefaultEntities() {
    SetEntity("lt", "<");
    SetEntity("gt", ">");
    SetEntity("amp", "&");
    SetEntity("apos", "'");
    SetEntity("quot", "\"");
}

void XMLParser::ClearEntities() {
    for (auto& entity : Entities)
        StrFree(entity.second);
    Entities.clear();
}

void XMLParser::SetEntity(const char* name, const char* value) {
    char*& stored = Entities[name];
    StrFree(stored);
    stored = StrDuplicate(value);
}

// A file document knows its own name as &filename; (with forward slashes) and
// its folder as &filepath;.
void XMLParser::SetFileEntities(const char* fileName) {
    char name[kFileNameUnits + 1];
    StrCopyBounded(name, fileName, sizeof name);
    for (char* c = name; *c; ++c)
        if (*c == '\\') *c = '/';
    SetEntity("filename", name);
    if (char* slash = strrchr(name, '/')) {
        *slash = 0;
        SetEntity("filepath", name);
    }
}

bool XMLParser::ParseFile(const char* fileName) {
    if (Root) return false;
    if (!fileName) fileName = "";
    WCHAR wide[kFileNameUnits];
    FILE* file = nullptr;
    if (MultiByteToWideChar(CP_UTF8, 0, fileName, -1, wide, int(kFileNameUnits)) > 0)
        file = OpenUnits(wide);
    if (!file) {
        SetErrorText("Could not open file '%s'", fileName);
        return false;
    }
    SetFileEntities(fileName);
    SkipByteOrderMark(file);
    bool parsed = ParseStream(new XMLFile(this, file));
    fclose(file);
    return parsed;
}

bool XMLParser::ParseFile(const wchar_t* fileName) {
    if (Root) return false;
    if (!fileName) fileName = L"";
    std::string narrow = Utf8FromWide(fileName);
    FILE* file = OpenWide(fileName);
    if (!file) {
        SetErrorText("Could not open file '%s'", narrow.c_str());
        return false;
    }
    SetFileEntities(narrow.c_str());
    SkipByteOrderMark(file);
    bool parsed = ParseStream(new XMLFile(this, file));
    fclose(file);
    return parsed;
}

bool XMLParser::ParseBuffer(const char* text, size_t length) {
    if (Root) return false;
    if (!text) text = "";
    if (length == 0) length = strlen(text);
    return ParseStream(new XMLBuffer(this, text, length));
}

bool XMLParser::ParseStream(XMLStream* stream) {
    Stream = stream;
    bool parsed = Parse();
    Stream = nullptr;
    // A later document never shares a chunk with this one, and a tree that the
    // caller takes over frees its chunks as its nodes go.
    Arena.Retire();
    if (KeepTree) Arena.LetGo();
    delete stream;
    return parsed;
}

// Called for every token: kept inline.
inline bool XMLParser::Next() {
    return Stream->Next(Token);
}

bool XMLParser::NextSkippingSpace() {
    do {
        if (!Next()) return false;
    } while (Token.IsSpace());
    return true;
}

// The document loop. An element's content is read in the same loop rather
// than by recursion, so the depth of a document costs no stack: Current is the
// open element, and the root means that the loop is between top-level nodes.
bool XMLParser::Parse() {
    if (!Next()) return false;
    static const char kRootName[] = "DOCUMENT ROOT";
    Root = XMLNode::Create(nullptr, kRootName, sizeof kRootName - 1, XMLNode::DocumentRoot, &Arena);
    Current = Root;
    Text.clear();
    IndexedNode = nullptr;
    for (;;) {
        TagResult result = TagDone;
        if (Current != Root) {
            if (!ReadContent(result)) return false;
        } else if (Token.Kind == XMLToken::LessThan) {
            result = ReadTag();
        } else if (!Token.IsSpace()) {
            SetErrorText("Bad text outside elements: %s", Token.Text);
            return false;
        }
        if (result == TagFailed) return false;
        // An opened element has already read its first content token.
        if (result == TagOpened) continue;
        if (!NextAfterMarkup()) return Current == Root && !Stream->Failed();
    }
}

// Inside an element, the plain text in front of the next token goes to Text
// at once, as its tokens would one by one.
bool XMLParser::NextAfterMarkup() {
    if (Current != Root) Stream->TakePlainText(Text);
    return Next();
}

// One token of an element's content. Text and references collect into one
// text node until the next tag.
bool XMLParser::ReadContent(TagResult& result) {
    result = TagDone;
    switch (Token.Kind) {
    case XMLToken::LessThan:
        FlushText();
        result = ReadTag();
        return result != TagFailed;
    case XMLToken::Ampersand:
        return ReadContentReference();
    default:
        Text.append(Token.Text, Token.Length);
        Stream->TakePlainText(Text);
        return true;
    }
}

void XMLParser::FlushText() {
    if (Text.empty()) return;
    XMLNode::Create(Current, Text.data(), Text.size(), XMLNode::Text, &Arena);
    Text.clear();
}

void XMLParser::AppendEntity(const char* name, std::string& out) {
    auto found = Entities.find(std::string_view(name));
    out += found != Entities.end() ? found->second : kUnknownEntity;
}

void XMLParser::AppendReference(const char* text, std::string& out) {
    char byte = ReferenceByte(text);
    if (byte) out += byte;
}

bool XMLParser::ReadContentReference() {
    if (!Next()) return false;
    if (Token.Kind == XMLToken::Hash) {
        if (!Next()) return false;
        AppendReference(Token.Text, Text);
    } else {
        AppendEntity(Token.Text, Text);
    }
    if (!Next()) return false;
    return Token.Kind == XMLToken::Semicolon;
}

XMLParser::TagResult XMLParser::ReadTag() {
    // A name that the stream holds whole goes into its node without a token.
    size_t length;
    if (const char* name = Stream->PeekWord(length)) {
        XMLNode* node = XMLNode::Create(Current, name, length, XMLNode::Element, &Arena);
        Stream->Skip(length);
        return ReadElement(node);
    }
    if (!NextSkippingSpace()) return TagFailed;
    switch (Token.Kind) {
    case XMLToken::Question:
        return ReadProcessingInstruction() ? TagDone : TagFailed;
    case XMLToken::Exclamation:
        return ReadBang() ? TagDone : TagFailed;
    case XMLToken::Word:
        return ReadElement(
            XMLNode::Create(Current, Token.Text, Token.Length, XMLNode::Element, &Arena));
    case XMLToken::Slash:
        return ReadClosingTag();
    default:
        return TagFailed;
    }
}

// An opening tag. A "/" anywhere in it makes the element self-closing, and the
// ">" that ends such a tag is left for the caller to step over.
XMLParser::TagResult XMLParser::ReadElement(XMLNode* node) {
    bool selfClosing = false;
    for (;;) {
        if (!Next()) return TagFailed;
        switch (Token.Kind) {
        case XMLToken::Word:
            if (!ReadAttribute(node)) return TagFailed;
            continue;
        case XMLToken::Slash:
            selfClosing = true;
            continue;
        case XMLToken::LineSpace:
        case XMLToken::Blank:
            continue;
        case XMLToken::GreaterThan:
            break;
        default:
            SetErrorText("Bad token '%s' in tag", Token.Text);
            return TagFailed;
        }
        break;
    }
    if (selfClosing) return TagDone;
    Current = node;
    return NextAfterMarkup() ? TagOpened : TagFailed;
}

// A closing tag reads only the name; the token after it, normally the ">", is
// stepped over by the caller unseen.
XMLParser::TagResult XMLParser::ReadClosingTag() {
    // A name with the very bytes of the open element's, held whole, is
    // stepped over without a token: a closing tag nearly always repeats its
    // opening tag.
    size_t length;
    const char* name = Current->Parent ? Stream->PeekWord(length) : nullptr;
    if (name && strncmp(name, Current->Name, length) == 0 && Current->Name[length] == 0) {
        Stream->Skip(length);
        Current = Current->Parent;
        return Next() ? TagDone : TagFailed;
    }
    if (!Next()) return TagFailed;
    if (!Current->Parent) return TagFailed;
    if (!SameName(Token.Text, Current->Name)) {
        SetErrorText("Closing element %s, expected %s", Token.Text, Current->Name);
        return TagFailed;
    }
    Current = Current->Parent;
    return Next() ? TagDone : TagFailed;
}

// The attribute's error report names where it stands: the owning node's name
// and those of its ancestors, joined by "@", in front of the message.
bool XMLParser::FailAt(XMLNode* node, const char* format) {
    char message[ErrorTextSize];
    snprintf(message, sizeof message, format, Name.c_str());
    if (!node) {
        StrCopyBounded(ErrorText, message, sizeof ErrorText);
        return false;
    }
    char path[kPathBytes];
    size_t used = 0;
    for (XMLNode* step = node; step && used + 1 < sizeof path; step = step->Parent) {
        if (step != node) used += StrCopyBounded(path + used, "@", sizeof path - used);
        used += StrCopyBounded(path + used, step->Name, sizeof path - used);
    }
    path[used] = 0;
    SetErrorText("%s: %s", path, message);
    return false;
}

bool XMLParser::ReadAttribute(XMLNode* node) {
    Name.assign(Token.Text, Token.Length);
    if (!Next()) return FailAt(node, kUnexpectedEnd);
    while (Token.IsSpace())
        if (!Next()) return false;
    if (Token.Kind != XMLToken::Equals) return false;
    if (!Next()) return FailAt(node, kUnexpectedEnd);
    while (Token.IsSpace())
        if (!Next()) return false;
    if (Token.Kind != XMLToken::DoubleQuote && Token.Kind != XMLToken::SingleQuote)
        return FailAt(node, "Invalid quote type in attribute %s");
    return ReadAttributeValue(node, Token.Kind);
}

// Everything up to the matching quote is the value, markup characters and the
// other quote included; references are resolved as in content.
bool XMLParser::ReadAttributeValue(XMLNode* node, int32_t quote) {
    Value.clear();
    if (!Next()) return FailAt(node, kUnexpectedEnd);
    while (Token.Kind != quote) {
        if (Token.Kind == XMLToken::Ampersand) {
            if (!ReadAttributeReference(node)) return false;
        } else {
            Value.append(Token.Text, Token.Length);
        }
        if (Value.size() > kMaximumValueBytes)
            return FailAt(node, "Value longer than 4095 bytes in attribute %s");
        if (!Next()) return FailAt(node, kUnexpectedEnd);
    }
    StoreAttribute(node, Name.c_str(), Value.c_str());
    return true;
}

bool XMLParser::ReadAttributeReference(XMLNode* node) {
    if (!Next()) return false;
    if (Token.Kind == XMLToken::Hash) {
        if (!Next()) return FailAt(node, kUnexpectedEnd);
        AppendReference(Token.Text, Value);
    } else {
        AppendEntity(Token.Text, Value);
    }
    if (!Next()) return FailAt(node, kUnexpectedEnd);
    if (Token.Kind != XMLToken::Semicolon)
        return FailAt(node, "Expected ; in XML entity in attribute %s");
    return true;
}

// Behaves as XMLNode::SetAttribute: a repeated name keeps its first place and
// takes the last value.
void XMLParser::StoreAttribute(XMLNode* node, const char* name, const char* value) {
    if (node != IndexedNode) {
        IndexedNode = node;
        AttributeIndex.clear();
        IndexedTail = nullptr;
    }
    if (!IndexedTail) {
        size_t count = 0;
        XMLAttribute* last = nullptr;
        for (XMLAttribute* a = node->FirstAttribute; a; a = a->Next, ++count) {
            if (SameName(a->Name, name)) {
                a->SetValue(value);
                return;
            }
            last = a;
        }
        if (count + 1 < kIndexedAttributes) {
            XMLAttribute* added = XMLAttribute::Create(name, value, &Arena);
            if (last)
                last->Next = added;
            else
                node->FirstAttribute = added;
            return;
        }
        for (XMLAttribute* a = node->FirstAttribute; a; a = a->Next) {
            AttributeIndex.emplace(LowerCopy(a->Name), a);
            IndexedTail = a;
        }
    }
    std::string key = LowerCopy(name);
    auto found = AttributeIndex.find(key);
    if (found != AttributeIndex.end()) {
        found->second->SetValue(value);
        return;
    }
    XMLAttribute* added = XMLAttribute::Create(name, value, &Arena);
    IndexedTail->Next = added;
    IndexedTail = added;
    AttributeIndex.emplace(std::move(key), added);
}

bool XMLParser::ReadBang() {
    if (!Next()) return false;
    switch (Token.Kind) {
    case XMLToken::Hyphen:
        return ReadComment();
    case XMLToken::LeftBracket:
        if (!Next()) return false;
        // "<![CDATA[" reaches here only when the tokeniser could not see the
        // whole section, i.e. near the end of the input: it fails quietly.
        if (strcmp(Token.Text, "CDATA") == 0) return false;
        SetErrorText("Unrecognized <![ tag: %s", Token.Text);
        return false;
    case XMLToken::Word:
        break;
    default:
        return false;
    }
    if (StrCompareNoCase(Token.Text, "DOCTYPE") == 0) return ReadDoctype();
    if (StrCompareNoCase(Token.Text, "ATTLIST") == 0)
        SetErrorText("ParseExAttlist not implemented");
    else if (StrCompareNoCase(Token.Text, "ELEMENT") == 0)
        SetErrorText("ParseExElement not implemented");
    else if (StrCompareNoCase(Token.Text, "ENTITY") == 0)
        SetErrorText("ParseExEntity not implemented");
    else if (StrCompareNoCase(Token.Text, "NOTATION") == 0)
        SetErrorText("ParseExNotation not implemented");
    else
        SetErrorText("Unrecognized <! tag: %s", Token.Text);
    return false;
}

// A comment ends at "-->". The hyphens that this test reads are dropped, and
// the token that ends a failed test is kept, so "a-b" is stored as "ab".
bool XMLParser::ReadComment() {
    if (!Next()) return false;
    if (Token.Kind != XMLToken::Hyphen) {
        SetErrorText("Badly formed comment");
        return false;
    }
    if (!NextSkippingSpace()) return false;
    Text.clear();
    for (;;) {
        if (Token.Kind == XMLToken::Hyphen) {
            if (!Next()) return false;
            if (Token.Kind == XMLToken::Hyphen) {
                if (!Next()) return false;
                if (Token.Kind == XMLToken::GreaterThan) break;
            }
        }
        Text.append(Token.Text, Token.Length);
        if (!Next()) return false;
    }
    XMLNode::Create(Current, Text.data(), Text.size(), XMLNode::Comment, &Arena);
    Text.clear();
    return true;
}

// Collects the tokens up to the next double quote into Text, starting with the
// current token or the one after it.
bool XMLParser::ReadDoctypeLiteral(bool startWithCurrent) {
    Text.clear();
    if (!startWithCurrent && !Next()) return false;
    while (Token.Kind != XMLToken::DoubleQuote) {
        Text.append(Token.Text, Token.Length);
        if (Text.size() > kMaximumLiteralBytes) {
            SetErrorText("DOCTYPE literal longer than 2047 bytes");
            return false;
        }
        if (!Next()) return false;
    }
    return true;
}

// <!DOCTYPE name PUBLIC "id" "uri"> or <!DOCTYPE name SYSTEM "uri">. A second
// PUBLIC literal that starts with its quote is taken as empty on the spot and
// its text is left in the stream; documents depend on that reading.
bool XMLParser::ReadDoctype() {
    if (!NextSkippingSpace()) return false;
    if (Token.Kind != XMLToken::Word) return false;
    XMLNode* node = XMLNode::Create(Current, Token.Text, Token.Length, XMLNode::Doctype, &Arena);
    if (!NextSkippingSpace()) return false;
    if (Token.Kind == XMLToken::LeftBracket) {
        SetErrorText("DOCTYPE internal subset not currently supported");
        return false;
    }
    bool isPublic = StrCompareNoCase(Token.Text, "PUBLIC") == 0;
    if (!isPublic && StrCompareNoCase(Token.Text, "SYSTEM") != 0) {
        SetErrorText("DOCTYPE Unknown DTD type: %s", Token.Text);
        return false;
    }
    StoreAttribute(node, "type", isPublic ? "PUBLIC" : "SYSTEM");
    if (!NextSkippingSpace()) return false;
    if (Token.Kind != XMLToken::DoubleQuote) {
        SetErrorText("Badly formed DOCTYPE tag");
        return false;
    }
    if (!ReadDoctypeLiteral(false)) return false;
    if (isPublic) {
        StoreAttribute(node, "PubidLiteral", Text.c_str());
        if (!NextSkippingSpace()) return false;
        if (Token.Kind == XMLToken::DoubleQuote)
            Text.clear();
        else if (!ReadDoctypeLiteral(true))
            return false;
    }
    StoreAttribute(node, "SystemLiteral", Text.c_str());
    Text.clear();
    if (!NextSkippingSpace()) return false;
    if (Token.Kind == XMLToken::GreaterThan) return true;
    if (StrCompareNoCase(Token.Text, "NDATA") != 0) return false;
    if (!NextSkippingSpace()) return false;
    StoreAttribute(node, "NDATA", Token.Text);
    if (!NextSkippingSpace()) return false;
    return Token.Kind == XMLToken::GreaterThan;
}

// <?target name="value" ...?>; the "?" before the ">" may be left out.
bool XMLParser::ReadProcessingInstruction() {
    if (!NextSkippingSpace()) return false;
    if (Token.Kind != XMLToken::Word) return false;
    XMLNode* node =
        XMLNode::Create(Current, Token.Text, Token.Length, XMLNode::ProcessingInstruction, &Arena);
    for (;;) {
        if (!Next()) return false;
        switch (Token.Kind) {
        case XMLToken::Word:
            if (!ReadAttribute(node)) return false;
            break;
        case XMLToken::GreaterThan:
            return true;
        case XMLToken::Question:
        case XMLToken::LineSpace:
        case XMLToken::Blank:
            break;
        default:
            SetErrorText("Bad token in ? Tag: %s", Token.Text);
            return false;
        }
    }
}
