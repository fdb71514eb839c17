#include "PathHelpers.h"
#include "StringHelpers.h"
#include "TAVUSkin.h"
#include "TAVUTexture.h"
#include "ToolkitTest.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {
// A path under the test data, written with the system's own separators.
std::string DataPath(const char* relative) {
    std::string path = std::string(TAVU_TEST_DATA_DIR) + "/resources/" + relative;
#if defined(_WIN32)
    for (char& c : path)
        if (c == '/') c = '\\';
#endif
    return path;
}

// A texture that is deleted at the end of the test.
struct TextureHolder {
    TAVUTexture* Texture;
    TAVUTexture* operator->() { return Texture; }
    ~TextureHolder() { TAVUTexture::Delete(Texture); }
};
} // namespace

class Texture : public ToolkitTest {
protected:
    TextureHolder Read(const char* xml, const char* templateXml = nullptr) {
        XMLNode* node = Parse(xml);
        TAVUTexture* texture = TAVUTexture::New("image.png");
        if (templateXml) {
            XMLNode* templateNode = Parse(templateXml);
            texture->FromXML(node, templateNode);
        } else {
            texture->FromXML(node);
        }
        return {texture};
    }

    // Every field read from XML, as "flags rect border orientation alpha mask
    // key triangle": one comparison shows all that differs.
    static std::string Fields(const TAVUTexture& t) {
        char text[256];
        snprintf(text, sizeof(text), "%u %d,%d,%d,%d b%u o%d a%g m%08X k%08X %g,%g,%g,%g,%g,%g",
                 t.Flags, t.Left, t.Top, t.Right, t.Bottom, t.Border, t.Orientation, t.Alpha,
                 t.ColorMask, t.ColorKey, t.X1, t.Y1, t.X2, t.Y2, t.X3, t.Y3);
        return text;
    }

    // The file that reading a texture from XML text finds; "(none)" when
    // nothing is made.
    std::string FileOf(const std::string& xml) {
        TAVUTexture* texture = TAVUTexture::NewFromXML(Parse(xml));
        std::string found = texture ? texture->Filename : "(none)";
        TAVUTexture::Delete(texture);
        return found;
    }

    size_t CallsWith(const char* name, const std::string& firstArgument) {
        size_t count = 0;
        for (const auto& call : Host.CallsNamed(name))
            count += !call.Args.empty() && call.Args[0] == firstArgument;
        return count;
    }
};

// Zero sides, empty alphas, colour masks as attributes and on templates, and
// hash names are read back by scripts in tavuhost's texture_keys case.
TEST_F(Texture, EveryKeyOfTheNodeIsRead) {
    TextureHolder texture = Read(R"(<Background ColorKey="FFFF00FF">
        <left>1</left><top>2</top><right>30</right><bottom>40</bottom>
        <Triangle X1="1.5" Y1="2" X2="3" Y2="4" X3="5" Y3="6.25"/>
        <Border>4</Border><Orientation>258</Orientation>
        <Alpha>0.5</Alpha><ColorMask>80FF0000</ColorMask>
    </Background>)");
    // Rect, alpha, mask and triangle flags; the orientation's low byte.
    EXPECT_EQ(Fields(*texture.Texture),
              "23 1,2,30,40 b4 o2 a0.5 m80FF0000 kFFFF00FF 1.5,2,3,4,5,6.25");
}

TEST_F(Texture, TheTemplateGivesDefaultsAndTheNodeWins) {
    const char* templateXml = R"(<Template ColorKey="FF000000">
        <left>3</left><right>9</right><Border>2</Border><Orientation>1</Orientation>
        <Alpha>0.25</Alpha><ColorMask>FF00FF00</ColorMask>
        <Triangle X1="7"/>
    </Template>)";
    EXPECT_EQ(Fields(*Read("<T/>", templateXml).Texture),
              "23 3,0,9,0 b2 o1 a0.25 mFF00FF00 kFF000000 7,0,0,0,0,0");
    // The node's triangle replaces the template's whole; an empty attribute
    // falls to the template's.
    EXPECT_EQ(Fields(*Read(R"(<T ColorKey=""><left>4</left><Alpha>0.75</Alpha>
        <Triangle X2="8"/></T>)",
                           templateXml)
                          .Texture),
              "23 4,0,9,0 b2 o1 a0.75 mFF00FF00 kFF000000 0,0,8,0,0,0");
}

TEST_F(Texture, PreparingAndSizingGoThroughTheHostOnlyWhenNeeded) {
    Host.TextureSizes["sheet.png"] = {128, 32};
    TextureHolder texture{TAVUTexture::New("sheet.png")};
    EXPECT_FALSE(texture->GetSize()); // not prepared, and GetSize does not prepare
    EXPECT_EQ(Host.Count("AcquireTexture"), 0u);
    ASSERT_TRUE(texture->Prepare());
    ASSERT_TRUE(texture->Prepare());
    EXPECT_EQ(Host.Count("AcquireTexture"), 1u);
    texture->Left = 3;
    ASSERT_TRUE(texture->GetSize());
    EXPECT_EQ(Fields(*texture.Texture).substr(0, 13), "1 3,0,128,32 "); // the rect flag set

    TextureHolder cut = Read("<T><right>16</right><bottom>8</bottom></T>");
    Host.ClearRecords();
    EXPECT_TRUE(cut->GetSize());
    EXPECT_EQ(Host.Count("GetTextureSize"), 0u);
    EXPECT_EQ(Fields(*cut.Texture).substr(0, 11), "1 0,0,16,8 ");

    Host.MissingTextures.insert("gone.png");
    TextureHolder missing{TAVUTexture::New("gone.png")};
    EXPECT_FALSE(missing->Prepare());
    EXPECT_FALSE(missing->Prepare()); // tried again on the next draw
    EXPECT_EQ(CallsWith("AcquireTexture", "\"gone.png\""), 2u);
}

TEST_F(Texture, ACopyStartsUnpreparedAndPreparesItsSource) {
    TextureHolder source = Read(R"(<T ColorKey="FF00FF00"><left>1</left><Alpha>0.5</Alpha>
        <Border>3</Border><Orientation>2</Orientation><Triangle Y2="4"/></T>)");
    TextureHolder copy{TAVUTexture::New(*source.Texture)};
    ASSERT_NE(copy.Texture, nullptr);
    EXPECT_EQ(copy->Texture, 0u);
    EXPECT_NE(source->Texture, 0u);
    EXPECT_EQ(Host.Count("AcquireTexture"), 1u);
    EXPECT_NE(copy->Filename, source->Filename);
    EXPECT_STREQ(copy->Filename, "image.png");
    EXPECT_EQ(Fields(*copy.Texture), Fields(*source.Texture));
}

TEST_F(Texture, SetAndSetFromGiveTheOldHandleBackOnce) {
    TextureHolder texture = Read("<T><Border>5</Border></T>");
    ASSERT_TRUE(texture->Prepare());
    unsigned first = texture->Texture;
    texture->Set("other.png", 0xFF123456);
    EXPECT_EQ(texture->Texture, 0u);
    EXPECT_STREQ(texture->Filename, "other.png");
    EXPECT_EQ(Fields(*texture.Texture), "0 0,0,0,0 b5 o0 a1 m00000000 kFF123456 0,0,0,0,0,0");
    EXPECT_EQ(CallsWith("ReleaseTexture", std::to_string(first)), 1u);
    texture->Set(nullptr, 0);
    EXPECT_STREQ(texture->Filename, "");

    TextureHolder model = Read("<T><Border>9</Border></T>");
    ASSERT_TRUE(texture->Prepare());
    unsigned second = texture->Texture;
    texture->SetFrom(*model.Texture);
    EXPECT_EQ(CallsWith("ReleaseTexture", std::to_string(second)), 1u);
    EXPECT_EQ(texture->Border, 9u);
    EXPECT_STREQ(texture->Filename, "image.png");
    EXPECT_NE(model->Texture, 0u);

    texture->SetFrom(*texture.Texture); // from itself: the name survives
    EXPECT_STREQ(texture->Filename, "image.png");
    EXPECT_NE(texture->Texture, 0u);
}

TEST_F(Texture, DeletionReleasesOnceAndNothingReachesTheHostAfterShutdown) {
    TAVUTexture* texture = TAVUTexture::New("a.png");
    ASSERT_TRUE(texture->Prepare());
    unsigned handle = texture->Texture;
    TAVUTexture::Delete(texture);
    EXPECT_EQ(CallsWith("ReleaseTexture", std::to_string(handle)), 1u);
    EXPECT_TRUE(Host.LiveTextures.empty());
    TAVUTexture::Delete(nullptr);

    TAVUTexture* unprepared = TAVUTexture::New("b.png");
    unprepared->Delete();
    EXPECT_EQ(Host.Count("ReleaseTexture"), 1u); // no handle, nothing to give back

    TAVUTexture* late = TAVUTexture::New("c.png");
    ASSERT_TRUE(late->Prepare());
    g_UIManager.Shutdown();
    Host.ClearRecords();
    late->Delete();
    EXPECT_EQ(Host.Count("ReleaseTexture"), 0u);
}

TEST_F(Texture, ReadingFromXMLFindsTheFileBesideTheInterfaceThenOnTheSearchPath) {
    StrCopyBounded(g_UIManager.CurrentFile, DataPath("skin/interface.xml").c_str(),
                   sizeof(g_UIManager.CurrentFile));
    Host.TextureFiles["button.png"] = DataPath("search/button.png");
    Host.TextureFiles["shared.png"] = DataPath("search/shared.png");
    Host.TextureFiles["stale.png"] = DataPath("search/deleted-since.png");
    EXPECT_EQ(FileOf(R"(<Button Filename="button.png"/>)"), DataPath("skin/button.png"));
    EXPECT_EQ(Host.Count("FindTextureFile"), 0u);
    EXPECT_EQ(FileOf(R"(<Button Filename="shared.png"/>)"), DataPath("search/shared.png"));
    // The host's answer must exist too.
    EXPECT_EQ(FileOf(R"(<Button Filename="stale.png"/>)"), "(none)");
    EXPECT_EQ(FileOf(R"(<Button Filename="nowhere.png"/>)"), "(none)");
    EXPECT_TRUE(Host.Console.empty());
    // A full path given in the file stands as it is.
    EXPECT_EQ(FileOf("<Button Filename=\"" + DataPath("search/shared.png") + "\"/>"),
              DataPath("search/shared.png"));

    // An interface file without a folder: only the host is asked.
    StrCopyBounded(g_UIManager.CurrentFile, "interface.xml", sizeof(g_UIManager.CurrentFile));
    Host.ClearRecords();
    EXPECT_EQ(FileOf(R"(<Button Filename="button.png"/>)"), DataPath("search/button.png"));
    EXPECT_EQ(Host.Count("FindTextureFile"), 1u);
}

TEST_F(Texture, LongNamesAreCutNeverOverrun) {
    std::string longName(3000, 'n');
    StrCopyBounded(g_UIManager.CurrentFile, DataPath("skin/interface.xml").c_str(),
                   sizeof(g_UIManager.CurrentFile));
    std::string xml = "<T Filename=\"" + longName + "\"/>";
    XMLNode* document = Parse(xml.c_str());
    EXPECT_EQ(TAVUTexture::NewFromXML(document), nullptr);
    EXPECT_EQ(TAVUTexture::NewFromXML(nullptr), nullptr);
    char path[8];
    EXPECT_TRUE(TAVUTexture::ResolveFilename("#abcdefghijkl", path, sizeof(path)));
    EXPECT_STREQ(path, "#abcdef");
}

TEST(PathHelpers, SplitAtTheLastSeparatorOfEitherKindOffWindows) {
    const char* mixed = "C:\\ui\\skins/night\\button.png";
    EXPECT_STREQ(PathLastSeparator(mixed), "\\button.png");
#if defined(_WIN32)
    EXPECT_STREQ(PathLastSeparator("a\\b/c.png"), "\\b/c.png");
#else
    EXPECT_STREQ(PathLastSeparator("a\\b/c.png"), "/c.png");
#endif
    EXPECT_EQ(PathLastSeparator("plain.png"), nullptr);
    EXPECT_EQ(PathLastSeparator(nullptr), nullptr);
}

TEST(PathHelpers, OnlyRegularFilesExist) {
    EXPECT_TRUE(PathFileExists(DataPath("skin/button.png").c_str()));
    EXPECT_FALSE(PathFileExists(DataPath("skin").c_str()));
    EXPECT_FALSE(PathFileExists(DataPath("skin/none.png").c_str()));
    EXPECT_FALSE(PathFileExists(""));
    EXPECT_FALSE(PathFileExists(nullptr));
    // Cut at 511 characters: a name that only exists past the cut is not found.
    std::string longPath = DataPath("skin/button.png") + std::string(600, 'x');
    EXPECT_FALSE(PathFileExists(longPath.c_str()));
}

TEST_F(Texture, WithoutATemplateTheNodesOwnTemplateIsFoundThroughTheSkin) {
    g_UIManager.AddTemplate("plain", "<Template><Border>1</Border></Template>");
    g_UIManager.AddTemplate("night", "<Template><Border>7</Border></Template>");
    TextureHolder plain = Read(R"(<T Template="Plain"/>)");
    EXPECT_EQ(plain->Border, 1u);
    TAVUSkin* skin = g_UIManager.NewSkin("Night");
    skin->AddTemplate("plain", "night");
    g_UIManager.CurrentSkin = skin;
    TextureHolder skinned = Read(R"(<T Template="plain"/>)");
    EXPECT_EQ(skinned->Border, 7u);
}
