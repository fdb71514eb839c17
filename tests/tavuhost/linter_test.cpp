// The linter on small files, one case each: what it reports, and what it
// must leave alone (the cases that once gave false alarms on real files).
#include "Linter.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace {

std::vector<std::string> Lint(const std::string& body) {
    std::string path = (std::filesystem::temp_directory_path() / "tavu_linter_test.xml").string();
    FILE* file = fopen(path.c_str(), "wb");
    if (!file) return {"cannot write " + path};
    fputs(("<TAVU>\n" + body + "</TAVU>\n").c_str(), file);
    fclose(file);
    std::vector<std::string> lines;
    Linter linter(*TavuKeyRegistry(), {}, "TAVU", nullptr, [&](const std::string& line) {
        lines.push_back(line.substr(line.find(".xml:") + 5)); // line:column: message
    });
    unsigned problems = linter.Run({path});
    EXPECT_EQ(problems, lines.size());
    std::remove(path.c_str());
    return lines;
}

TEST(Linter, ReportsEachProblemAtItsPlace) {
    const struct {
        const char* Body;
        const char* Expected; // null: nothing is reported
    } kCases[] = {
        {"<text name=\"T\"><Txt>x</Txt></text>\n", "2:16: 'Txt' is not a key of text: did you "
                                                   "mean 'Text'?"},
        {"<text name=\"T\" Colour=\"1\"/>\n", "2:16: attribute 'Colour' is not read by text"},
        {"<text name=\"T\"><Template/></text>\n",
         "2:16: 'Template' is an attribute, not a key: write Template=\"...\" in the tag"},
        {"<Template name=\"button\"><Zebra/></Template>\n", "2:25: 'Zebra' is not a key of button"},
        {"<Template name=\"Look\"><Zebra/></Template>\n",
         "2:23: 'Zebra' is not a key of any element type"},
        {"<messagebox name=\"M\"/>\n",
         "2:1: elements of type 'messagebox' are made by their owners, not by interface files"},
        {"<listbox name=\"L\"><ScrollBar>NoBar</ScrollBar></listbox>\n",
         "2:30: template 'NoBar' not found"},
        {"<frame name=\"F\"><Children><text name=\"a\"/>\n<text name=\"A\"/></Children></frame>\n",
         "3:7: duplicate name 'A' among siblings (first at line 2)"},
        {"<frame name=\"F\"><OnLoad><![CDATA[if 1 {]]></OnLoad></frame>\n",
         "2:34: script does not compile: OnLoad line 1: a block is not closed: '}' is missing"},
        // Left alone: a template of a type's own name that no file defines, a
        // fill of the host's own, a template that serves a dialog, a name
        // shared by a template and an element, a well-formed script.
        {"<button name=\"B\" Template=\"button\"/>\n", nullptr},
        {"<frame name=\"F\"><Texture Filename=\"#fill\"/></frame>\n", nullptr},
        {"<Template name=\"messagebox\"><OKColor>FFFFFFFF</OKColor></Template>\n", nullptr},
        {"<Template name=\"B\"/><button name=\"B\"><Text>&lt;ok&gt;</Text></button>\n", nullptr},
        {"<frame name=\"F\"><OnLoad>if 1\n{\necho x\n}\nelse\n{\necho y\n}</OnLoad></frame>\n",
         nullptr},
    };
    for (const auto& c : kCases) {
        std::vector<std::string> lines = Lint(c.Body);
        if (!c.Expected) {
            EXPECT_TRUE(lines.empty()) << c.Body << lines.front();
            continue;
        }
        ASSERT_EQ(lines.size(), 1u) << c.Body << (lines.empty() ? "" : lines.front());
        EXPECT_EQ(lines.front(), c.Expected) << c.Body;
    }
}

} // namespace
