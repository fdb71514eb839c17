#include "SequenceResolver.h"

#include "HostText.h"
#include "ScriptEngine.h"

#include <memory>

namespace {

// Sequences nest this deep at most; deeper ones read as NULL.
enum { MaxDepth = 32 };

bool OpensSequence(const std::string& text, size_t at) {
    return text[at] == '$' && at + 1 < text.size() && text[at + 1] == '{';
}

// The position just past the group that opens at `start` (a quote, a bracket
// or "${"), or npos when it is not closed. Iterative, so that deep nesting in
// hostile text costs memory, not stack.
size_t GroupEnd(const std::string& text, size_t start) {
    std::string closers;
    size_t at = start;
    do {
        char c = text[at];
        if (!closers.empty() && closers.back() == '"') {
            if (c == '\\' && at + 1 < text.size()) {
                at += 2;
                continue;
            }
            if (c == '"') closers.pop_back();
            ++at;
        } else if (c == '"') {
            closers += '"', ++at;
        } else if (c == '[') {
            closers += ']', ++at;
        } else if (OpensSequence(text, at)) {
            closers += '}', at += 2;
        } else {
            if (!closers.empty() && c == closers.back()) closers.pop_back();
            ++at;
        }
    } while (!closers.empty() && at < text.size());
    return closers.empty() ? at : std::string::npos;
}

bool OpensGroup(const std::string& text, size_t at) {
    return text[at] == '"' || text[at] == '[' || OpensSequence(text, at);
}

// Arguments as the C-style vector that handlers take, ending with a null.
struct ArgumentVector {
    explicit ArgumentVector(std::vector<std::string> words) : Words(std::move(words)) {
        for (std::string& word : Words)
            Pointers.push_back(word.data());
        Pointers.push_back(nullptr);
    }
    int Count() const { return int(Words.size()); }
    char** Values() { return Pointers.data(); }

    std::vector<std::string> Words;
    std::vector<char*> Pointers;
};

} // namespace

size_t SequenceResolver::FindOutside(const std::string& text, char wanted, size_t start) {
    for (size_t at = start; at < text.size();) {
        if (text[at] == wanted) return at;
        if (OpensGroup(text, at)) {
            size_t end = GroupEnd(text, at);
            if (end == std::string::npos) return std::string::npos;
            at = end;
        } else {
            ++at;
        }
    }
    return std::string::npos;
}

std::vector<std::string> SequenceResolver::SplitWords(const std::string& line) {
    std::vector<std::string> words;
    size_t at = 0;
    while (at < line.size()) {
        while (at < line.size() && (line[at] == ' ' || line[at] == '\t'))
            ++at;
        if (at >= line.size()) break;
        size_t start = at;
        while (at < line.size() && line[at] != ' ' && line[at] != '\t') {
            if (OpensGroup(line, at)) {
                size_t end = GroupEnd(line, at);
                at = end == std::string::npos ? line.size() : end;
            } else {
                ++at;
            }
        }
        words.push_back(line.substr(start, at - start));
    }
    return words;
}

std::string SequenceResolver::Argument(const std::string& word, int depth) {
    std::string out;
    bool quoted = false;
    for (size_t at = 0; at < word.size();) {
        char c = word[at];
        if (c == '"') {
            quoted = !quoted;
            ++at;
        } else if (quoted && c == '\\' && at + 1 < word.size() &&
                   (word[at + 1] == '"' || word[at + 1] == '\\')) {
            out += word[at + 1];
            at += 2;
        } else if (OpensSequence(word, at)) {
            size_t end = GroupEnd(word, at);
            if (end == std::string::npos) return out + word.substr(at);
            out += Substitute(word.substr(at, end - at), depth);
            at = end;
        } else {
            out += c;
            ++at;
        }
    }
    return out;
}

std::string SequenceResolver::Substitute(const std::string& text, int depth) {
    std::string out;
    for (size_t at = 0; at < text.size();) {
        if (!OpensSequence(text, at)) {
            out += text[at++];
            continue;
        }
        size_t end = GroupEnd(text, at);
        if (end == std::string::npos) return out + text.substr(at);
        std::string chain = text.substr(at + 2, end - at - 3);
        _RXTypeVar value{};
        out += depth < MaxDepth && Resolve(chain, value, depth + 1) ? TextOf(value) : "NULL";
        at = end;
    }
    return out;
}

// A chain may end in methods, as a command's does: they run, and the value
// is read again after them, so that ${Level:Set[2]} writes Level and reads 2.
bool SequenceResolver::Resolve(const std::string& chain, _RXTypeVar& value, int depth) {
    std::vector<Link> links, methods;
    bool exists = false;
    if (depth > MaxDepth || !ParseChain(chain, links, &methods, exists, depth)) return false;
    if (exists && !methods.empty()) return false;
    RXObjectData* storage = nullptr;
    bool resolved = Walk(links, value, storage);
    if (resolved && !methods.empty()) {
        if (!value.Type || RunOn(methods, value, storage) != 1) return false;
        if (storage) value.Value.UInt64 = storage->Value.UInt64;
    }
    if (!exists) return resolved;
    value.Type = Engine.FindType("bool");
    value.Value.UInt64 = 0;
    value.Value.Bool = resolved;
    return value.Type != nullptr;
}

int SequenceResolver::RunMethods(const std::string& command) {
    std::vector<Link> links, methods;
    bool exists = false;
    if (!ParseChain(command, links, &methods, exists, 0) || exists || methods.empty()) {
        Engine.Print("Cannot read '" + command + "' as Object:Method[arguments]");
        return -1;
    }
    _RXTypeVar value{};
    RXObjectData* storage = nullptr;
    if (!Walk(links, value, storage) || !value.Type) {
        Engine.Print("Cannot resolve '" + command.substr(0, FindOutside(command, ':')) + "'");
        return -1;
    }
    return RunOn(methods, value, storage);
}

int SequenceResolver::RunOn(const std::vector<Link>& methods, const _RXTypeVar& value,
                            RXObjectData* storage) {
    RXObjectData copy{};
    copy.Value.UInt64 = value.Value.UInt64;
    RXObjectData& target = storage ? *storage : copy;
    for (const Link& method : methods) {
        ArgumentVector arguments(method.Arguments);
        int outcome = value.Type->DispatchMethod(target, method.Name.c_str(), arguments.Count(),
                                                 arguments.Values());
        if (outcome < 0) {
            Engine.Print("Type '" + std::string(value.Type->GetName()) + "' has no method '" +
                         method.Name + "'");
            return -1;
        }
        if (outcome == 0) return 0;
    }
    return 1;
}

std::string SequenceResolver::TextOf(const _RXTypeVar& value) {
    if (!value.Type) return "NULL";
    // The size given is one short of the buffer, so that a text form that
    // fills its size without a terminator still ends inside the buffer.
    std::unique_ptr<char[]> buffer(new char[ScriptEngine::TextBufferSize]());
    RXObjectData object{};
    object.Value.UInt64 = value.Value.UInt64;
    if (!value.Type->ToTextSized(object, buffer.get(), ScriptEngine::TextBufferSize - 1))
        return "NULL";
    buffer[ScriptEngine::TextBufferSize - 1] = 0;
    return buffer.get();
}

bool SequenceResolver::ParseChain(const std::string& text, std::vector<Link>& links,
                                  std::vector<Link>* methods, bool& exists, int depth) {
    size_t position = 0;
    Link head;
    if (!ParseLink(text, position, head, depth)) return false;
    links.push_back(std::move(head));
    while (position < text.size()) {
        char separator = text[position];
        if (separator == '(') {
            exists = SameName(text.substr(position), "(exists)");
            return exists;
        }
        if (separator != '.' && separator != ':') return false;
        if (separator == ':' && !methods) return false;
        // Once a method has come, only methods may follow.
        if (separator == '.' && methods && !methods->empty()) return false;
        ++position;
        Link link;
        if (!ParseLink(text, position, link, depth)) return false;
        (separator == '.' ? links : *methods).push_back(std::move(link));
    }
    return true;
}

bool SequenceResolver::ParseLink(const std::string& text, size_t& position, Link& link, int depth) {
    size_t start = position;
    while (position < text.size() && text[position] != '[' && text[position] != '.' &&
           text[position] != ':' && text[position] != '(')
        ++position;
    link.Name = text.substr(start, position - start);
    if (link.Name.empty()) return false;
    if (position >= text.size() || text[position] != '[') return true;
    size_t end = GroupEnd(text, position);
    if (end == std::string::npos) return false;
    link.Indexed = true;
    link.Arguments = SplitArguments(text.substr(position + 1, end - position - 2), depth);
    position = end;
    return true;
}

std::vector<std::string> SequenceResolver::SplitArguments(const std::string& inside, int depth) {
    std::vector<std::string> arguments;
    if (inside.empty()) return arguments;
    size_t start = 0;
    for (;;) {
        size_t comma = FindOutside(inside, ',', start);
        std::string piece =
            inside.substr(start, comma == std::string::npos ? comma : comma - start);
        arguments.push_back(depth < MaxDepth ? Argument(piece, depth) : "NULL");
        if (comma == std::string::npos) return arguments;
        start = comma + 1;
    }
}

bool SequenceResolver::Walk(const std::vector<Link>& links, _RXTypeVar& value,
                            RXObjectData*& storage) {
    const Link& head = links.front();
    ArgumentVector headArguments(head.Arguments);
    if (!Engine.ResolveHead(head.Name, headArguments.Count(), headArguments.Values(), head.Indexed,
                            value, storage))
        return false;
    for (size_t i = 1; i < links.size(); ++i) {
        if (!value.Type) return false;
        ArgumentVector arguments(links[i].Arguments);
        RXObjectData object{};
        object.Value.UInt64 = value.Value.UInt64;
        _RXTypeVar next{};
        int outcome = value.Type->DispatchMember(object, links[i].Name.c_str(), arguments.Count(),
                                                 arguments.Values(), next);
        if (outcome != 1) return false;
        value = next;
        storage = nullptr;
    }
    return value.Type != nullptr;
}
