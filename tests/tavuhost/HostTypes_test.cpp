#include "EngineFixture.h"

#include "HostText.h"
#include "HostValueType.h"

namespace {

class HostTypes : public EngineFixture {};

} // namespace

TEST_F(HostTypes, TheEightTypesAreRegisteredUnderTheirNames) {
    for (const char* name :
         {"string", "int", "int64", "bool", "float", "point3f", "filepath", "uint"}) {
        RXTypeDefinition* type = Engine.FindType(name);
        ASSERT_NE(nullptr, type) << name;
        EXPECT_STREQ(name, type->GetName());
    }
    EXPECT_EQ(Engine.FindType("string"), Engine.FindType("STRING"));
    EXPECT_EQ(nullptr, Engine.FindType("double"));
}

TEST_F(HostTypes, StringMembersMeasureCutAndCompare) {
    Run({"declare S string \"Hello, World\""});
    EXPECT_EQ("12 HELLO, WORLD hello, world", Text("${S.Length} ${S.Upper} ${S.Lower}"));
    EXPECT_EQ("TRUE FALSE FALSE TRUE",
              Text("${S.Equal[\"hello, world\"]} ${S.NotEqual[\"HELLO, world\"]} "
                   "${S.EqualCS[\"hello, world\"]} ${S.EqualCS[\"Hello, World\"]}"));
    EXPECT_EQ("Hello|World|Hello, World|",
              Text("${S.Left[5]}|${S.Right[5]}|${S.Left[99]}|${S.Left[-3]}"));
    EXPECT_EQ("World|World|NULL|",
              Text("${S.Mid[8,5]}|${S.Mid[8,99]}|${S.Mid[0,2]}|${S.Mid[99,2]}"));
    EXPECT_EQ("8 0 1", Text("${S.Find[world]} ${S.Find[xyz]} ${S.Find[H]}"));
    EXPECT_EQ("-1 0 1",
              Text("${S.Compare[Zebra]} ${S.Compare[\"HELLO, WORLD\"]} ${S.Compare[Apple]}"));
    Run({"declare T string a-b-c"});
    EXPECT_EQ(
        "b|a|c||NULL",
        Text("${T.Token[2,-]}|${T.Token[1,-]}|${T.Token[3,-]}|${T.Token[4,-]}|${T.Token[1]}"));
    EXPECT_EQ("NULL NULL", Text("${S.Equal} ${S.Left}")) << "a missing argument fails";
}

TEST_F(HostTypes, IntegersWrapToTheirWidth) {
    Run({"declare I int 2147483647", "I:Inc", "declare U uint 0", "U:Dec",
         "declare L int64 4294967296", "L:Set[${L}*2]", "declare H int 255"});
    EXPECT_EQ("-2147483648 4294967295 8589934592", Text("${I} ${U} ${L}"));
    EXPECT_EQ("FF FFFFFFFF 80000000", Text("${H.Hex} ${U.Hex} ${I.Hex}"));
    Run({"declare D int 7.9", "declare N int -7.9", "D:Inc[2.5]"});
    EXPECT_EQ("9 -7 9", Text("${D} ${N} ${D.Float}")) << "truncated towards zero";
    EXPECT_EQ(0, Engine.ExecuteCommand("D:Set[banana]"))
        << "a method that cannot use its argument fails";
    EXPECT_EQ(0, Engine.ExecuteCommand("D:Set"));
    EXPECT_EQ("9", Text("${D}"));
    Run({"declare Big int 1e30"});
    EXPECT_EQ(std::vector<std::string>{"declare: '1e30' is not a value of type int"},
              TakeConsole());
}

TEST_F(HostTypes, FloatsPrintShortAndRound) {
    Run({"declare F float 2.25", "F:Inc[0.5]", "declare G float -1.5", "declare Z float 0.1",
         "Z:Set[${Z}+0.2]"});
    EXPECT_EQ("2.75 -1.5 0.3", Text("${F} ${G} ${Z}"));
    EXPECT_EQ("2 3 3 2 -1 -2 -1 -2",
              Text("${F.Int} ${F.Round} ${F.Ceil} ${F.Floor} ${G.Int} ${G.Round} "
                   "${G.Ceil} ${G.Floor}"));
    EXPECT_EQ("3.5 0.333333 4", Text("${Math.Calc[7/2]} ${Math.Calc[1/3]} ${Math.Calc[8/2]}"));
    EXPECT_EQ("17179869184", Text("${Math.Calc[4294967296*4]}"))
        << "whole results keep every digit";
    EXPECT_EQ("NULL NULL", Text("${Math.Calc[1/0]} ${Math.Calc[1e300*1e300]}"));
    EXPECT_EQ(0, Engine.ExecuteCommand("F:Set[1e39]")) << "beyond a float";
    EXPECT_EQ("2.75", Text("${F}"));
}

TEST_F(HostTypes, BoolsReadTrueOrFalse) {
    Run({"declare A bool TRUE", "declare B bool 0", "declare C bool ${Math.Calc[2>1]}",
         "declare D bool 3 > 4", "B:Toggle", "A:Set[false]"});
    EXPECT_EQ("FALSE TRUE TRUE FALSE TRUE", Text("${A} ${B} ${C} ${D} ${A.Not}"));
    EXPECT_EQ(0, Engine.ExecuteCommand("A:Set[maybe]"));
}

TEST_F(HostTypes, PointsHoldThreeCoordinates) {
    Run({"declare P point3f 1,2.5", "declare Q point3f", "Q:Set[-1,${Math.Calc[2*3]},0.5]"});
    EXPECT_EQ("1,2.5,0 2.5 0|-1,6,0.5", Text("${P} ${P.Y} ${P.Z}|${Q}"));
    Run({"declare R point3f"});
    EXPECT_EQ("0,0,0 NULL", Text("${R} ${R.X}")) << "an unset point has no coordinates to give";
}

TEST_F(HostTypes, FilePathsKeepWideTextAndSplitIntoParts) {
    Run({"declare P filepath \"C:\\\\Games\\\\Ünï\\\\skin.v2.png\""});
    EXPECT_EQ("C:\\Games\\Ünï\\skin.v2.png", Text("${P}"));
    EXPECT_EQ("skin.v2.png|png|C:\\Games\\Ünï|26",
              Text("${P.FileName}|${P.Extension}|${P.Folder}|${P.Length}"));
    Run({"P:Set[plain]"});
    EXPECT_EQ("plain||", Text("${P.FileName}|${P.Extension}|${P.Folder}"));
    // The value is UTF-16, as the module hands texture names over.
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
