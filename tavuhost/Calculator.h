// The expression evaluator behind Calculate, Math.Calc, the conditions of if,
// while and do, and queries.
//
// An expression has numbers, + - * / % and parentheses, comparisons
// (== != < <= > >=), && || and !, TRUE and FALSE (1 and 0), and double-quoted
// text. Text compares with text ignoring case; a bare word is text too, unless
// a name lookup is given (queries), which turns a bare name into the value of
// the object's member of that name.
#pragma once

#include <functional>
#include <string>

class Calculator {
public:
    enum class Outcome { Value, SyntaxError, NoValue };

    // Gives the text of a bare name; false when the name has no value.
    typedef std::function<bool(const std::string& name, std::string& value)> NameLookup;

    explicit Calculator(const NameLookup* lookup = nullptr) : Lookup(lookup) {}

    // Evaluates text to a number. Error() then says what went wrong.
    Outcome Evaluate(const char* text, double& result);
    const std::string& Error() const { return ErrorText; }

private:
    struct Operand {
        bool IsText = false;
        double Number = 0;
        std::string Text;
    };

    bool ParseOr(Operand& out);
    bool ParseAnd(Operand& out);
    bool ParseComparison(Operand& out);
    bool ParseSum(Operand& out);
    bool ParseProduct(Operand& out);
    bool ParseUnary(Operand& out);
    bool ParseUnaryAt(Operand& out);
    bool ParsePrimary(Operand& out);
    bool ParseQuoted(Operand& out);
    bool ParseNumber(Operand& out);
    bool ParseWord(Operand& out);

    bool Compare(const std::string& op, const Operand& left, const Operand& right, Operand& out);
    bool AsNumber(const Operand& operand, double& number);
    bool AsTruth(const Operand& operand, bool& truth);
    bool Arithmetic(char op, double left, double right, double& out);

    void SkipBlanks();
    bool Accept(const char* token);
    bool Fail(Outcome outcome, const std::string& message);

    const NameLookup* Lookup;
    const char* Cursor = nullptr;
    Outcome Failure = Outcome::Value;
    enum { MaxDepth = 256 };
    int Depth = 0;
    std::string ErrorText;
};
