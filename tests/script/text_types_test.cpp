#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUText.h"
#include "TAVUTooltip.h"

#include <string>
#include <vector>

class TextTypes : public ScriptTypeTest {
protected:
    template <class T> T* Make(const char* type, const char* name) {
        return static_cast<T*>(g_UIManager.LoadElement(g_UIManager.Screen, type, name));
    }
    // Every name of a type's tables: a member or method added to the type
    // without a row here, or a row whose handler lost its case, fails.
    void ExpectAnswered(RXTypeDefinition* type, void* object,
                        const std::vector<std::vector<std::string>>& members,
                        const std::vector<std::vector<std::string>>& methods) {
        EXPECT_EQ(size_t(type->Members.Count()), members.size()) << type->TypeName;
        EXPECT_EQ(size_t(type->Methods.Count()), methods.size()) << type->TypeName;
        for (const auto& row : members) {
            std::vector<std::string> args(row.begin() + 1, row.end());
            EXPECT_EQ(Member(type, object, row[0].c_str(), args), 1) << row[0];
            EXPECT_EQ(Member(type, nullptr, row[0].c_str(), args), 0) << row[0];
        }
        for (const auto& row : methods) {
            std::vector<std::string> args(row.begin() + 1, row.end());
            EXPECT_EQ(Method(type, object, row[0].c_str(), args), 1) << row[0];
            EXPECT_EQ(Method(type, nullptr, row[0].c_str(), args), 0) << row[0];
        }
    }
};

TEST_F(TextTypes, EachTypeAnswersEveryNameOfItsTables) {
    auto* text = Make<TAVUText>("text", "T");
    auto* tooltip = Make<TAVUTooltip>("tooltip", "Tip");
    EXPECT_EQ(text->GetRXType(), pTAVUTextType);
    EXPECT_EQ(tooltip->GetRXType(), pTAVUTooltipType);
    tooltip->Print("a line to read");
    ExpectAnswered(pTAVUTextType, text, {{"Text"}, {"Font"}, {"NumLines"}, {"Wrap"}},
                   {{"SetText", "x"},
                    {"SetHorizontalAlignment", "center"},
                    {"SetVerticalAlignment", "top"},
                    {"SetWrap", "1"}});
    ExpectAnswered(pTAVUTooltipType, tooltip, {{"Font"}, {"Lines"}, {"Line", "1"}},
                   {{"Print", "one"}, {"SetLine", "1", "two"}, {"Reset"}});
}

TEST_F(TextTypes, TextMembersAndMethods) {
    auto* text = Make<TAVUText>("text", "Status");
    EXPECT_EQ(Member(pTAVUTextType, text, "Text"), 1); // never set, still an answer
    EXPECT_EQ(Method(pTAVUTextType, text, "SetText", {"Ready ${Name}"}), 1);
    EXPECT_EQ(Member(pTAVUTextType, text, "Text"), 1);
    EXPECT_EQ(ResultText(), "Ready ${Name}");
    EXPECT_EQ(Method(pTAVUTextType, text, "SetText"), 1);
    EXPECT_STREQ(text->Text, "");

    text->Font = TAVUFont::New(text, nullptr, 10, false, false);
    text->Width = 35;
    EXPECT_EQ(Method(pTAVUTextType, text, "SetText", {"hello world"}), 1);
    EXPECT_EQ(Member(pTAVUTextType, text, "NumLines"), 1);
    EXPECT_EQ(ResultText(), "2");
    EXPECT_EQ(Member(pTAVUTextType, text, "Font"), 1);
    EXPECT_EQ(Result.Type, pTAVUFontType);

    Host.Calculations["2-1"] = 1.0;
    EXPECT_EQ(Method(pTAVUTextType, text, "SetWrap", {"2-1"}), 1);
    EXPECT_EQ(Member(pTAVUTextType, text, "Wrap"), 1);
    EXPECT_EQ(ResultText(), "TRUE");
    EXPECT_EQ(Method(pTAVUTextType, text, "SetWrap", {"0"}), 1);
    EXPECT_FALSE(text->Wrap);
    EXPECT_EQ(Method(pTAVUTextType, text, "SetWrap"), 0);
    EXPECT_EQ(Member(pTAVUTextType, text, "Visible"), 1); // climbs to tavuelement
    EXPECT_EQ(Member(pTAVUTextType, text, "Border"), -1); // tavutext climbs past tavuframe
}

TEST_F(TextTypes, AlignmentWordsAndTheVerticalMethodThatSetsTheHorizontalField) {
    struct Case {
        const char* Method;
        const char* Word;
        eTextAlign Horizontal;
    };
    const Case cases[] = {
        {"SetHorizontalAlignment", "CENTER", TAVU_ALIGN_CENTER},
        {"SetHorizontalAlignment", "right", TAVU_ALIGN_RIGHT},
        {"SetHorizontalAlignment", "middle", TAVU_ALIGN_LEFT},
        {"SetVerticalAlignment", "bottom", TAVU_ALIGN_BOTTOM},
        {"SetVerticalAlignment", "Center", TAVU_ALIGN_VCENTER},
        {"SetVerticalAlignment", "anything", TAVU_ALIGN_TOP},
    };
    auto* text = Make<TAVUText>("text", "Aligned");
    for (const Case& c : cases) {
        EXPECT_EQ(Method(pTAVUTextType, text, c.Method, {c.Word}), 1) << c.Word;
        EXPECT_EQ(text->HorizontalAlignment, c.Horizontal) << c.Method << " " << c.Word;
        EXPECT_EQ(text->VerticalAlignment, TAVU_ALIGN_TOP) << c.Method << " " << c.Word;
    }
    EXPECT_EQ(Method(pTAVUTextType, text, "SetVerticalAlignment"), 0); // required
}

TEST_F(TextTypes, TooltipLinesAreReadAndSetByNumberFromOne) {
    auto* tooltip = Make<TAVUTooltip>("tooltip", "Hint");
    EXPECT_EQ(Method(pTAVUTooltipType, tooltip, "Print", {"first\nsecond ${X}"}), 1);
    EXPECT_EQ(Member(pTAVUTooltipType, tooltip, "Lines"), 1);
    EXPECT_EQ(ResultText(), "2");
    EXPECT_EQ(Member(pTAVUTooltipType, tooltip, "Line", {"2"}), 1);
    EXPECT_EQ(ResultText(), "second ${X}"); // the raw text
    for (const char* outside : {"0", "3", "-1", "x"})
        EXPECT_EQ(Member(pTAVUTooltipType, tooltip, "Line", {outside}), 0) << outside;
    EXPECT_EQ(Member(pTAVUTooltipType, tooltip, "Line"), 0);

    EXPECT_EQ(Method(pTAVUTooltipType, tooltip, "SetLine", {"1", "changed"}), 1);
    EXPECT_STREQ(tooltip->GetLine(1)->Text, "changed");
    EXPECT_EQ(Method(pTAVUTooltipType, tooltip, "SetLine", {"1"}), 0); // needs both
    EXPECT_EQ(Method(pTAVUTooltipType, tooltip, "SetLine", {"3", "x"}), 0);
    EXPECT_EQ(Method(pTAVUTooltipType, tooltip, "Print"), 0);

    EXPECT_EQ(Method(pTAVUTooltipType, tooltip, "Reset"), 1);
    EXPECT_EQ(Member(pTAVUTooltipType, tooltip, "Lines"), 1);
    EXPECT_EQ(ResultText(), "0");
    EXPECT_EQ(Member(pTAVUTooltipType, tooltip, "Line", {"1"}), 0);
    EXPECT_EQ(Method(pTAVUTooltipType, tooltip, "SetBorder", {"3"}), 1); // tavuframe's
    EXPECT_EQ(tooltip->Border, 3u);
}
