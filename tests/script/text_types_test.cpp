#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUText.h"
#include "TAVUTooltip.h"

#include <string>
#include <tuple>
#include <vector>

using Calls = std::vector<std::vector<std::string>>;

class TextTypes : public ScriptTypeTest {
protected:
    // Every name of a type's tables: a member or method added to the type
    // without a row here, or a row whose handler lost its case, fails. Each is
    // asked on no object, then with every shorter argument list, which it must
    // refuse without reading past it, then in full. A member row is the name,
    // the result it gives and its arguments; a method row the name and its
    // arguments, none where an argument may be left out.
    void ExpectAnswered(RXTypeDefinition* type, void* object, const Calls& members,
                        const Calls& methods) {
        EXPECT_EQ(size_t(type->Members.Count()), members.size()) << type->TypeName;
        EXPECT_EQ(size_t(type->Methods.Count()), methods.size()) << type->TypeName;
        for (const Calls* calls : {&members, &methods})
            for (const auto& row : *calls) {
                SCOPED_TRACE(row[0]);
                auto first = row.begin() + (calls == &members ? 2 : 1);
                auto call = [&](void* on, size_t count) {
                    std::vector<std::string> args(first, first + count);
                    return calls == &members ? Member(type, on, row[0].c_str(), args)
                                             : Method(type, on, row[0].c_str(), args);
                };
                size_t all = size_t(row.end() - first);
                EXPECT_EQ(call(nullptr, all), 0);
                for (size_t count = 0; count < all; ++count)
                    EXPECT_EQ(call(object, count), 0) << count << " arguments";
                EXPECT_EQ(call(object, all), 1);
                EXPECT_TRUE(calls != &members || ResultText() == row[1]) << ResultText();
            }
    }
};

TEST_F(TextTypes, EachTypeAnswersEveryNameOfItsTables) {
    auto* text = static_cast<TAVUText*>(g_UIManager.LoadElement(g_UIManager.Screen, "text", "T"));
    Host.Calculations["0+1"] = 1.0; // a calculation, not a number
    ExpectAnswered(pTAVUTextType, text,
                   {{"Text", "(null)"}, {"Font", "tavufont"}, {"NumLines", "1"}, {"Wrap", "FALSE"}},
                   {{"SetText"},
                    {"SetHorizontalAlignment"},
                    {"SetVerticalAlignment", "top"},
                    {"SetWrap", "0+1"}});
    EXPECT_TRUE(text->Wrap);
    EXPECT_STREQ(text->Text, ""); // SetText without an argument
    // tavutext climbs to tavuelement, not through tavuframe; tavutooltip does.
    EXPECT_EQ(Member(pTAVUTextType, text, "Border"), -1);

    auto* tooltip =
        static_cast<TAVUTooltip*>(g_UIManager.LoadElement(g_UIManager.Screen, "tooltip", "Tip"));
    EXPECT_EQ(Method(pTAVUTooltipType, tooltip, "SetBorder", {"3"}), 1);
    Host.DataSequences = [](const std::string&) { return std::string("resolved"); };
    tooltip->Print("first\nsecond ${X}"); // read back as it was printed
    ExpectAnswered(pTAVUTooltipType, tooltip,
                   {{"Font", "tavufont"}, {"Lines", "2"}, {"Line", "second ${X}", "2"}},
                   {{"Reset"}, {"Print", "one\ntwo"}, {"SetLine", "2", "changed"}});
    EXPECT_STREQ(tooltip->GetLine(2)->Text, "changed");
    for (const char* outside : {"0", "3", "-1", "x"}) // lines count from 1 up to the last
        EXPECT_EQ(Member(pTAVUTooltipType, tooltip, "Line", {outside}), 0) << outside;
}

TEST_F(TextTypes, AlignmentWordsAndTheVerticalMethodThatSetsTheHorizontalField) {
    const std::tuple<const char*, const char*, eTextAlign> cases[] = {
        {"SetHorizontalAlignment", "CENTER", TAVU_ALIGN_CENTER},
        {"SetHorizontalAlignment", "right", TAVU_ALIGN_RIGHT},
        {"SetHorizontalAlignment", "middle", TAVU_ALIGN_LEFT},
        {"SetVerticalAlignment", "bottom", TAVU_ALIGN_BOTTOM},
        {"SetVerticalAlignment", "Center", TAVU_ALIGN_VCENTER},
        {"SetVerticalAlignment", "anything", TAVU_ALIGN_TOP},
    };
    auto* text = static_cast<TAVUText*>(g_UIManager.LoadElement(g_UIManager.Screen, "text", "A"));
    for (const auto& [method, word, horizontal] : cases) {
        SCOPED_TRACE(std::string(method) + " " + word);
        EXPECT_EQ(Method(pTAVUTextType, text, method, {word}), 1);
        EXPECT_EQ(text->HorizontalAlignment, horizontal);
        EXPECT_EQ(text->VerticalAlignment, TAVU_ALIGN_TOP);
    }
}
