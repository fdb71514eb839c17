// Where the inspector finds a selected element's node and template: the
// cases the tavuhost runs cannot set up (a current skin, an element loaded
// under a parent of no file, template lists, a file loaded again).
#include "ElementSource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>

namespace {

std::string WriteFile(const char* name, const std::string& body) {
    std::string path = (std::filesystem::temp_directory_path() / name).string();
    if (FILE* file = fopen(path.c_str(), "wb")) {
        fputs(("<TAVU>\n" + body + "</TAVU>\n").c_str(), file);
        fclose(file);
    }
    return path;
}

const char* const kFirst = R"(<Template name="A"><Border>1</Border></Template>
<Template name="B"><BorderColor>FF000002</BorderColor></Template>
<Template name="Dark"><Border>7</Border></Template>
<Template name="WithKids"><Children><frame name="Kid"><Border>5</Border></frame></Children></Template>
<frame name="Top" Template="WithKids"/>
<Template name="OneOfTwo" Template="A,B"/>
<Template name="Both" Template="A,B,"/>
<frame name="First" Template="OneOfTwo"/>
<frame name="Each" Template="Both"/>
<button name="Plain"/>
<frame name="Inner"><Border>8</Border></frame>
<frame name="Same"><Border>1</Border></frame>
)";

TEST(ElementSource, FindsTheNodeAndMergesTheTemplateAsTheToolkitDoes) {
    std::string first = WriteFile("tavu_source_first.xml", kFirst);
    std::string second = WriteFile("tavu_source_second.xml", "<frame name=\"Same\"/>\n");
    ElementSource source("TAVU");
    source.FileLoaded(second);
    source.FileLoaded(first);
    source.FileLoaded(second); // loaded again: the latest
    auto darkButtons = [](const std::string& name) {
        return name == "button" ? std::string("Dark") : name;
    };
    auto noSkin = [](const std::string& name) { return name; };
    const struct {
        const char* FullName;
        const char* Type;
        bool Skinned;
        const char* Wanted; // in a line of the description
        const char* Unwanted;
    } kCases[] = {
        {"Kid@Top", "frame", false, "    Border = 5  (node)", nullptr},
        {"First", "frame", false, "    Border = 1  (template A)", "BorderColor"},
        {"Each", "frame", false, "    BorderColor = FF000002  (template B)", nullptr},
        {"Plain", "button", true,
         "  made from template Dark (the current skin's for button, named by its type word)",
         nullptr},
        {"Plain", "button", false,
         "  made from no template: button (named by its type word) is not loaded", nullptr},
        {"Inner@Host", "frame", false, "    Border = 8  (node)", nullptr}, // Host: no file's
        {"Same", "frame", false, "tavu_source_second.xml:2:1", "Border"},
        {"Nowhere", "frame", false,
         "  no node in the loaded interface files: made by a script or by its parent control",
         nullptr},
    };
    for (const auto& each : kCases) {
        std::vector<std::string> lines =
            each.Skinned ? source.Describe(TavuKeyRegistry(), each.FullName, each.Type, darkButtons)
                         : source.Describe(TavuKeyRegistry(), each.FullName, each.Type, noSkin);
        std::string all;
        for (const std::string& line : lines)
            all += line + "\n";
        auto wanted = [&](const std::string& line) { return line.find(each.Wanted) != line.npos; };
        EXPECT_NE(std::find_if(lines.begin(), lines.end(), wanted), lines.end())
            << each.FullName << ":\n"
            << all;
        if (each.Unwanted) {
            EXPECT_EQ(all.find(each.Unwanted), std::string::npos) << all;
        }
    }
    std::remove(first.c_str());
    std::remove(second.c_str());
}

} // namespace
