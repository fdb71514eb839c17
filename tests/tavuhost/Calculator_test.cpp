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

// Values, precedence, text comparison and each error's message are checked
// end to end by tavuhost's calc case; queries need the outcome itself.
TEST(Calculator, FailuresTellSyntaxFromMissingValues) {
    for (const char* text : {"1 +", "(1 + 2", "1 2", "\"open", "", (const char*)nullptr})
        EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf(text)) << (text ? text : "null");
    for (const char* text : {"1 / 0", "5 % 0", "apple + 1", "apple", "NULL + 1"})
        EXPECT_EQ(Calculator::Outcome::NoValue, OutcomeOf(text)) << text;
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
