#include "XmlCheck.h"

#include "HostText.h"

#include <cctype>
#include <cstring>
#include <vector>

namespace {

// Tags open deeper than this are reported rather than remembered.
const size_t MaxDepth = 4096;

struct OpenTag {
    std::string Name;
    int Line;
};

class Scanner {
public:
    explicit Scanner(const std::string& text) : Text(text) {}

    bool Run(XmlProblem& problem) {
        while (At < Text.size()) {
            if (Text[At] != '<') {
                Step();
                continue;
            }
            if (!Markup()) break;
        }
        if (Error.Message.empty() && !Open.empty())
            Fail(Open.back().Line, "<" + Open.back().Name + "> is never closed");
        if (Error.Message.empty()) return true;
        problem = Error;
        return false;
    }

private:
    void Step() {
        if (Text[At] == '\n') ++Line;
        ++At;
    }
    bool StartsWith(const char* word) const { return Text.compare(At, strlen(word), word) == 0; }
    bool Fail(int line, const std::string& message) {
        Error.Line = line;
        Error.Message = message;
        return false;
    }
    // Moves past the next END; false at the end of the text.
    bool SkipPast(const char* end) {
        size_t length = strlen(end);
        while (At < Text.size() && Text.compare(At, length, end) != 0)
            Step();
        if (At >= Text.size()) return false;
        At += length;
        return true;
    }
    std::string Name() {
        size_t start = At;
        while (At < Text.size() && !isspace(static_cast<unsigned char>(Text[At])) &&
               Text[At] != '>' && Text[At] != '/')
            ++At;
        return Text.substr(start, At - start);
    }

    bool Markup() {
        int line = Line;
        if (StartsWith("<!--"))
            return SkipPast("-->") || Fail(line, "a comment is never closed ('-->' is missing)");
        if (StartsWith("<![CDATA["))
            return SkipPast("]]>") || Fail(line, "a CDATA section is never closed");
        if (StartsWith("<?"))
            return SkipPast("?>") || Fail(line, "a declaration is never closed ('?>' is missing)");
        if (StartsWith("<!")) return SkipPast(">") || Fail(line, "'<!' is never closed");
        ++At;
        bool closing = At < Text.size() && Text[At] == '/';
        if (closing) ++At;
        std::string name = Name();
        if (name.empty()) return Fail(line, "'<' starts no tag");
        bool empty = false;
        if (!TagEnd(line, name, empty)) return false;
        if (closing) return Close(line, name);
        if (empty) return true;
        if (Open.size() >= MaxDepth) return Fail(line, "tags nest too deeply");
        Open.push_back({name, line});
        return true;
    }

    // The rest of a tag: attributes with quoted values, then '>' or "/>".
    bool TagEnd(int line, const std::string& name, bool& empty) {
        while (At < Text.size()) {
            char c = Text[At];
            if (c == '>') return ++At, true;
            if (c == '/' && At + 1 < Text.size() && Text[At + 1] == '>') {
                empty = true;
                At += 2;
                return true;
            }
            if (c == '<')
                return Fail(Line, "<" + name + " (line " + std::to_string(line) +
                                      ") is not closed with '>'");
            if (c == '"' || c == '\'') {
                int quoteLine = Line;
                Step();
                char quote[2] = {c, 0};
                if (!SkipPast(quote)) return Fail(quoteLine, "a quoted value is never closed");
                continue;
            }
            Step();
        }
        return Fail(line, "<" + name + " is not closed with '>'");
    }

    bool Close(int line, const std::string& name) {
        if (Open.empty()) return Fail(line, "</" + name + "> closes nothing");
        const OpenTag& open = Open.back();
        if (!SameName(open.Name, name))
            return Fail(line, "</" + name + "> closes <" + open.Name + "> of line " +
                                  std::to_string(open.Line));
        Open.pop_back();
        return true;
    }

    const std::string& Text;
    size_t At = 0;
    int Line = 1;
    std::vector<OpenTag> Open;
    XmlProblem Error;
};

} // namespace

bool XmlCheck::Check(const std::string& text, XmlProblem& problem) {
    Scanner scanner(text);
    return scanner.Run(problem);
}
