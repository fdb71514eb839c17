#include "Calculator.h"

#include "HostText.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

bool IsWordStart(char c) {
    return isalpha(static_cast<unsigned char>(c)) || c == '_';
}

bool IsWordChar(char c) {
    return isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '.';
}

int CompareNoCase(const std::string& a, const std::string& b) {
    if (SameName(a, b)) return 0;
    return NameLess()(a, b) ? -1 : 1;
}

} // namespace

Calculator::Outcome Calculator::Evaluate(const char* text, double& result) {
    Cursor = text ? text : "";
    Failure = Outcome::Value;
    Depth = 0;
    ErrorText.clear();
    Operand value;
    if (!ParseOr(value)) return Failure;
    SkipBlanks();
    if (*Cursor) {
        Fail(Outcome::SyntaxError, std::string("unexpected '") + Cursor + "'");
        return Failure;
    }
    if (value.IsText) {
        bool truth = false;
        if (!ParseTruth(value.Text.c_str(), truth)) {
            Fail(Outcome::NoValue, "'" + value.Text + "' is not a number");
            return Failure;
        }
        result = truth ? 1 : 0;
        double number = 0;
        if (::ParseNumber(value.Text.c_str(), number)) result = number;
        return Outcome::Value;
    }
    result = value.Number;
    return Outcome::Value;
}

bool Calculator::ParseOr(Operand& out) {
    if (!ParseAnd(out)) return false;
    while (Accept("||")) {
        Operand right;
        if (!ParseAnd(right)) return false;
        bool a = false, b = false;
        if (!AsTruth(out, a) || !AsTruth(right, b)) return false;
        out = Operand{false, (a || b) ? 1.0 : 0.0, {}};
    }
    return true;
}

bool Calculator::ParseAnd(Operand& out) {
    if (!ParseComparison(out)) return false;
    while (Accept("&&")) {
        Operand right;
        if (!ParseComparison(right)) return false;
        bool a = false, b = false;
        if (!AsTruth(out, a) || !AsTruth(right, b)) return false;
        out = Operand{false, (a && b) ? 1.0 : 0.0, {}};
    }
    return true;
}

bool Calculator::ParseComparison(Operand& out) {
    if (!ParseSum(out)) return false;
    static const char* const operators[] = {"==", "!=", "<=", ">=", "<", ">"};
    for (;;) {
        const char* found = nullptr;
        for (const char* op : operators)
            if (Accept(op)) {
                found = op;
                break;
            }
        if (!found) return true;
        Operand right;
        if (!ParseSum(right)) return false;
        Operand compared;
        if (!Compare(found, out, right, compared)) return false;
        out = compared;
    }
}

bool Calculator::ParseSum(Operand& out) {
    if (!ParseProduct(out)) return false;
    for (;;) {
        SkipBlanks();
        char op = *Cursor;
        if (op != '+' && op != '-') return true;
        ++Cursor;
        Operand right;
        if (!ParseProduct(right)) return false;
        double a = 0, b = 0;
        if (!AsNumber(out, a) || !AsNumber(right, b)) return false;
        out = Operand{false, op == '+' ? a + b : a - b, {}};
    }
}

bool Calculator::ParseProduct(Operand& out) {
    if (!ParseUnary(out)) return false;
    for (;;) {
        SkipBlanks();
        char op = *Cursor;
        if (op != '*' && op != '/' && op != '%') return true;
        ++Cursor;
        Operand right;
        if (!ParseUnary(right)) return false;
        double a = 0, b = 0, value = 0;
        if (!AsNumber(out, a) || !AsNumber(right, b) || !Arithmetic(op, a, b, value)) return false;
        out = Operand{false, value, {}};
    }
}

bool Calculator::ParseUnary(Operand& out) {
    // Nesting is bounded so that hostile text cannot exhaust the stack.
    if (++Depth > MaxDepth) return Fail(Outcome::SyntaxError, "the expression nests too deeply");
    bool parsed = ParseUnaryAt(out);
    --Depth;
    return parsed;
}

bool Calculator::ParseUnaryAt(Operand& out) {
    SkipBlanks();
    if (*Cursor == '!' && Cursor[1] != '=') {
        ++Cursor;
        Operand inner;
        bool truth = false;
        if (!ParseUnary(inner) || !AsTruth(inner, truth)) return false;
        out = Operand{false, truth ? 0.0 : 1.0, {}};
        return true;
    }
    if (*Cursor == '-' || *Cursor == '+') {
        char sign = *Cursor++;
        Operand inner;
        double number = 0;
        if (!ParseUnary(inner) || !AsNumber(inner, number)) return false;
        out = Operand{false, sign == '-' ? -number : number, {}};
        return true;
    }
    return ParsePrimary(out);
}

bool Calculator::ParsePrimary(Operand& out) {
    SkipBlanks();
    char c = *Cursor;
    if (c == '(') {
        ++Cursor;
        if (!ParseOr(out)) return false;
        if (!Accept(")")) return Fail(Outcome::SyntaxError, "missing ')'");
        return true;
    }
    if (c == '"') return ParseQuoted(out);
    if (isdigit(static_cast<unsigned char>(c)) || c == '.') return ParseNumber(out);
    if (IsWordStart(c)) return ParseWord(out);
    if (!c) return Fail(Outcome::SyntaxError, "the expression ends too early");
    return Fail(Outcome::SyntaxError, std::string("unexpected '") + Cursor + "'");
}

bool Calculator::ParseQuoted(Operand& out) {
    ++Cursor;
    std::string text;
    while (*Cursor && *Cursor != '"') {
        if (*Cursor == '\\' && (Cursor[1] == '"' || Cursor[1] == '\\')) ++Cursor;
        text += *Cursor++;
    }
    if (*Cursor != '"') return Fail(Outcome::SyntaxError, "missing closing '\"'");
    ++Cursor;
    out = Operand{true, 0, text};
    return true;
}

bool Calculator::ParseNumber(Operand& out) {
    char* end = nullptr;
    double number = strtod(Cursor, &end);
    if (end == Cursor)
        return Fail(Outcome::SyntaxError, std::string("bad number '") + Cursor + "'");
    // A number glued to letters ("12px") is a word, not a number.
    if (IsWordStart(*end)) {
        while (IsWordChar(*end))
            ++end;
        out = Operand{true, 0, std::string(Cursor, static_cast<const char*>(end))};
        Cursor = end;
        return true;
    }
    Cursor = end;
    out = Operand{false, number, {}};
    return true;
}

bool Calculator::ParseWord(Operand& out) {
    const char* start = Cursor;
    while (IsWordChar(*Cursor))
        ++Cursor;
    std::string word(start, Cursor);
    if (SameName(word, "TRUE")) return out = Operand{false, 1, {}}, true;
    if (SameName(word, "FALSE")) return out = Operand{false, 0, {}}, true;
    if (!Lookup) return out = Operand{true, 0, word}, true;
    std::string value;
    if (!(*Lookup)(word, value)) return Fail(Outcome::NoValue, "'" + word + "' has no value");
    double number = 0;
    bool truth = false;
    if (::ParseNumber(value.c_str(), number)) return out = Operand{false, number, {}}, true;
    if (SameName(value, "TRUE") || SameName(value, "FALSE")) {
        ParseTruth(value.c_str(), truth);
        return out = Operand{false, truth ? 1.0 : 0.0, {}}, true;
    }
    out = Operand{true, 0, value};
    return true;
}

bool Calculator::Compare(const std::string& op, const Operand& left, const Operand& right,
                         Operand& out) {
    int order = 0;
    if (left.IsText || right.IsText) {
        std::string a = left.IsText ? left.Text : FormatNumber(left.Number);
        std::string b = right.IsText ? right.Text : FormatNumber(right.Number);
        order = CompareNoCase(a, b);
    } else {
        order = left.Number < right.Number ? -1 : (left.Number > right.Number ? 1 : 0);
    }
    bool truth = false;
    if (op == "==")
        truth = order == 0;
    else if (op == "!=")
        truth = order != 0;
    else if (op == "<")
        truth = order < 0;
    else if (op == "<=")
        truth = order <= 0;
    else if (op == ">")
        truth = order > 0;
    else
        truth = order >= 0;
    out = Operand{false, truth ? 1.0 : 0.0, {}};
    return true;
}

bool Calculator::AsNumber(const Operand& operand, double& number) {
    if (!operand.IsText) return number = operand.Number, true;
    if (::ParseNumber(operand.Text.c_str(), number)) return true;
    return Fail(Outcome::NoValue, "'" + operand.Text + "' is not a number");
}

bool Calculator::AsTruth(const Operand& operand, bool& truth) {
    if (!operand.IsText) return truth = operand.Number != 0, true;
    if (ParseTruth(operand.Text.c_str(), truth)) return true;
    return Fail(Outcome::NoValue, "'" + operand.Text + "' is neither TRUE nor FALSE");
}

bool Calculator::Arithmetic(char op, double left, double right, double& out) {
    if (op == '*') return out = left * right, true;
    if (right == 0) return Fail(Outcome::NoValue, "division by zero");
    out = op == '/' ? left / right : std::fmod(left, right);
    return true;
}

void Calculator::SkipBlanks() {
    while (*Cursor == ' ' || *Cursor == '\t')
        ++Cursor;
}

bool Calculator::Accept(const char* token) {
    SkipBlanks();
    size_t length = strlen(token);
    if (strncmp(Cursor, token, length) != 0) return false;
    Cursor += length;
    return true;
}

bool Calculator::Fail(Outcome outcome, const std::string& message) {
    // The first failure is the one worth reporting; later ones are its echoes.
    if (Failure == Outcome::Value) {
        Failure = outcome;
        ErrorText = message;
    }
    return false;
}
