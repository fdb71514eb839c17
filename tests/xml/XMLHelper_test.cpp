#include "XMLHelper.h"
#include "XMLTestTree.h"

#include <gtest/gtest.h>

#include <cstring>

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
    EXPECT_EQ(XMLHelper::GetIntAttribute(Node, "i", 7), 12u);
    EXPECT_EQ(XMLHelper::GetIntAttribute(Node, "j", 7), 0u);
    EXPECT_EQ(XMLHelper::GetIntAttribute(Node, "k", 7), unsigned(-5));
    EXPECT_EQ(XMLHelper::GetIntAttribute(Node, "e", 7), 7u);
    EXPECT_EQ(XMLHelper::GetIntValue(Node, "width", 100), 0u);
    EXPECT_EQ(XMLHelper::GetIntValue(Node, "i", 100), 42u);
    EXPECT_EQ(XMLHelper::GetIntValue(nullptr, "i", 100), 100u);
    EXPECT_EQ(XMLHelper::GetHexAttribute(Node, "h", 7), 0xFF0000u);
    EXPECT_EQ(XMLHelper::GetHexAttribute(Node, "j", 7), 0x10u);
    EXPECT_EQ(XMLHelper::GetHexAttribute(Node, "g", 7), 0u);
    EXPECT_EQ(XMLHelper::GetHexAttribute(Node, "e", 7), 7u);
    EXPECT_EQ(XMLHelper::GetHexValue(Node, "H", 7), 0xFF00FFu);
    EXPECT_EQ(XMLHelper::GetHexValue(Node, "Hx", 7), 0u);
    EXPECT_EQ(XMLHelper::GetHexValue(Node, "none", 7), 7u);
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatAttribute(Node, "f", 1.0f), 2.5f);
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatAttribute(Node, "e", 1.0f), 1.0f);
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatValue(Node, "F", 1.0f), 100.0f);
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatValue(Node, "Fe", 1.0f), 0.0f);
    EXPECT_FLOAT_EQ(XMLHelper::GetFloatValue(Node, "none", 1.0f), 1.0f);
}

TEST_F(XMLHelperTest, TogglesReadNumbersOnly) {
    Load("<n><A/><B>1</B><C>0</C><D>true</D><E>no</E><F> 7</F></n>");
    EXPECT_TRUE(XMLHelper::GetToggle(Node, "a", false));
    EXPECT_TRUE(XMLHelper::GetToggle(Node, "b", false));
    EXPECT_FALSE(XMLHelper::GetToggle(Node, "c", true));
    EXPECT_FALSE(XMLHelper::GetToggle(Node, "d", true));
    EXPECT_FALSE(XMLHelper::GetToggle(Node, "e", true));
    EXPECT_TRUE(XMLHelper::GetToggle(Node, "f", false));
    EXPECT_TRUE(XMLHelper::GetToggle(Node, "missing", true));
    EXPECT_FALSE(XMLHelper::GetToggle(nullptr, "a", false));
}

TEST_F(XMLHelperTest, Factors) {
    Load("<n p=\"50%\" d=\"0.25\" w=\"30\" e=\"\"><P>12.5%</P><W>8</W><Z/></n>");
    float factor = -1.0f;
    EXPECT_EQ(XMLHelper::GetFactorAttribute(Node, "p", factor, 9), 9u);
    EXPECT_FLOAT_EQ(factor, 0.5f);
    EXPECT_EQ(XMLHelper::GetFactorAttribute(Node, "d", factor, 9), 9u);
    EXPECT_FLOAT_EQ(factor, 0.25f);
    EXPECT_EQ(XMLHelper::GetFactorAttribute(Node, "w", factor, 9), 30u);
    EXPECT_FLOAT_EQ(factor, 0.0f);
    factor = -1.0f;
    EXPECT_EQ(XMLHelper::GetFactorAttribute(Node, "e", factor, 9), 9u);
    EXPECT_FLOAT_EQ(factor, 0.0f);
    EXPECT_EQ(XMLHelper::GetFactorValue(Node, "p", factor, 9), 9u);
    EXPECT_FLOAT_EQ(factor, 0.125f);
    EXPECT_EQ(XMLHelper::GetFactorValue(Node, "w", factor, 9), 8u);
    factor = -1.0f;
    EXPECT_EQ(XMLHelper::GetFactorValue(Node, "z", factor, 9), 0u);
    EXPECT_FLOAT_EQ(factor, -1.0f);
    EXPECT_EQ(XMLHelper::GetFactorValue(nullptr, "z", factor, 9), 9u);
    EXPECT_FLOAT_EQ(factor, 0.0f);
}

TEST(XMLHelperPosition, Grammar) {
    struct Case {
        const char* Text;
        uint32_t Type;
        int32_t Pixels;
        float Factor;
        unsigned Result;
    };
    const Case cases[] = {
        {"10", 0, 10, 0, 10},     {"-5", 0, -5, 0, unsigned(-5)},
        {"50%", 2, 0, 0.5f, 77},  {"0.25", 2, 0, 0.25f, 77},
        {"R7", 3, 7, 0, 7},       {"r", 3, 0, 0, 0},
        {"%", 2, 0, 0.0f, 77},    {"R50%", 2, 0, 0.5f, 77},
        {"r0.5", 2, 0, 0.5f, 77}, {" r10", 0, 0, 0, 0},
        {"12px", 0, 12, 0, 12},   {"r-3", 3, -3, 0, unsigned(-3)},
    };
    for (const Case& c : cases) {
        ElementPosition p = Position(9, 9);
        unsigned result = XMLHelper::ParseElementPosition(c.Text, p, 77);
        EXPECT_EQ(p.Type, c.Type) << c.Text;
        if (c.Type == 2)
            EXPECT_FLOAT_EQ(p.Value.Factor, c.Factor) << c.Text;
        else
            EXPECT_EQ(p.Value.Pixels, c.Pixels) << c.Text;
        EXPECT_EQ(result, c.Result) << c.Text;
    }
}

TEST_F(XMLHelperTest, PositionsFromAttributesAndValues) {
    Load("<n x=\"r10\" e=\"\"><Y>25%</Y><Z/><W>0</W></n>");
    ElementPosition p = Position(9, 9);
    EXPECT_EQ(XMLHelper::GetElementPositionAttribute(Node, "X", p, 5), 10u);
    EXPECT_EQ(p.Type, 3u);
    EXPECT_EQ(p.Value.Pixels, 10);
    EXPECT_EQ(XMLHelper::GetElementPositionAttribute(Node, "e", p, 5), 5u);
    EXPECT_EQ(p.Type, 0u);
    EXPECT_EQ(p.Value.Pixels, 5);
    EXPECT_EQ(XMLHelper::GetElementPositionValue(Node, "y", p, 5), 5u);
    EXPECT_EQ(p.Type, 2u);
    EXPECT_FLOAT_EQ(p.Value.Factor, 0.25f);
    p = Position(9, 9);
    EXPECT_EQ(XMLHelper::GetElementPositionValue(Node, "z", p, 5), 0u);
    EXPECT_EQ(p.Type, 9u);
    EXPECT_EQ(XMLHelper::GetElementPositionValue(Node, "none", p, 6), 6u);
    EXPECT_EQ(p.Type, 0u);
    EXPECT_EQ(p.Value.Pixels, 6);
}

TEST_F(XMLHelperTest, PositionValueExTellsAbsentFromZero) {
    Load("<n><W>0</W><Y>r4</Y><F>0.5</F><Z/></n>");
    ElementPosition p = Position(9, 9);
    unsigned pixels = 99;
    EXPECT_FALSE(XMLHelper::GetElementPositionValueEx(Node, "none", p, pixels));
    EXPECT_FALSE(XMLHelper::GetElementPositionValueEx(Node, "z", p, pixels));
    EXPECT_FALSE(XMLHelper::GetElementPositionValueEx(nullptr, "w", p, pixels));
    EXPECT_EQ(p.Type, 9u);
    EXPECT_EQ(pixels, 99u);
    EXPECT_TRUE(XMLHelper::GetElementPositionValueEx(Node, "w", p, pixels));
    EXPECT_EQ(p.Type, 0u);
    EXPECT_EQ(pixels, 0u);
    EXPECT_TRUE(XMLHelper::GetElementPositionValueEx(Node, "y", p, pixels));
    EXPECT_EQ(p.Type, 3u);
    EXPECT_EQ(pixels, 4u);
    EXPECT_TRUE(XMLHelper::GetElementPositionValueEx(Node, "f", p, pixels));
    EXPECT_EQ(p.Type, 2u);
    EXPECT_EQ(pixels, 0u);
}
