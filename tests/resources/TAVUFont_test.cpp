#include "TAVUFactory.h"
#include "TAVUFixedFont.h"
#include "TAVUFont.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"
#include "Words.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {
// An owner that records what its fonts tell it.
class FontOwner : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override {
        Notes.push_back({source, code, value});
    }
    struct Note {
        TAVUElement* Source;
        unsigned Code;
        size_t Value;
    };
    std::vector<Note> Notes;
};
TAVUFactory<FontOwner> g_FontOwnerFactory("fontowner");

// A font that is deleted at the end of the test, through its own class.
template <class T> struct Owned {
    T* Font;
    T* operator->() { return Font; }
    ~Owned() { TAVUFont::Delete(Font); }
};
} // namespace

class Font : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        Owner = static_cast<FontOwner*>(
            g_FontOwnerFactory.CreateUIElement(g_UIManager.Screen, "Owner"));
        g_UIManager.Render(); // the screen takes the display's size
        Host.ClearRecords();
    }
    // A font's request as "name height colour", with " bold" and " fixed".
    static std::string Fields(const TAVUFont& font) {
        char text[160];
        snprintf(text, sizeof(text), "%s %u %08X%s%s", font.Name, font.Height, font.Color,
                 font.Bold ? " bold" : "", font.Fixed ? " fixed" : "");
        return text;
    }
    FontOwner* Owner = nullptr;
};

TEST_F(Font, TheConstructorsFillWhatTheRequestLeavesOpen) {
    Owned<TAVUFont> plain{TAVUFont::New(Owner, nullptr, 14, true, false)};
    EXPECT_EQ(Fields(*plain.Font), " 14 FFFFFFFF fixed");
    EXPECT_EQ(plain->Element, Owner);

    // A node fills the open parts: "Name" as a value, "Color" and "Size" as attributes.
    XMLNode* node = Parse(R"(<Font Color="FF102030" Size="18"><Name>Serif</Name></Font>)");
    _CreateFont open{nullptr, 0, 0, true, false};
    Owned<TAVUFont> fromNode{TAVUFont::New(Owner, open, node)};
    EXPECT_EQ(Fields(*fromNode.Font), "Serif 18 FF102030 bold");
    _CreateFont given{"Mono", 9, 0xFF0000FF, false, true};
    Owned<TAVUFont> requested{TAVUFont::New(Owner, given, node)};
    EXPECT_EQ(Fields(*requested.Font), "Mono 9 FF0000FF fixed");
    XMLNode* huge = Parse(R"(<Font Size="300"/>)");
    EXPECT_EQ(
        Owned<TAVUFont> { TAVUFont::New(Owner, open, huge) } -> Height, 44u); // the size is a byte
    Owned<TAVUFont> withoutNode{TAVUFont::New(Owner, open, nullptr)};
    EXPECT_EQ(withoutNode->Color, 0xFFFFFFFFu);

    fromNode->Color = 0;
    ASSERT_TRUE(fromNode->Prepare());
    Owned<TAVUFont> copy{TAVUFont::New(nullptr, *fromNode.Font)};
    EXPECT_EQ(Fields(*copy.Font), "Serif 18 00000000 bold"); // a black copy stays black
    EXPECT_EQ(copy->Font, 0u);

    Owned<TAVUFixedFont> fixedCopy{TAVUFixedFont::New(Owner, *withoutNode.Font)};
    EXPECT_TRUE(fixedCopy->Fixed);
    Owned<TAVUFixedFont> fixedRequest{TAVUFixedFont::New(Owner, open, node)};
    EXPECT_EQ(Fields(*fixedRequest.Font), "Serif 18 FF102030 bold fixed");
}

TEST_F(Font, PreparingAsksTheHostOnceAndAFixedFontAlwaysAsksForFixedPitch) {
    Owned<TAVUFont> font{TAVUFont::New(Owner, "Sans", 16, false, true)};
    ASSERT_TRUE(font->Prepare());
    ASSERT_TRUE(font->Prepare());
    ASSERT_EQ(Host.Count("AcquireFont"), 1u);
    EXPECT_EQ(Host.CallsNamed("AcquireFont")[0].Line(), "AcquireFont \"Sans\" 16 false true");

    Owned<TAVUFixedFont> fixed{TAVUFixedFont::New(Owner, "Mono", 10, false)};
    fixed->Fixed = false;
    ASSERT_TRUE(fixed->Prepare());
    EXPECT_EQ(Host.CallsNamed("AcquireFont")[1].Line(), "AcquireFont \"Mono\" 10 true false");
    EXPECT_FALSE(fixed->IsFixedFont()); // the field answers, once prepared

    Host.FailFonts = true;
    Owned<TAVUFont> refused{TAVUFont::New(Owner, "Gone", 12, true, false)};
    EXPECT_FALSE(refused->Prepare());
    EXPECT_FALSE(refused->IsFixedFont());
    EXPECT_EQ(refused->Draw("text", 0, 0, 0), 0u);
    EXPECT_EQ(Host.Count("DrawText"), 0u);
}

TEST_F(Font, DrawingPassesRectangleFormatAndTheOwnersAlpha) {
    Owned<TAVUFont> font{TAVUFont::New(Owner, "Sans", 12, false, false)};
    font->Color = 0x80FF8040;
    EXPECT_EQ(font->Draw("abc", 10, 20, 0), 21u);
    font->Draw("abc", 10, 20, 50);
    font->DrawCenter("abc", 10, 20, 50);
    font->DrawRight("abc", 10, 20, 0);
    Owner->CurrentAlpha = 0.5f;
    font->Draw("a", 0, 0, 0);
    Owner->CurrentAlpha = 4.0f; // capped
    font->Draw("a", 0, 0, 0);
    // Unclipped down to the screen's height without a right edge; the owner's
    // alpha scales the colour's.
    EXPECT_EQ(Host.TextLines(), (std::vector<std::string>{"abc 10,20,10,600 0x80ff8040 0x00000120",
                                                          "abc 10,20,60,600 0x80ff8040 0x00000020",
                                                          "abc 10,20,60,600 0x80ff8040 0x00000021",
                                                          "abc 10,20,10,600 0x80ff8040 0x00000122",
                                                          "a 0,0,0,600 0x40ff8040 0x00000120",
                                                          "a 0,0,0,600 0xffff8040 0x00000120"}));
    Owner->CurrentAlpha = 1.0f;
    Host.Texts.clear();
    EXPECT_EQ(font->DrawClipped("", 0, 0, 100), 0u);
    EXPECT_EQ(font->DrawClipped("abc", 100, 0, 100), 0u);
    EXPECT_EQ(font->DrawRightClipped("abc", 101, 0, 100), 0u);
    font->DrawCenterClipped("abc", 30, 0, 100);
    EXPECT_EQ(Host.TextLines(), std::vector<std::string>{"abc 30,0,100,600 0x80ff8040 0x00000021"});
}

TEST_F(Font, MeasuresComeFromTheHostOrTwelvePixelsPerCharacter) {
    Owned<TAVUFont> font{TAVUFont::New(Owner, "Sans", 12, false, false)};
    EXPECT_EQ(font->GetTextWidth(nullptr), 0u);
    EXPECT_EQ(font->GetTextWidth("abcd"), 28u);
    EXPECT_EQ(font->GetTextWidth("abcdef", 2), 14u);
    EXPECT_EQ(Host.CallsNamed("MeasureText").back().Args[1], "\"ab\"");
    EXPECT_EQ(font->GetTextWidth("abc", 10), 21u); // only up to the text's end
    std::string longText(5000, 'w');
    EXPECT_EQ(font->GetTextWidth(longText.c_str(), 4097), 35000u); // measured whole
    EXPECT_EQ(font->GetTextWidth(longText.c_str(), 4096), 28672u);
    EXPECT_EQ(font->GetTextWidth(nullptr, 3), 0u);

    Host.FailFonts = true;
    Owned<TAVUFont> none{TAVUFont::New(Owner, "Gone", 12, false, false)};
    EXPECT_EQ(none->GetTextWidth("abcd"), 48u);
    EXPECT_EQ(none->GetTextWidth("abcd", 10), 120u);
    EXPECT_EQ(Host.Count("MeasureText"), 5u);
}

TEST_F(Font, CharactersByOffsetFitWhatThePixelsHold) {
    Owned<TAVUFont> proportional{TAVUFont::New(Owner, "Sans", 12, false, false)};
    EXPECT_EQ(proportional->GetCharByOffset("hello", 20), 2u);
    EXPECT_EQ(proportional->GetCharByOffset("hello", 21), 3u); // a character that just fits
    EXPECT_EQ(proportional->GetCharByOffset("hello", 1000), 5u);
    EXPECT_EQ(proportional->GetCharByOffset("", 1000), 0u);
    EXPECT_EQ(proportional->GetCharByOffset(nullptr, 1000), 0u);
    auto perByte = Host.CallsNamed("GetCharWidths");
    ASSERT_GE(perByte.size(), 3u);
    EXPECT_EQ(perByte[0].Line(),
              "GetCharWidths " + std::to_string(proportional->Font) + " 104 104");

    Owned<TAVUFixedFont> fixed{TAVUFixedFont::New(Owner, "Mono", 12, false)};
    Host.ClearRecords();
    EXPECT_EQ(fixed->GetCharByOffset("hello", 20), 2u);
    EXPECT_EQ(fixed->GetCharByOffset("hello", 1000), 5u);
    EXPECT_EQ(Host.Count("GetCharWidths"), 2u); // one call per query
    EXPECT_EQ(Host.CallsNamed("GetCharWidths")[0].Line(),
              "GetCharWidths " + std::to_string(fixed->Font) + " 32 32");
    EXPECT_EQ(fixed->GetCharWidth(), 7u);

    Host.CharWidth = 0; // a host that knows no width: 12, never a division by zero
    EXPECT_EQ(fixed->GetCharWidth(), 12u);
    EXPECT_EQ(fixed->GetCharByOffset("hello", 25), 2u);

    Host.FailFonts = true;
    Owned<TAVUFixedFont> none{TAVUFixedFont::New(Owner, "Gone", 12, false)};
    EXPECT_EQ(none->GetCharWidth(), 12u);
    EXPECT_EQ(none->GetCharByOffset("hello", 100), 0u);
}

TEST_F(Font, ChangesReleaseTheFaceAndTellTheOwnerOnlyWhenSomethingDiffers) {
    Owned<TAVUFont> font{TAVUFont::New(Owner, "Sans", 12, false, false)};
    ASSERT_TRUE(font->Prepare());
    unsigned handle = font->Font;
    font->SetName("SANS");
    font->SetBold(false);
    font->SetHeight(12);
    EXPECT_TRUE(Owner->Notes.empty());
    EXPECT_EQ(Host.Count("ReleaseFont"), 0u);

    font->SetName("Serif");
    ASSERT_EQ(Owner->Notes.size(), 1u);
    const FontOwner::Note& note = Owner->Notes[0]; // from no element, code 50, the font
    EXPECT_EQ(Words(note.Source == nullptr, note.Code, note.Value == size_t(font.Font), font->Font),
              "1 50 1 0");
    EXPECT_EQ(Host.CallsNamed("ReleaseFont")[0].Line(), "ReleaseFont " + std::to_string(handle));

    font->SetBold(true); // unprepared: nothing to give back, but the owner hears it
    font->SetHeight(20);
    font->SetName(nullptr);
    EXPECT_STREQ(font->Name, "");
    EXPECT_EQ(Owner->Notes.size(), 4u);
    EXPECT_EQ(Host.Count("ReleaseFont"), 1u);
    ASSERT_TRUE(font->Prepare());
    EXPECT_EQ(Host.CallsNamed("AcquireFont").back().Line(), "AcquireFont \"\" 20 false true");

    Owned<TAVUFont> orphan{TAVUFont::New(nullptr, "Sans", 12, false, false)};
    orphan->SetBold(true); // no owner to tell
    EXPECT_TRUE(orphan->Bold);
}

TEST_F(Font, HandlesGoBackOnceAndNeverAfterShutdown) {
    TAVUFont* font = TAVUFont::New(Owner, "Sans", 12, false, false);
    ASSERT_TRUE(font->Prepare());
    font->Release();
    font->Release();
    EXPECT_EQ(Host.Count("ReleaseFont"), 1u);
    ASSERT_TRUE(font->Prepare());
    TAVUFont::Delete(font);
    EXPECT_EQ(Host.Count("ReleaseFont"), 2u);
    EXPECT_TRUE(Host.LiveFonts.empty());
    TAVUFont::Delete(nullptr);

    TAVUFont* fixed = TAVUFixedFont::New(nullptr, "Mono", 12, false);
    ASSERT_TRUE(fixed->Prepare());
    TAVUFont* late = TAVUFont::New(nullptr, "Sans", 12, false, false);
    ASSERT_TRUE(late->Prepare());
    g_UIManager.Shutdown();
    Host.ClearRecords();
    fixed->Delete();
    late->Delete();
    EXPECT_EQ(Host.Count("ReleaseFont"), 0u);
}

// Where a font's name, size, colour and boldness come from is read back by
// scripts in tavuhost's font_keys case; scripts cannot see the fixed flag.
TEST_F(Font, TheDefaultFontMayMakeFontsFixedButAFixedFontReadsNoFixedKey) {
    EXPECT_EQ(Fields(*Owned<TAVUFixedFont>{TAVUFixedFont::NewFromXML(Owner, nullptr)}.Font),
              " 12 FFFFFFFF fixed");
    g_UIManager.AddTemplate("Default Font", R"(<Template><Name>Body</Name><Fixed/></Template>)");
    XMLNode* plain = Parse("<Font><Size>30</Size></Font>");
    EXPECT_EQ(Fields(*Owned<TAVUFont>{TAVUFont::NewFromXML(Owner, plain)}.Font),
              "Body 30 00000000 fixed");
    XMLNode* notFixed = Parse(R"(<Font><Fixed>0</Fixed><Color>FF00FF00</Color></Font>)");
    Owned<TAVUFixedFont> console{TAVUFixedFont::NewFromXML(Owner, notFixed)};
    EXPECT_TRUE(console->Fixed);
    EXPECT_STREQ(console->Name, "Body");
    EXPECT_EQ(console->Color, 0xFF00FF00u);
}
