#include "LintDocument.h"

#include <cctype>
#include <cstring>

namespace {

bool SameName(const std::string& a, const char* b) {
    size_t i = 0;
    for (; i < a.size() && b[i]; ++i)
        if (std::tolower((unsigned char)a[i]) != std::tolower((unsigned char)b[i])) return false;
    return i == a.size() && !b[i];
}

// Walks the text keeping the line and column of the next character.
class Cursor {
public:
    explicit Cursor(const std::string& text) : Text(text) {}

    bool AtEnd() const { return At >= Text.size(); }
    char Peek(size_t ahead = 0) const { return At + ahead < Text.size() ? Text[At + ahead] : '\0'; }
    bool StartsWith(const char* word) const { return Text.compare(At, strlen(word), word) == 0; }
    LintPlace Place() const { return Here; }

    void Advance(size_t count = 1) {
        for (; count && At < Text.size(); --count, ++At) {
            if (Text[At] == '\n') {
                ++Here.Line;
                Here.Column = 1;
            } else {
                ++Here.Column;
            }
        }
    }
    // Moves past the next occurrence of end, or to the end of the text.
    std::string SkipPast(const char* end) {
        size_t found = Text.find(end, At);
        size_t stop = found == std::string::npos ? Text.size() : found;
        std::string skipped = Text.substr(At, stop - At);
        Advance(stop - At + (found == std::string::npos ? 0 : strlen(end)));
        return skipped;
    }
    void SkipSpace() {
        while (!AtEnd() && std::isspace((unsigned char)Peek()))
            Advance();
    }
    std::string Name() {
        std::string name;
        while (!AtEnd() && !std::isspace((unsigned char)Peek()) && !strchr("/>=<", Peek())) {
            name += Peek();
            Advance();
        }
        return name;
    }

private:
    const std::string& Text;
    size_t At = 0;
    LintPlace Here;
};

std::string DecodeEntities(const std::string& text) {
    static const struct {
        const char* Entity;
        char Character;
    } kEntities[] = {
        {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}};
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        bool replaced = false;
        for (const auto& entity : kEntities)
            if (text.compare(i, strlen(entity.Entity), entity.Entity) == 0) {
                out += entity.Character;
                i += strlen(entity.Entity) - 1;
                replaced = true;
                break;
            }
        if (!replaced) out += text[i];
    }
    return out;
}

void AddText(LintElement* element, const std::string& text, LintPlace place) {
    if (!element) return;
    if (element->Text.empty()) element->TextPlace = place;
    element->Text += text;
}

// Reads the attributes and the end of a start tag; answers whether the tag
// closed itself.
bool ReadTagRest(Cursor& cursor, LintElement& element) {
    for (;;) {
        cursor.SkipSpace();
        if (cursor.AtEnd()) return true;
        if (cursor.StartsWith("/>")) {
            cursor.Advance(2);
            return true;
        }
        if (cursor.Peek() == '>') {
            cursor.Advance();
            return false;
        }
        LintAttribute attribute;
        attribute.Place = cursor.Place();
        attribute.Name = cursor.Name();
        if (attribute.Name.empty()) {
            cursor.Advance(); // a stray character: the check before us reports it
            continue;
        }
        cursor.SkipSpace();
        if (cursor.Peek() == '=') {
            cursor.Advance();
            cursor.SkipSpace();
            char quote = cursor.Peek();
            if (quote == '"' || quote == '\'') {
                cursor.Advance();
                const char end[2] = {quote, '\0'};
                attribute.Value = DecodeEntities(cursor.SkipPast(end));
            }
        }
        element.Attributes.push_back(std::move(attribute));
    }
}

} // namespace

const LintAttribute* LintElement::Attribute(const char* name) const {
    for (const LintAttribute& attribute : Attributes)
        if (SameName(attribute.Name, name)) return &attribute;
    return nullptr;
}

const LintElement* LintElement::Child(const char* name) const {
    for (const auto& child : Children)
        if (SameName(child->Name, name)) return child.get();
    return nullptr;
}

std::unique_ptr<LintElement> LintDocument::Read(const std::string& text) {
    Cursor cursor(text);
    std::unique_ptr<LintElement> root;
    std::vector<LintElement*> open;
    while (!cursor.AtEnd()) {
        LintElement* current = open.empty() ? nullptr : open.back();
        if (cursor.StartsWith("<!--")) {
            cursor.SkipPast("-->");
        } else if (cursor.StartsWith("<![CDATA[")) {
            cursor.Advance(9);
            LintPlace place = cursor.Place();
            AddText(current, cursor.SkipPast("]]>"), place);
        } else if (cursor.StartsWith("<?") || cursor.StartsWith("<!")) {
            cursor.SkipPast(">");
        } else if (cursor.StartsWith("</")) {
            cursor.SkipPast(">");
            if (!open.empty()) open.pop_back();
        } else if (cursor.Peek() == '<') {
            auto element = std::make_unique<LintElement>();
            element->Place = cursor.Place();
            cursor.Advance();
            element->Name = cursor.Name();
            bool closed = ReadTagRest(cursor, *element);
            LintElement* made = element.get();
            if (current)
                current->Children.push_back(std::move(element));
            else if (!root)
                root = std::move(element);
            else
                continue; // a second root: the check before us reports it
            if (!closed) open.push_back(made);
        } else {
            LintPlace place = cursor.Place();
            std::string run;
            while (!cursor.AtEnd() && cursor.Peek() != '<') {
                run += cursor.Peek();
                cursor.Advance();
            }
            AddText(current, DecodeEntities(run), place);
        }
    }
    return root;
}
