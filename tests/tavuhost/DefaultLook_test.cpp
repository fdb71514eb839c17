// tavuhost's default look: a template for every type that draws, each one
// clean to the linter (so every key is one its type reads), none with
// "Children", every picture it names made; and the runs that load it.
#include "DefaultLook.h"
#include "HostOptions.h"
#include "ImageFile.h"
#include "LintDocument.h"
#include "Linter.h"
#include "StringHelpers.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

namespace {

bool HasTemplate(const char* type) {
    for (unsigned i = 0; i < DefaultLook::Count(); ++i)
        if (StrCompareNoCase(DefaultLook::At(i).Name, type) == 0) return true;
    return false;
}

// Every texture a template names from '#' on, other than the host's "#fill", is a picture of ours.
void ExpectPicturesMade(const LintElement& node, const char* type) {
    const LintAttribute* file = node.Attribute("Filename");
    Image picture;
    if (file && file->Value != "#fill") {
        EXPECT_TRUE(DefaultLook::Picture(file->Value.c_str(), picture) && picture.Width > 0)
            << type << ": " << file->Value;
    }
    for (const auto& child : node.Children)
        ExpectPicturesMade(*child, type);
}

} // namespace

// A control type added later without a template (or a reason to have none) fails here.
TEST(DefaultLook, EveryTypeHasATemplateOrAReasonForNone) {
    const TAVUKeyRegistryTable& registry = *TavuKeyRegistry();
    for (unsigned type = 0; type < registry.TypeCount(); ++type) {
        const char* name = registry.TypeName(type);
        EXPECT_NE(HasTemplate(name), DefaultLook::WhyPlain(name) != nullptr) << name;
    }
    for (unsigned i = 0; i < DefaultLook::Count(); ++i)
        EXPECT_GE(registry.FindType(DefaultLook::At(i).Name), 0) << DefaultLook::At(i).Name;
}

TEST(DefaultLook, TemplatesReadCleanly) {
    std::string file = "<TAVU>\n";
    for (unsigned i = 0; i < DefaultLook::Count(); ++i) {
        const DefaultLookTemplate& entry = DefaultLook::At(i);
        std::string text = DefaultLook::Text(entry);
        std::unique_ptr<LintElement> root = LintDocument::Read(text);
        ASSERT_TRUE(root) << entry.Name;
        EXPECT_EQ(root->Name, "Template");
        EXPECT_EQ(root->Child("Children"), nullptr) << entry.Name << " would replace a node's";
        EXPECT_EQ(text.find_first_of("$@"), std::string::npos)
            << entry.Name << ": a word left over";
        ExpectPicturesMade(*root, entry.Name);
        file += "<Template name=\"" + std::string(entry.Name) + "\"" + text.substr(9) + "\n";
    }
    std::string path = (std::filesystem::temp_directory_path() / "tavu_default_look.xml").string();
    FILE* out = fopen(path.c_str(), "wb");
    ASSERT_NE(out, nullptr);
    fputs((file + "</TAVU>\n").c_str(), out);
    fclose(out);
    std::vector<std::string> problems;
    Linter linter(*TavuKeyRegistry(), {}, "TAVU", nullptr,
                  [&](const std::string& line) { problems.push_back(line); });
    linter.Run({path});
    std::remove(path.c_str());
    EXPECT_EQ(problems, std::vector<std::string>{});
}

TEST(DefaultLook, PaintedRunsWearItUnlessRefused) {
    const struct {
        std::vector<const char*> Arguments;
        bool Uses;
    } kCases[] = {
        {{}, false},
        {{"--default-look"}, true},
        {{"--png", "out.png"}, true},
        {{"--render"}, true},
        {{"--window"}, true},
        {{"--png", "out.png", "--no-default-look"}, false},
        {{"--default-look", "--no-default-look"}, false},
        {{"--lint"}, false},
    };
    for (const auto& run : kCases) {
        std::vector<char*> argv{const_cast<char*>("tavuhost")};
        for (const char* argument : run.Arguments)
            argv.push_back(const_cast<char*>(argument));
        HostOptions options;
        ASSERT_TRUE(options.Parse(int(argv.size()), argv.data()));
        EXPECT_EQ(options.UsesDefaultLook(), run.Uses) << run.Arguments.size();
    }
}

TEST(DefaultLook, PicturesAreOnlyItsOwn) {
    Image picture;
    EXPECT_TRUE(DefaultLook::Picture("#LOOK-TICK", picture)); // names ignore case
    EXPECT_EQ(picture.Pixels.size(), size_t(picture.Width) * size_t(picture.Height));
    EXPECT_FALSE(DefaultLook::Picture("#fill", picture));
    EXPECT_FALSE(DefaultLook::Picture("look-tick", picture));
    EXPECT_FALSE(DefaultLook::Picture(nullptr, picture));
}
