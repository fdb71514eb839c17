// The two parts of --watch that need no module: the look at a file's shape
// that finds the line to fix, and the watch over modification times.
#include "FileWatch.h"
#include "XmlCheck.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

TEST(XmlCheck, FindsTheLineToFix) {
    const struct {
        const char* Text;
        int Line; // 0: well formed
        const char* Message;
    } cases[] = {
        {"<TAVU>\n  <frame name=\"a\"/>\n</tavu>\n", 0, ""},
        {"<?xml version=\"1.0\"?>\n<!-- <not a tag> -->\n<A><![CDATA[ < ]]></A>", 0, ""},
        {"<A title=\"a > b\" other='<'>\n</A>", 0, ""},
        {"<A>\n<B>\n</C>\n</A>", 3, "</C> closes <B> of line 2"},
        {"<A>\n<B>\n</B>\n", 1, "<A> is never closed"},
        {"<A/>\n</A>", 2, "</A> closes nothing"},
        {"<A>\n<!-- open\n</A>", 2, "a comment is never closed ('-->' is missing)"},
        {"<A>\n<B x=\"1>\n</B></A>", 2, "a quoted value is never closed"},
        {"<A>\n< B/>\n</A>", 2, "'<' starts no tag"},
        {"<A>\n<B\n<C/></B></A>", 3, "<B (line 2) is not closed with '>'"},
        {"<A><![CDATA[ x\n</A>", 1, "a CDATA section is never closed"},
        {"<A>\n<B", 2, "<B is not closed with '>'"},
    };
    for (const auto& c : cases) {
        XmlProblem problem;
        EXPECT_EQ(c.Line == 0, XmlCheck::Check(c.Text, problem)) << c.Text;
        EXPECT_EQ(c.Line, problem.Line) << c.Text;
        EXPECT_EQ(c.Message, problem.Message) << c.Text;
    }
}

TEST(XmlCheck, DeepNestingIsReportedNotRecursed) {
    std::string text;
    for (int i = 0; i < 5000; ++i)
        text += "<A>";
    XmlProblem problem;
    EXPECT_FALSE(XmlCheck::Check(text, problem));
    EXPECT_EQ("tags nest too deeply", problem.Message);
}

TEST(FileWatch, SeesRewritesRemovalsAndReturns) {
    std::string path = testing::TempDir() + "filewatch_test.xml";
    auto write = [&](const char* text) {
        FILE* file = fopen(path.c_str(), "wb");
        ASSERT_TRUE(file);
        fputs(text, file);
        fclose(file);
    };
    write("<A/>");
    FileWatch watch;
    watch.Add(path);
    watch.Add(path);
    EXPECT_EQ(1u, watch.Count());
    EXPECT_FALSE(watch.Changed());
    write("<A></A>"); // another size: seen even within the clock's resolution
    EXPECT_TRUE(watch.Changed());
    EXPECT_FALSE(watch.Changed());
    remove(path.c_str());
    EXPECT_TRUE(watch.Changed());
    EXPECT_FALSE(watch.Changed());
    write("<A/>");
    EXPECT_TRUE(watch.Changed());
    remove(path.c_str());
}
