#include "Calculator.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

double Value(const char* text) {
    Calculator calculator;
    double result = -12345;
    EXPECT_EQ(Calculator::Outcome::Value, calculator.Evaluate(text, result))
        << text << ": " << calculator.Error();
    return result;
}

Calculator::Outcome OutcomeOf(const char* text) {
    Calculator calculator;
    double result = 0;
    return calculator.Evaluate(text, result);
}

} // namespace

TEST(Calculator, ValuesFollowPrecedenceAndCompareTextIgnoringCase) {
    // Subtraction runs left to right; arithmetic binds tighter than
    // comparison; a bare word, or a number glued to letters, is text.
    const std::pair<const char*, double> cases[] = {
        {"1 + 2 * 3", 7},
        {"(1 + 2) * 3", 9},
        {"7 / 2", 3.5},
        {"7 % 3", 1},
        {"-(1.5)", -1.5},
        {"10 - 4 - 4", 2},
        {"--5", 5},
        {".25", 0.25},
        {"3 > 2 && 2 >= 2", 1},
        {"3 < 2 || 2 != 2", 0},
        {"!(1 == 2)", 1},
        {"TRUE && !FALSE", 1},
        {"true == 1", 1},
        {"1 + 1 == 2", 1},
        {"\"Apple\" == \"apple\"", 1},
        {"\"Apple\" == \"Apples\"", 0},
        {"Apple == apple", 1},
        {"\"a\" < \"B\"", 1},
        {"\"say \\\"hi\\\"\" == \"SAY \\\"HI\\\"\"", 1},
        {"12px == \"12PX\"", 1},
        {"\"5\" == 5", 1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.second, Value(c.first)) << c.first;
}

TEST(Calculator, FailuresTellSyntaxFromMissingValues) {
    for (const char* text : {"1 +", "(1 + 2", "1 2", "\"open", "", (const char*)nullptr})
        EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf(text)) << (text ? text : "null");
    for (const char* text : {"1 / 0", "5 % 0", "apple + 1", "apple", "NULL + 1"})
        EXPECT_EQ(Calculator::Outcome::NoValue, OutcomeOf(text)) << text;
    Calculator calculator;
    double result = 0;
    calculator.Evaluate("2 * (3", result);
    EXPECT_EQ("missing ')'", calculator.Error());
}

TEST(Calculator, DeepNestingIsRefusedWithoutExhaustingTheStack) {
    std::string deep(100000, '(');
    EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf(deep.c_str()));
    std::string bangs(100000, '!');
    EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf((bangs + "1").c_str()));
    std::string fine = std::string(100, '(') + "1" + std::string(100, ')');
    EXPECT_EQ(1, Value(fine.c_str()));
}

TEST(Calculator, ALookupTurnsBareNamesIntoMembers) {
    std::map<std::string, std::string> members = {
        {"Text", "Apple"}, {"Expanded", "TRUE"}, {"Count", "3"}, {"Parent.Text", "Fruit"}};
    Calculator::NameLookup lookup = [&](const std::string& name, std::string& value) {
        auto found = members.find(name);
        if (found == members.end()) return false;
        value = found->second;
        return true;
    };
    Calculator calculator(&lookup);
    double result = 0;
    ASSERT_EQ(Calculator::Outcome::Value,
              calculator.Evaluate("Text == \"apple\" && Expanded", result));
    EXPECT_EQ(1, result);
    calculator.Evaluate("Count * 2 == 6 && Parent.Text == \"FRUIT\"", result);
    EXPECT_EQ(1, result);
    EXPECT_EQ(Calculator::Outcome::NoValue, calculator.Evaluate("Missing == 1", result));
    EXPECT_EQ("'Missing' has no value", calculator.Error());
}
