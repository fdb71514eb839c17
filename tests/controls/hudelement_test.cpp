#include "ControlTest.h"
#include "TAVUElementWatch.h"
#include "TAVUHudElement.h"
#include "Words.h"

#include <string>

class HudElementTest : public ControlTest {
protected:
    TAVUHudElement* Hud(const std::string& keys) {
        std::string xml = "<h><X>10</X><Y>20</Y>" + keys + "</h>";
        return Load<TAVUHudElement>("hudelement", "H", xml.c_str());
    }
    // The texts drawn by one frame, joined.
    std::string Frame() {
        RenderFrame();
        std::string drawn;
        for (const auto& text : Host.Texts)
            drawn += text.Value + "@" + std::to_string(text.Rect.left) + "," +
                     std::to_string(text.Rect.top);
        return drawn;
    }
};

// The keys read back are tavuhost's hud_keys case, and the Alt drag its tree
// case. Frame by frame, with the data sequence counting its evaluations: the text
// is resolved when the interval has passed, and "NULL" in any case is not
// drawn though it is kept.
TEST_F(HudElementTest, TheTextIsResolvedOncePerIntervalAndNullIsNotDrawn) {
    const struct {
        unsigned Interval;
        const char* Answer;   // what the sequence gives
        const char* Expected; // per frame: the evaluation count and what was drawn
    } rows[] = {
        {0, "v", "1:v@10,20 2:v@10,20 3:v@10,20 4:v@10,20 "},
        {1, "v", "1:v@10,20 2:v@10,20 3:v@10,20 4:v@10,20 "},
        {3, "v", "1:v@10,20 1:v@10,20 1:v@10,20 2:v@10,20 "},
        {2, "nUlL", "1: 1: 2: 2: "},
        {2, "", "1: 1: 2: 2: "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(Words(row.Interval, row.Answer));
        TAVUHudElement* hud = Hud("<Text>${V}</Text><UpdateInterval>" +
                                  std::to_string(row.Interval) + "</UpdateInterval>");
        ASSERT_NE(hud, nullptr);
        int evaluations = 0;
        Host.DataSequences = [&](const std::string&) {
            ++evaluations;
            return std::string(row.Answer);
        };
        std::string frames;
        for (int frame = 0; frame < 4; ++frame) {
            std::string drawn = Frame();
            frames += std::to_string(evaluations) + ":" + drawn + " ";
        }
        EXPECT_EQ(frames, row.Expected);
        EXPECT_STREQ(hud->CachedText, row.Answer);
        Parent->DeleteChild(hud);
    }
    Host.DataSequences = nullptr;
}

TEST_F(HudElementTest, SetTextShowsAtOnceWhateverTheInterval) {
    TAVUHudElement* hud = Hud("<Text>old</Text><UpdateInterval>100</UpdateInterval>");
    ASSERT_NE(hud, nullptr);
    EXPECT_EQ(Frame(), "old@10,20");
    hud->SetText("new");
    EXPECT_EQ(Frame(), "new@10,20");
    hud->SetText(nullptr);
    EXPECT_EQ(Words(Frame().empty(), hud->CachedText == nullptr), "1 1");
}

// A data sequence whose script deletes the element it is drawn for.
TEST_F(HudElementTest, TextThatDeletesItsElementEndsTheFrameSafely) {
    TAVUHudElement* hud = Hud("<Text>${Bye}</Text>");
    ASSERT_NE(hud, nullptr);
    TAVUElementWatch watch(hud);
    Host.DataSequences = [&](const std::string& text) {
        std::string answer = text; // the text goes with the element
        if (watch.Alive()) Parent->DeleteChild(hud);
        return answer;
    };
    EXPECT_EQ(Frame(), "");
    EXPECT_FALSE(watch.Alive());
    Host.DataSequences = nullptr;
}
