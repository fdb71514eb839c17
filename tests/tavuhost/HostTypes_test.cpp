#include "EngineFixture.h"

#include "HostText.h"
#include "HostValueType.h"

using HostTypes = EngineFixture;

// What scripts read of each type is checked end to end by tavuhost's
// host_types case; these are what only the module sees.
TEST_F(HostTypes, FilePathsHandTheModuleWideText) {
    Run({"declare P filepath plain"});
    _RXTypeVar value{};
    ASSERT_TRUE(Engine.DataParse("${P}", value));
    EXPECT_EQ(u"plain", std::u16string(static_cast<const char16_t*>(value.Value.Pointer)));
}

TEST_F(HostTypes, ValuesThatAreNotVariablesCannotBeChanged) {
    RXTypeDefinition* types[] = {Engine.FindType("string"),  Engine.FindType("int"),
                                 Engine.FindType("float"),   Engine.FindType("bool"),
                                 Engine.FindType("point3f"), Engine.FindType("filepath")};
    char argument[] = "1";
    char* argv[] = {argument};
    for (RXTypeDefinition* type : types) {
        RXObjectData borrowed{};
        borrowed.Value.Text = "someone else's";
        EXPECT_EQ(0, type->DispatchMethod(borrowed, "Set", 1, argv)) << type->GetName();
        EXPECT_STREQ("someone else's", borrowed.Value.Text) << type->GetName();
        EXPECT_FALSE(type->FromText(borrowed, "1")) << type->GetName();
    }
}

TEST_F(HostTypes, TextFormsStayInsideTheirBuffer) {
    Run({"declare S string abcdefgh", "declare P point3f 1,2,3", "declare F filepath abcdefgh"});
    for (const char* name : {"S", "P", "F"}) {
        _RXTypeVar value{};
        ASSERT_TRUE(Engine.DataParse(name, value));
        char buffer[6] = {'#', '#', '#', '#', '#', '#'};
        RXObjectData object{};
        object.Value.UInt64 = value.Value.UInt64;
        EXPECT_TRUE(value.Type->ToTextSized(object, buffer, 4)) << name;
        EXPECT_EQ(3u, strlen(buffer)) << name;
        EXPECT_EQ('#', buffer[4]) << name;
    }
}

TEST(HostText, Utf16ConversionsSurviveMalformedInput) {
    EXPECT_EQ(u"a\uFFFDb", Utf8ToUtf16("a\xC3"
                                       "b"));
    EXPECT_EQ(u"\U0001F600", Utf8ToUtf16("\xF0\x9F\x98\x80"));
    EXPECT_EQ(u"\uFFFD", Utf8ToUtf16("\xFF"));
    EXPECT_EQ(u"", Utf8ToUtf16(nullptr));
    const uint16_t lone[] = {0xD800, 'x', 0};
    EXPECT_EQ("\xEF\xBF\xBDx", Utf16ToUtf8(lone));
    const uint16_t pair[] = {0xD83D, 0xDE00, 0};
    EXPECT_EQ("\xF0\x9F\x98\x80", Utf16ToUtf8(pair));
    EXPECT_EQ("", Utf16ToUtf8(nullptr));
}

TEST(HostText, NumbersPrintAsScriptsSeeThem) {
    EXPECT_EQ("3", FormatNumber(3.0));
    EXPECT_EQ("-2.5", FormatNumber(-2.5));
    EXPECT_EQ("0", FormatNumber(-0.0000001));
    EXPECT_EQ("0.333333", FormatNumber(1.0 / 3));
    double value = 0;
    EXPECT_TRUE(ParseNumber(" -1.5 ", value));
    EXPECT_EQ(-1.5, value);
    EXPECT_FALSE(ParseNumber("0x10", value));
    EXPECT_FALSE(ParseNumber("inf", value));
    EXPECT_FALSE(ParseNumber("12px", value));
    EXPECT_FALSE(ParseNumber("", value));
}
