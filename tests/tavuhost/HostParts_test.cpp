#include "HeadlessHost.h"
#include "HostOptions.h"
#include "ImageSize.h"
#include "KeyNames.h"
#include "NativePath.h"
#include "ScriptEngine.h"
#include "SoftwareRenderer.h"
#include "TraceWriter.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

const std::string DataFolder = std::string(TAVU_TEST_DATA_DIR) + "/tavuhost";

bool ParseOptions(HostOptions& options, std::vector<const char*> words) {
    words.insert(words.begin(), "tavuhost");
    return options.Parse(int(words.size()), const_cast<char**>(words.data()));
}

std::string ReadAll(const std::string& path) {
    std::string text;
    if (FILE* file = fopen(path.c_str(), "rb")) {
        char buffer[4096];
        size_t count = 0;
        while ((count = fread(buffer, 1, sizeof(buffer), file)) > 0)
            text.append(buffer, count);
        fclose(file);
    }
    return text;
}

// A host object over an engine, with no module loaded: what the host answers
// the toolkit does not depend on the module.
class HeadlessHostTest : public ::testing::Test {
protected:
    HeadlessHostTest() : Host(Engine, Trace, Module) {
        Engine.SetConsole([this](const std::string& line) { Console.push_back(line); });
        TracePath = testing::TempDir() + "tavuhost_trace.txt";
        Trace.Open(TracePath);
        Host.AddSearchFolder(DataFolder);
    }
    ~HeadlessHostTest() { remove(TracePath.c_str()); }

    ScriptEngine Engine;
    TraceWriter Trace;
    TavukitModule Module;
    HeadlessHost Host;
    std::string TracePath;
    std::vector<std::string> Console;
};

} // namespace

// Each option is used by some tavuhost case; these are the defaults, the end
// of options and what makes a run paint.
TEST(HostOptions, DefaultsAndTheEndOfOptions) {
    HostOptions options;
    ASSERT_TRUE(ParseOptions(options, {}));
    EXPECT_EQ("800x600 TAVU 1", std::to_string(options.Width) + "x" +
                                    std::to_string(options.Height) + " " + options.Prefix + " " +
                                    std::to_string(options.Frames));
    EXPECT_FALSE(options.Renders()) << "a plain run paints nothing";
    HostOptions files;
    ASSERT_TRUE(ParseOptions(files, {"a.xml", "--", "-odd.xml"}));
    EXPECT_EQ((std::vector<std::string>{"a.xml", "-odd.xml"}), files.Files);
    for (std::vector<const char*> paints :
         {std::vector<const char*>{"--render"}, {"--window"}, {"--png", "x.png"}}) {
        HostOptions render;
        ASSERT_TRUE(ParseOptions(render, paints)) << paints[0];
        EXPECT_TRUE(render.Renders()) << paints[0];
    }
}

TEST(HostOptions, BadUsageSaysWhatIsWrong) {
    struct Case {
        std::vector<const char*> Words;
        const char* Error;
    } cases[] = {
        {{"--bogus"}, "unknown option '--bogus'"},
        {{"--frames"}, "--frames needs a value"},
        {{"--size", "800"}, "--size wants WxH, such as 800x600"},
        {{"--size", "0x600"}, "--size: each side must be between 1 and 16384"},
        {{"--size", "-5x5"}, "--size wants WxH, such as 800x600"},
        {{"--size", "99999999999999999999x1"}, "--size wants WxH, such as 800x600"},
        {{"--frames", "-1"}, "--frames wants a number from 0 to 1000000"},
        {{"--frames", "1000001"}, "--frames wants a number from 0 to 1000000"},
        {{"--prefix", ""}, "--prefix wants a tag of 1 to 63 characters"},
        {{"--script", "a", "--script", "b"}, "only one --script may be given"},
        {{"--png", ""}, "--png wants a file name"},
        {{"--png"}, "--png needs a value"},
    };
    for (const Case& c : cases) {
        HostOptions options;
        EXPECT_FALSE(ParseOptions(options, c.Words)) << c.Error;
        EXPECT_EQ(c.Error, options.Error());
    }
    HostOptions help;
    EXPECT_TRUE(ParseOptions(help, {"--help"}));
    EXPECT_TRUE(help.Help);
}

// Key names both ways, and the keys of characters that arguments can carry,
// are checked end to end by tavuhost's key_names case.
TEST(KeyNames, TypingACharacterPicksItsKeyAndShift) {
    struct Typed {
        char Character;
        unsigned Code;
        bool Shift;
    } cases[] = {{'"', 0xDE, true}, {'\n', 0x0D, false}};
    for (const Typed& typed : cases) {
        unsigned code = 0;
        bool shift = !typed.Shift;
        ASSERT_TRUE(KeyNames::KeyFor(typed.Character, code, shift)) << typed.Character;
        EXPECT_EQ(typed.Code, code) << typed.Character;
        EXPECT_EQ(typed.Shift, shift) << typed.Character;
    }
    unsigned code = 0;
    bool shift = false;
    EXPECT_FALSE(KeyNames::KeyFor('\x01', code, shift));
    EXPECT_FALSE(KeyNames::KeyFor('\xC3', code, shift));
    EXPECT_FALSE(KeyNames::KeyFor('\0', code, shift));
}

TEST(ImageSize, RefusesTruncatedAndImpossibleHeaders) {
    const unsigned char pngStart[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n', 0, 0,
                                      0,    13,  'I', 'H', 'D',  'R',  0,    0,    0, 3};
    int32_t width = -1, height = -1;
    EXPECT_FALSE(ImageSize::Parse(pngStart, sizeof(pngStart), width, height));
    unsigned char zeroPng[24] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n',
                                 0,    0,   0,   13,  'I',  'H',  'D',  'R'};
    EXPECT_FALSE(ImageSize::Parse(zeroPng, sizeof(zeroPng), width, height)) << "0 x 0";
    unsigned char hugePng[24] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n', 0, 0, 0, 13,
                                 'I',  'H', 'D', 'R', 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 1};
    EXPECT_FALSE(ImageSize::Parse(hugePng, sizeof(hugePng), width, height)) << "beyond int32";
    const unsigned char text[] = "just some text, not an image";
    EXPECT_FALSE(ImageSize::Parse(text, sizeof(text), width, height));
    EXPECT_FALSE(ImageSize::Read(nullptr, width, height));
    EXPECT_EQ(-1, width) << "a refused header leaves the outputs alone";
    unsigned char topDown[26] = {'B', 'M'};
    topDown[18] = 8;
    topDown[22] = 0xFE, topDown[23] = 0xFF, topDown[24] = 0xFF, topDown[25] = 0xFF; // -2
    ASSERT_TRUE(ImageSize::Parse(topDown, sizeof(topDown), width, height));
    EXPECT_EQ(8, width);
    EXPECT_EQ(2, height);
}

TEST(TraceWriter, FieldsAreWrittenInTheirFixedForms) {
    EXPECT_EQ("0x00ABCDEF", TraceWriter::Hex(0xABCDEF));
    EXPECT_EQ("-7", TraceWriter::Int(-7));
    EXPECT_EQ("\"a\\\"b\\\\c\\n\\t\\x01\\xc3\\xa9\"", TraceWriter::Text("a\"b\\c\n\t\x01\xC3\xA9"));
    EXPECT_EQ("null", TraceWriter::Text(nullptr));
    tagRECT rect{1, -2, 3, 4};
    EXPECT_EQ("1 -2 3 4", TraceWriter::Rect(&rect));
    TAVUDrawRecord record{7, 1, 2, 3, 4, 5, 6, 7, 8, 9, 255, 2, {0, 0}, 0x80FF0000};
    EXPECT_EQ("0x00000007 1 2 3 4 5 6 7 8 9 255 2 0x80FF0000", TraceWriter::Record(&record));
}

TEST_F(HeadlessHostTest, TextMeasuresSevenPixelsAByte) {
    size_t width = 12;
    Host.MeasureText(1, "Hello", &width);
    EXPECT_EQ(35u, width);
    Host.MeasureText(1, "", &width);
    EXPECT_EQ(0u, width);
    float abc[3] = {-1, -1, -1};
    EXPECT_TRUE(Host.GetCharWidths(1, 'W', 'W', abc));
    EXPECT_EQ(7.0f, abc[0] + abc[1] + abc[2]);
    tagRECT rect{0, 0, 100, 20};
    EXPECT_EQ(21u, Host.DrawText(1, "abc", &rect, 0xFFFFFFFF, 0x20));
}

TEST_F(HeadlessHostTest, TexturesReportTheSizeOfTheirImage) {
    const struct {
        std::string File;
        int Width, Height;
    } images[] = {{"textures/red3x2.png", 3, 2},
                  {"textures\\green5x4.bmp", 5, 4},
                  {DataFolder + "/textures/blue7x6.tga", 7, 6}};
    unsigned expected = 2; // handle 1 is the mark of an untextured line
    for (const auto& image : images) {
        unsigned handle = Host.AcquireTexture(image.File.c_str(), 0xFF00FF00);
        EXPECT_EQ(expected++, handle) << image.File;
        _Point2i size{0, 0};
        ASSERT_TRUE(Host.GetTextureSize(handle, size)) << image.File;
        EXPECT_EQ(image.Width, size.x) << image.File;
        EXPECT_EQ(image.Height, size.y) << image.File;
    }
    EXPECT_EQ(0u, Host.AcquireTexture("textures/missing.png", 0));
    _Point2i size{0, 0};
    unsigned text = Host.AcquireTexture("flow.tss", 0);
    EXPECT_FALSE(Host.GetTextureSize(text, size)) << "a readable file that is no image";
    Host.ReleaseTexture(2);
    EXPECT_FALSE(Host.GetTextureSize(2, size));
}

TEST_F(HeadlessHostTest, FilesAreFoundInTheSearchFoldersWithinTheCallersBuffer) {
    char path[TAVU_INTERFACE_PATH_BUFFER];
    ASSERT_TRUE(Host.FindInterfaceFile("flow.tss", path));
    EXPECT_EQ(NativePath(DataFolder + "/flow.tss"), path) << "joined by the platform's separator";
    ASSERT_TRUE(Host.FindTextureFile("textures\\red3x2.png", path));
    EXPECT_FALSE(Host.FindInterfaceFile("nothing-here.xml", path));
    EXPECT_FALSE(Host.FindInterfaceFile("", path));
    std::string longName(600, 'x');
    EXPECT_FALSE(Host.FindInterfaceFile(longName.c_str(), path));
}

TEST_F(HeadlessHostTest, KeysConsolesAndDisplayAnswerPlainly) {
    char name[64];
    ASSERT_TRUE(Host.GetKeyName(0x0D, name, sizeof(name)));
    EXPECT_STREQ("Enter", name);
    char tiny[3];
    ASSERT_TRUE(Host.GetKeyName(0x0D, tiny, sizeof(tiny)));
    EXPECT_STREQ("En", tiny);
    EXPECT_FALSE(Host.GetKeyName(0xFFFF, name, sizeof(name)));

    char console[1024];
    Host.GetCurrentConsole(console, sizeof(console));
    EXPECT_STREQ("Default", console);
    Host.SelectConsole("Chat");
    Host.GetCurrentConsole(console, sizeof(console));
    EXPECT_STREQ("Chat", console);

    Host.SetDisplaySize(1024, 768);
    uint64_t width = 0, height = 0;
    ASSERT_TRUE(Host.GetDisplaySize(&width, &height));
    EXPECT_EQ(1024u, width);
    EXPECT_EQ(768u, height);
}

TEST_F(HeadlessHostTest, ToolkitCommandsAndObjectsReachTheScriptEngine) {
    static int lastArgc = 0;
    Host.AddCommand(
        "UI", [](int argc, char*[]) { return lastArgc = argc; }, true, false);
    EXPECT_EQ(3, Host.ExecuteCommand("ui -load \"my file.xml\""));
    EXPECT_EQ(3, lastArgc);
    EXPECT_TRUE(Host.RemoveCommand("UI"));
    EXPECT_EQ(-1, Host.ExecuteCommand("UI"));

    Host.AddTopLevelObject("Answer", [](int, char*[], _RXTypeVar& result) {
        result.Type = nullptr;
        return false;
    });
    char output[16];
    ASSERT_TRUE(Host.ParseDataSequences("[${Answer}]", output, sizeof(output)));
    EXPECT_STREQ("[NULL]", output);
    double value = 0;
    EXPECT_TRUE(Host.Calculate("6*7", &value));
    EXPECT_EQ(42, value);
    EXPECT_FALSE(Host.Calculate("6*", &value));
    EXPECT_EQ(Engine.FindType("int"), Host.FindType("int", 0, 0));
    EXPECT_STREQ("abc", Host.GetTempBuffer(4, "abc"));
    // Wide text comes as bytes with zeros among them: all of them are kept.
    const char16_t wide[4] = u"ab";
    const char* bytes = reinterpret_cast<const char*>(wide);
    EXPECT_EQ(0, memcmp(Host.GetTempBuffer(sizeof(wide), bytes), bytes, sizeof(wide)));
}

// How console lines are formatted shows in every tavuhost case that prints
// the toolkit's messages.
TEST_F(HeadlessHostTest, CompletionCycles) {
    EXPECT_STREQ("echo", Host.CompleteCommand("ec", false));
    EXPECT_STREQ("echo", Host.CompleteCommand("e", false));
    EXPECT_STREQ("exit", Host.CompleteCommand("echo", false)) << "asking again moves on";
    EXPECT_STREQ("echo", Host.CompleteCommand("exit", false)) << "and wraps";
    EXPECT_STREQ("exit", Host.CompleteCommand("echo", true));
    EXPECT_STREQ("zz", Host.CompleteCommand("zz", false));
}

TEST_F(HeadlessHostTest, TheTraceHasOneLinePerCallWithHandlesShown) {
    tagRECT rect{1, 2, 3, 4};
    Host.FillRect(&rect, 0xFF102030);
    unsigned font = Host.AcquireFont("Verdana", 13, false, true);
    TAVUDrawRecord records[2] = {};
    records[1].Texture = 1;
    Host.TexturedRects(2, records);
    Host.ReleaseFont(font);
    Host.ConsolePrintf("hi \"there\"");
    Trace.Write("End", {});
    EXPECT_EQ("FillRect 1 2 3 4 0xFF102030\n"
              "AcquireFont \"Verdana\" 13 false true -> 1\n"
              "TexturedRects 2 0x00000000 0 0 0 0 0 0 0 0 0 0 0 0x00000000 "
              "0x00000000 0 0 0 0 0 0 0 0 1 0 0 0x00000000\n"
              "ReleaseFont 1\n"
              "ConsolePrintf \"hi \\\"there\\\"\"\n"
              "End\n",
              ReadAll(TracePath));
}

// The other commands' checks are tavuhost's host_commands case.
TEST_F(HeadlessHostTest, TypeNamesACharacterNoKeyTypes) {
    Engine.ExecuteCommand("type a\x01");
    EXPECT_EQ(std::vector<std::string>{"type: no key types '\x01'"}, Console);
}

TEST_F(HeadlessHostTest, WithARendererDrawCallsPaintAndScreenshotsAreWritten) {
    SoftwareRenderer renderer(FontLibrary::Create());
    Host.SetDisplaySize(16, 8);
    Host.AttachRenderer(&renderer);
    EXPECT_EQ(16, renderer.Frame().Width()) << "the renderer takes the display's size";
    tagRECT rect{0, 0, 4, 4};
    Host.FillRect(&rect, 0xFF112233);
    EXPECT_EQ(0xFF112233u, renderer.Frame().At(3, 3));

    unsigned fill = Host.AcquireTexture("", 0);
    EXPECT_NE(0u, fill) << "an empty name is a fill";
    _Point2i size{0, 0};
    EXPECT_FALSE(Host.GetTextureSize(fill, size));
    EXPECT_EQ(0u, Host.AcquireTexture("flow.tss", 0)) << "a file that does not decode";
    unsigned png = Host.AcquireTexture("textures/red3x2.png", 0);
    TAVUDrawRecord records[2] = {};
    records[0].Texture = fill, records[0].Right = 2, records[0].Bottom = 2;
    records[0].ColorMask = 0xFF0000FF;
    records[1].Texture = png, records[1].Left = 8, records[1].Right = 16, records[1].Bottom = 8;
    Host.TexturedRects(2, records);
    EXPECT_EQ(0xFF0000FFu, renderer.Frame().At(1, 1));
    EXPECT_EQ(0xFFFF0000u, renderer.Frame().At(12, 4));

    unsigned font = Host.AcquireFont("", 12, false, false);
    size_t measured = 0;
    Host.MeasureText(font, "Width", &measured);
    tagRECT line{0, 0, 16, 8};
    EXPECT_EQ(measured, Host.DrawText(font, "Width", &line, 0xFFFFFFFF, 0x20));
    float abc[3] = {0, 0, 0};
    ASSERT_TRUE(Host.GetCharWidths(font, 'W', 'W', abc));
    size_t w = 0;
    Host.MeasureText(font, "W", &w);
    EXPECT_EQ(float(w), abc[0] + abc[1] + abc[2]) << "one measure everywhere";

    std::string shot = testing::TempDir() + "tavuhost_shot.png";
    Console.clear();
    Engine.ExecuteCommand(("screenshot " + shot).c_str());
    EXPECT_TRUE(Console.empty());
    Image written;
    std::string error;
    ASSERT_TRUE(ImageFile::Load(shot, 0, written, error)) << error;
    EXPECT_EQ(16, written.Width);
    EXPECT_EQ(0xFF112233u, written.At(3, 3));
    remove(shot.c_str());
    Engine.ExecuteCommand("screenshot no/such/folder/x.png");
    EXPECT_EQ("screenshot: 'no/such/folder/x.png' was not written: cannot write "
              "'no/such/folder/x.png'",
              Console.back());
    Host.AttachRenderer(nullptr);
}
