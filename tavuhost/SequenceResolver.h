// Data sequences and method chains: the part of the language that reaches
// into typed objects.
//
//   ${Object[a,b].Member[c].Member}     the text form of the last value
//   ${Object[a].Member(exists)}         TRUE when the chain resolves, else FALSE
//   Object[a].Member:Method[b]:Method   methods run on the last value, in order
//
// Arguments are split at commas and may hold nested sequences; an argument in
// double quotes keeps its commas and brackets and loses the quotes. A chain
// that cannot be resolved reads as NULL.
#pragma once

#include "RXTypeDefinition.h"

#include <string>
#include <vector>

class ScriptEngine;

class SequenceResolver {
public:
    explicit SequenceResolver(ScriptEngine& engine) : Engine(engine) {}

    // Text with every ${...} replaced by its value's text (or NULL).
    std::string Substitute(const std::string& text, int depth = 0);
    // Resolves a chain (the inside of ${...}) to a typed value.
    bool Resolve(const std::string& chain, _RXTypeVar& value, int depth = 0);
    // Runs the methods of "Chain:Method[args]..."; 1 all ran, 0 one failed,
    // -1 the chain or a method is unknown (a console line says which).
    int RunMethods(const std::string& command);
    // The text form of a value through its type, or NULL.
    std::string TextOf(const _RXTypeVar& value);
    // One word of a command line after substitution, without its quotes.
    std::string Argument(const std::string& word, int depth = 0);

    // A command line split at blanks; quotes, brackets and sequences group.
    static std::vector<std::string> SplitWords(const std::string& line);
    // Where a character stands outside quotes, brackets and sequences, looking
    // from start on, or npos.
    static size_t FindOutside(const std::string& text, char wanted, size_t start = 0);

private:
    struct Link {
        std::string Name;
        bool Indexed = false;
        std::vector<std::string> Arguments;
    };

    bool ParseChain(const std::string& text, std::vector<Link>& links, std::vector<Link>* methods,
                    bool& exists, int depth);
    bool ParseLink(const std::string& text, size_t& position, Link& link, int depth);
    std::vector<std::string> SplitArguments(const std::string& inside, int depth);
    bool Walk(const std::vector<Link>& links, _RXTypeVar& value, RXObjectData*& storage);
    // Runs methods on a resolved value (in its storage when it has one), as
    // RunMethods answers.
    int RunOn(const std::vector<Link>& methods, const _RXTypeVar& value, RXObjectData* storage);

    ScriptEngine& Engine;
};
