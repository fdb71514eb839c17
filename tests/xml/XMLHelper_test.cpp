#include "XMLHelper.h"
#include "XMLTestTree.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <string>

namespace {

class XMLHelperTest : public ::testing::Test {
protected:
    XMLParser Parser;
    XMLNode* Node = nullptr;

    void Load(const char* text) {
        ASSERT_TRUE(Parser.ParseBuffer(text, 0)) << Parser.ErrorText;
        Node = Parser.Root->FirstChild;
    }
};

ElementPosition Position(uint32_t type, int32_t pixels) {
    ElementPosition p;
    p.Type = type;
    p.Value.Pixels = pixels;
    return p;
}

// A position as "type:pixels", or "type:factor" for a fraction.
std::string Text(const ElementPosition& p) {
    return std::to_string(p.Type) + ":" +
           (p.Type == ElementPosition::Fraction ? std::to_string(p.Value.Factor)
                                                : std::to_string(p.Value.Pixels));
}

} // namespace

TEST_F(XMLHelperTest, WalksTheTreeAndFindsChildElementsIgnoringCase) {
    Load("<w>\n  <!--Width--><Width>10</Width><width>20</width></w>");
    XMLNode* first = XMLHelper::GetFirstChild(Node);
    EXPECT_EQ(first->Type, XMLNode::Text);
    XMLNode* width = XMLHelper::GetChild(Node, "WIDTH");
    ASSERT_NE(width, nullptr);
    EXPECT_STREQ(XMLHelper::GetText(XMLHelper::GetFirstChild(width)), "10");
    EXPECT_EQ(XMLHelper::GetPrev(width)->Type, XMLNode::Comment);
    EXPECT_EQ(XMLHelper::GetNext(XMLHelper::GetNext(first)), width);
    EXPECT_EQ(XMLHelper::GetParent(width), Node);
    EXPECT_EQ(XMLHelper::GetChild(Node, "height"), nullptr);
    EXPECT_EQ(XMLHelper::GetChild(nullptr, "w"), nullptr);
    EXPECT_STREQ(XMLHelper::GetText(nullptr), "");
}

TEST_F(XMLHelperTest, StringsFromAttributesAndValues) {
    Load("<n a=\"\" b=\"text\"><S> x </S><E/><C><!-- ten -->10</C></n>");
    EXPECT_STREQ(XMLHelper::GetStringAttribute(Node, "a", "dflt"), "dflt");
    EXPECT_STREQ(XMLHelper::GetStringAttribute(Node, "B", "dflt"), "text");
    EXPECT_STREQ(XMLHelper::GetStringAttribute(Node, "z", "dflt"), "dflt");
    EXPECT_STREQ(XMLHelper::GetStringAttribute(nullptr, "b", "dflt"), "dflt");
    EXPECT_STREQ(XMLHelper::GetStringValue(Node, "s", "dflt"), " x ");
    EXPECT_STREQ(XMLHelper::GetStringValue(Node, "E", "dflt"), "");
    // The first child wins even when it is a comment; the reader drops the
    // comment's leading blanks.
    EXPECT_STREQ(XMLHelper::GetStringValue(Node, "C", "dflt"), "ten ");
    EXPECT_STREQ(XMLHelper::GetStringValue(Node, "missing", "dflt"), "dflt");
}

TEST_F(XMLHelperTest, NumbersFromAttributesAndValues) {
    Load("<n i=\"12px\" j=\"0x10\" k=\"-5\" e=\"\" h=\"FF0000\" g=\"xyz\" f=\" 2.5\">"
         "<Width/><I> 42</I><H>0xff00ff</H><Hx/><F>1e2</F><Fe/></n>");
    const std::pair<unsigned, unsigned> numbers[] = {
        {XMLHelper::GetIntAttribute(Node, "i", 7), 12u},
        {XMLHelper::GetIntAttribute(Node, "j", 7), 0u},
        {XMLHelper::GetIntAttribute(Node, "k", 7), unsigned(-5)},
        {XMLHelper::GetIntAttribute(Node, "e", 7), 7u},
        {XMLHelper::GetIntValue(Node, "width", 100), 0u},
        {XMLHelper::GetIntValue(Node, "i", 100), 42u},
        {XMLHelper::GetIntValue(nullptr, "i", 100), 100u},
        {XMLHelper::GetHexAttribute(Node, "h", 7), 0xFF0000u},
        {XMLHelper::GetHexAttribute(Node, "j", 7), 0x10u},
        {XMLHelper::GetHexAttribute(Node, "g", 7), 0u},
        {XMLHelper::GetHexAttribute(Node, "e", 7), 7u},
        {XMLHelper::GetHexValue(Node, "H", 7), 0xFF00FFu},
        {XMLHelper::GetHexValue(Node, "Hx", 7), 0u},
        {XMLHelper::GetHexValue(Node, "none", 7), 7u}};
    for (size_t row = 0; row < std::size(numbers); ++row)
        EXPECT_EQ(numbers[row].first, numbers[row].second) << "row " << row;
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatAttribute(Node, "f", 1.0f), 2.5f);
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatAttribute(Node, "e", 1.0f), 1.0f);
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatValue(Node, "F", 1.0f), 100.0f);
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatValue(Node, "Fe", 1.0f), 0.0f);
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatValue(Node, "none", 1.0f), 1.0f);
}

TEST_F(XMLHelperTest, TogglesReadNumbersOnly) {
    Load("<n><A/><B>1</B><C>0</C><D>true</D><E>no</E><F> 7</F></n>");
    // Each key read with the opposite default: an empty key is on, words are off.
    const std::pair<const char*, bool> toggles[] = {{"a", true},  {"b", true},  {"c", false},
                                                    {"d", false}, {"e", false}, {"f", true}};
    for (const auto& toggle : toggles)
        EXPECT_EQ(XMLHelper::GetToggle(Node, toggle.first, !toggle.second), toggle.second)
            << toggle.first;
    EXPECT_TRUE(XMLHelper::GetToggle(Node, "missing", true));
    EXPECT_FALSE(XMLHelper::GetToggle(nullptr, "a", false));
}

TEST_F(XMLHelperTest, Factors) {
    Load("<n p=\"50%\" d=\"0.25\" w=\"30\" e=\"\"><P>12.5%</P><W>8</W><Z/></n>");
    // Answer and factor of each read, starting from a factor of -1; the absent
    // value leaves the factor alone, and a null node answers the default.
    const struct {
        bool Attribute;
        XMLNode* From;
        const char* Name;
        unsigned Answer;
        float Factor;
    } cases[] = {{true, Node, "p", 9, 0.5f},    {true, Node, "d", 9, 0.25f},
                 {true, Node, "w", 30, 0.0f},   {true, Node, "e", 9, 0.0f},
                 {false, Node, "p", 9, 0.125f}, {false, Node, "w", 8, 0.0f},
                 {false, Node, "z", 0, -1.0f},  {false, nullptr, "z", 9, 0.0f}};
    for (const auto& c : cases) {
        float factor = -1.0f;
        unsigned answer = c.Attribute ? XMLHelper::GetFactorAttribute(c.From, c.Name, factor, 9)
                                      : XMLHelper::GetFactorValue(c.From, c.Name, factor, 9);
        EXPECT_EQ(answer, c.Answer) << c.Name << (c.Attribute ? " attribute" : " value");
        EXPECT_FLOAT_EQ(factor, c.Factor) << c.Name << (c.Attribute ? " attribute" : " value");
    }
}

TEST(XMLHelperPosition, Grammar) {
    // Text, the position read ("type:pixels" or "type:factor") and the answer;
    // 77 is the default answer.
    const struct {
        const char* Text;
        const char* Position;
        unsigned Result;
    } cases[] = {
        {"10", "0:10", 10},         {"-5", "0:-5", unsigned(-5)},
        {"50%", "2:0.500000", 77},  {"0.25", "2:0.250000", 77},
        {"R7", "3:7", 7},           {"r", "3:0", 0},
        {"%", "2:0.000000", 77},    {"R50%", "2:0.500000", 77},
        {"r0.5", "2:0.500000", 77}, {" r10", "0:0", 0},
        {"12px", "0:12", 12},       {"r-3", "3:-3", unsigned(-3)},
    };
    for (const auto& c : cases) {
        ElementPosition p = Position(9, 9);
        EXPECT_EQ(XMLHelper::ParseElementPosition(c.Text, p, 77), c.Result) << c.Text;
        EXPECT_EQ(Text(p), c.Position) << c.Text;
    }
}

TEST_F(XMLHelperTest, PositionsFromAttributesAndValues) {
    Load("<n x=\"r10\" e=\"\"><Y>25%</Y><Z/><W>0</W></n>");
    ElementPosition p = Position(9, 9);
    EXPECT_EQ(XMLHelper::GetElementPositionAttribute(Node, "X", p, 5), 10u);
    EXPECT_EQ(Text(p), "3:10");
    EXPECT_EQ(XMLHelper::GetElementPositionAttribute(Node, "e", p, 5), 5u);
    EXPECT_EQ(Text(p), "0:5");
    EXPECT_EQ(XMLHelper::GetElementPositionValue(Node, "y", p, 5), 5u);
    EXPECT_EQ(Text(p), "2:0.250000");
    p = Position(9, 9);
    EXPECT_EQ(XMLHelper::GetElementPositionValue(Node, "z", p, 5), 0u);
    EXPECT_EQ(Text(p), "9:9"); // an empty value leaves the position alone
    EXPECT_EQ(XMLHelper::GetElementPositionValue(Node, "none", p, 6), 6u);
    EXPECT_EQ(Text(p), "0:6");
}

TEST_F(XMLHelperTest, PositionValueExTellsAbsentFromZero) {
    Load("<n><W>0</W><Y>r4</Y><F>0.5</F><Z/></n>");
    ElementPosition p = Position(9, 9);
    unsigned pixels = 99;
    EXPECT_FALSE(XMLHelper::GetElementPositionValueEx(Node, "none", p, pixels));
    EXPECT_FALSE(XMLHelper::GetElementPositionValueEx(Node, "z", p, pixels));
    EXPECT_FALSE(XMLHelper::GetElementPositionValueEx(nullptr, "w", p, pixels));
    EXPECT_EQ(Text(p) + " " + std::to_string(pixels), "9:9 99");
    const std::pair<const char*, const char*> found[] = {
        {"w", "0:0 0"}, {"y", "3:4 4"}, {"f", "2:0.500000 0"}};
    for (const auto& key : found) {
        EXPECT_TRUE(XMLHelper::GetElementPositionValueEx(Node, key.first, p, pixels)) << key.first;
        EXPECT_EQ(Text(p) + " " + std::to_string(pixels), key.second) << key.first;
    }
}
