#include "TAVUDataSequence.h"
#include "TAVUPreParse.h"
#include "ToolkitTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {
std::vector<std::string> Lines(const std::vector<FakeHost::Call>& calls) {
    std::vector<std::string> lines;
    for (const auto& call : calls)
        lines.push_back(call.Line());
    return lines;
}
} // namespace

class DataSequences : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        Host.DataSequences = [](const std::string& text) {
            return text == "${Player.Name}" ? std::string("Ayla") : "<" + text + ">";
        };
        Host.ClearRecords();
    }
    size_t Frees(unsigned handle) {
        size_t count = 0;
        for (const auto& call : Host.CallsNamed("FreePreParsed"))
            count += call.Args[0] == std::to_string(handle);
        return count;
    }
};

TEST_F(DataSequences, ASequenceIsPreParsedOnceRetrievedThroughItsHandleAndFreedOnce) {
    unsigned handle;
    {
        TAVUDataSequence sequence("${Player.Name}");
        handle = sequence.Handle;
        ASSERT_NE(handle, 0u);
        EXPECT_EQ(Host.CallsNamed("PreParseText")[0].Line(),
                  "PreParseText \"${Player.Name}\" true");
        char buffer[32];
        ASSERT_TRUE(sequence.RetrieveProcessedText(buffer, sizeof(buffer)));
        EXPECT_STREQ(buffer, "Ayla");
        ASSERT_TRUE(sequence.RetrieveOriginalText(buffer, sizeof(buffer)));
        EXPECT_STREQ(buffer, "${Player.Name}");
        _RXTypeVar result{};
        sequence.RetrieveProcessedResult(result);
        EXPECT_EQ(Host.CallsNamed("RetrieveProcessedResult")[0].Args[0], std::to_string(handle));
    }
    EXPECT_EQ(Frees(handle), 1u);
    EXPECT_TRUE(Host.LivePreParsed.empty());
    // Clear frees once, and an emptied sequence still frees 0 at its end.
    {
        TAVUDataSequence sequence("${A}");
        handle = sequence.Handle;
        sequence.Clear();
        sequence.Clear();
        EXPECT_EQ(sequence.Handle, 0u);
        EXPECT_EQ(Frees(handle), 1u);
    }
    EXPECT_EQ(Frees(handle), 1u);
    EXPECT_EQ(Frees(0), 1u); // the destructor hands back whatever it holds
    { TAVUDataSequence empty; }
    EXPECT_EQ(Frees(0), 2u);
}

TEST_F(DataSequences, PreParseReplacesTheOldHandleAndNullLeavesItEmpty) {
    TAVUDataSequence sequence("${A}");
    unsigned first = sequence.Handle;
    sequence.PreParse("${B}");
    unsigned second = sequence.Handle;
    EXPECT_NE(second, first);
    EXPECT_EQ(Frees(first), 1u);
    std::vector<std::string> order = Lines(Host.Calls);
    EXPECT_EQ(order[order.size() - 2], "FreePreParsed " + std::to_string(first));
    EXPECT_EQ(order.back(), "PreParseText \"${B}\" true");

    sequence.PreParse(nullptr);
    EXPECT_EQ(sequence.Handle, 0u);
    EXPECT_EQ(Frees(second), 1u);
    EXPECT_EQ(Host.Count("PreParseText"), 2u);
}

TEST_F(DataSequences, PreParsedTextKeepsItsSourceUntilCleared) {
    TAVUPreParse empty;
    EXPECT_EQ(empty.Text, nullptr);
    EXPECT_EQ(empty.Handle, 0u);

    TAVUPreParse text("Hello ${Player.Name}!");
    ASSERT_NE(text.Text, nullptr);
    EXPECT_STREQ(text.Text, "Hello ${Player.Name}!");
    EXPECT_EQ(Host.CallsNamed("PreParseText")[0].Line(),
              "PreParseText \"Hello ${Player.Name}!\" false");
    char buffer[64];
    ASSERT_TRUE(text.RetrieveProcessedText(buffer, sizeof(buffer)));
    EXPECT_STREQ(buffer, "<Hello ${Player.Name}!>");

    unsigned handle = text.Handle;
    text.PreParse("Bye");
    EXPECT_STREQ(text.Text, "Bye");
    EXPECT_EQ(Frees(handle), 1u);

    handle = text.Handle;
    text.Clear();
    text.Clear();
    EXPECT_EQ(text.Text, nullptr);
    EXPECT_EQ(Frees(handle), 1u);
    EXPECT_FALSE(text.RetrieveProcessedText(buffer, sizeof(buffer)));
    EXPECT_EQ(Host.CallsNamed("RetrieveProcessedText").back().Args[0], "0");

    text.PreParse("Again");
    text.PreParse(nullptr);
    EXPECT_EQ(text.Text, nullptr);
    EXPECT_EQ(text.Handle, 0u);
    EXPECT_EQ(Frees(0), 0u); // unlike a sequence, an empty text frees nothing
    EXPECT_TRUE(Host.LivePreParsed.empty());
}

TEST_F(DataSequences, NothingIsFreedThroughTheHostAfterShutdown) {
    auto sequence = std::make_unique<TAVUDataSequence>("${A}");
    auto text = std::make_unique<TAVUPreParse>("${B}");
    g_UIManager.Shutdown();
    Host.ClearRecords();
    text->Clear();
    sequence.reset();
    text.reset();
    EXPECT_EQ(Host.Count("FreePreParsed"), 0u);
}
