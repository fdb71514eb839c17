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

TEST(Calculator, ArithmeticFollowsPrecedenceAndParentheses) {
    EXPECT_EQ(7, Value("1 + 2 * 3"));
    EXPECT_EQ(9, Value("(1 + 2) * 3"));
    EXPECT_EQ(3.5, Value("7 / 2"));
    EXPECT_EQ(1, Value("7 % 3"));
    EXPECT_EQ(-1.5, Value("-(1.5)"));
    EXPECT_EQ(2, Value("10 - 4 - 4")) << "left to right";
    EXPECT_EQ(5, Value("--5"));
    EXPECT_EQ(0.25, Value(".25"));
}

TEST(Calculator, ComparisonsAndLogicGiveOneOrZero) {
    EXPECT_EQ(1, Value("3 > 2 && 2 >= 2"));
    EXPECT_EQ(0, Value("3 < 2 || 2 != 2"));
    EXPECT_EQ(1, Value("!(1 == 2)"));
    EXPECT_EQ(1, Value("TRUE && !FALSE"));
    EXPECT_EQ(1, Value("true == 1"));
    EXPECT_EQ(1, Value("1 + 1 == 2")) << "arithmetic binds tighter than comparison";
}

TEST(Calculator, TextComparesIgnoringCase) {
    EXPECT_EQ(1, Value("\"Apple\" == \"apple\""));
    EXPECT_EQ(0, Value("\"Apple\" == \"Apples\""));
    EXPECT_EQ(1, Value("Apple == apple")) << "a bare word is text";
    EXPECT_EQ(1, Value("\"a\" < \"B\""));
    EXPECT_EQ(1, Value("\"say \\\"hi\\\"\" == \"SAY \\\"HI\\\"\""));
    EXPECT_EQ(1, Value("12px == \"12PX\"")) << "a number glued to letters is a word";
    EXPECT_EQ(1, Value("\"5\" == 5"));
}

TEST(Calculator, FailuresTellSyntaxFromMissingValues) {
    EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf("1 +"));
    EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf("(1 + 2"));
    EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf("1 2"));
    EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf("\"open"));
    EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf(""));
    EXPECT_EQ(Calculator::Outcome::SyntaxError, OutcomeOf(nullptr));
    EXPECT_EQ(Calculator::Outcome::NoValue, OutcomeOf("1 / 0"));
    EXPECT_EQ(Calculator::Outcome::NoValue, OutcomeOf("5 % 0"));
    EXPECT_EQ(Calculator::Outcome::NoValue, OutcomeOf("apple + 1"));
    EXPECT_EQ(Calculator::Outcome::NoValue, OutcomeOf("apple"));
    EXPECT_EQ(Calculator::Outcome::NoValue, OutcomeOf("NULL + 1"));

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
