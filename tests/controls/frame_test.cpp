#include "ControlTest.h"
#include "TAVUFrame.h"
#include "TAVUTexture.h"

class FrameTest : public ControlTest {
protected:
    // "border background border-colour", as read.
    static std::string Looks(const TAVUFrame* frame) {
        return std::to_string(frame->Border) + " " + Hex(frame->BackgroundColor) + " " +
               Hex(frame->BorderColor);
    }
};

TEST_F(FrameTest, KeysComeFromTheNodeOverItsTemplateOverTheFrameTemplate) {
    g_UIManager.AddTemplate("frame", "<Template><Border>2</Border>"
                                     "<BackgroundColor>FF000011</BackgroundColor></Template>");
    g_UIManager.AddTemplate("Dark", "<Template><Border>5</Border>"
                                    "<BorderColor>FF222222</BorderColor></Template>");
    auto* plain =
        Load<TAVUFrame>("frame", "Plain", "<frame><BorderColor>FFFFFFFF</BorderColor></frame>");
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(Looks(plain), "2 0xff000011 0xffffffff"); // "frame" under the node
    // The node wins over its own template, and "frame" is not consulted at all.
    auto* dark =
        Load<TAVUFrame>("frame", "Dark", "<frame Template=\"Dark\"><Border>1</Border></frame>");
    ASSERT_NE(dark, nullptr);
    EXPECT_EQ(Looks(dark), "1 0x00000000 0xff222222");
    EXPECT_TRUE(dark->IsTypeOf("FRAME") && dark->IsTypeOf("tavuelement"));
    EXPECT_FALSE(dark->IsTypeOf("button"));
}

TEST_F(FrameTest, DrawsAFillATexturePlusBorderOrANineCellTexture) {
    auto* filled = Load<TAVUFrame>("frame", "Filled",
                                   "<frame><X>10</X><Y>20</Y><Width>30</Width><Height>40</Height>"
                                   "<BackgroundColor>FF102030</BackgroundColor>"
                                   "<Border>1</Border><BorderColor>FFFFFFFF</BorderColor></frame>");
    ASSERT_NE(filled, nullptr);
    RenderFrame();
    ASSERT_FALSE(Host.Fills.empty());
    EXPECT_EQ(Host.Fills.front().Color, 0xFFFFFFFFu); // the border strips come first
    EXPECT_EQ(Host.Fills.back().Color, 0xFF102030u);
    EXPECT_EQ(Host.Fills.back().Rect.left, 11); // inside the border
    EXPECT_TRUE(Host.DrawRecords.empty());
    Parent->DeleteChild(filled);

    auto* textured = Load<TAVUFrame>("frame", "Textured",
                                     "<frame><Width>30</Width><Height>40</Height>"
                                     "<Texture Filename=\"#stone\"/><Border>2</Border>"
                                     "<BorderColor>FFFF0000</BorderColor></frame>");
    ASSERT_NE(textured, nullptr);
    RenderFrame();
    EXPECT_EQ(DrawnTextures(), std::vector<std::string>{"#stone"});
    ASSERT_FALSE(Host.Fills.empty()); // a border of the frame's own over the texture
    EXPECT_EQ(Host.Fills.front().Color, 0xFFFF0000u);
    Parent->DeleteChild(textured);

    auto* framed = Load<TAVUFrame>("frame", "Framed",
                                   "<frame><Width>30</Width><Height>40</Height>"
                                   "<Texture Filename=\"#panel\"><Border>4</Border></Texture>"
                                   "<Border>3</Border></frame>");
    ASSERT_NE(framed, nullptr);
    RenderFrame();
    EXPECT_EQ(Host.DrawRecords.size(), 9u); // nine cells, no border line
    EXPECT_TRUE(Host.Fills.empty());
}

TEST_F(FrameTest, ClickThroughFlagsPassTheirButtonsAndTheRightDoubleClickIgnoresThem) {
    auto* frame = Load<TAVUFrame>("frame", "Solid",
                                  "<frame><BackgroundColor>FF000000</BackgroundColor></frame>");
    ASSERT_NE(frame, nullptr);
    frame->LeftClickThru = true;
    EXPECT_FALSE(frame->OnLMouseDown(Point));
    EXPECT_FALSE(frame->OnLMouseDoubleClick(Point));
    EXPECT_TRUE(frame->OnRMouseDown(Point)); // the right button is still taken
    EXPECT_TRUE(frame->OnMouseMove(Point));  // one flag is not enough for moves
    frame->RightClickThru = true;
    EXPECT_FALSE(frame->OnRMouseUp(Point));
    EXPECT_FALSE(frame->OnMouseMove(Point));
    EXPECT_FALSE(frame->OnMouseWheel(-2));
    EXPECT_TRUE(frame->OnRMouseDoubleClick(Point));
    std::vector<std::pair<unsigned, size_t>> expected = {{TAVU_NOTIFY_RIGHT_DOWN, 0},
                                                         {TAVU_NOTIFY_MOUSE_MOVED, 0},
                                                         {TAVU_NOTIFY_RIGHT_DOUBLE_CLICK, 0}};
    EXPECT_EQ(Parent->Notes, expected);

    frame->LeftClickThru = frame->RightClickThru = false;
    Parent->Notes.clear();
    EXPECT_TRUE(frame->OnMouseWheel(-2));
    ASSERT_EQ(Parent->Notes.size(), 1u);
    EXPECT_EQ(Parent->Notes[0].first, unsigned(TAVU_NOTIFY_WHEEL));
    EXPECT_EQ(int(Parent->Notes[0].second), -2); // the offset travels sign-extended
}

TEST_F(FrameTest, AFrameDeletedByItsOwnScriptTellsNobody) {
    auto* frame = Load<TAVUFrame>("frame", "Doomed",
                                  "<frame><OnLeftClick>die</OnLeftClick>"
                                  "<BackgroundColor>FF000000</BackgroundColor>"
                                  "</frame>");
    ASSERT_NE(frame, nullptr);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        Parent->DeleteChild(frame);
        return 0;
    };
    EXPECT_TRUE(frame->OnLMouseUp(Point)); // runs under ASan: nothing is touched after
    ASSERT_EQ(Parent->Notes.size(), 1u);   // only the removal, no click
    EXPECT_EQ(Parent->Notes[0].first, unsigned(TAVU_NOTIFY_CHILD_REMOVED));
    EXPECT_EQ(Parent->FirstChild, nullptr);
}

TEST_F(FrameTest, CreateTakesPlaceAndColoursFromCodeAndComesToTheTop) {
    auto* frame = static_cast<TAVUFrame*>(g_UIManager.LoadElement(Parent, "frame", "Made"));
    ASSERT_NE(frame, nullptr);
    ASSERT_NE(Load<TAVUFrame>("frame", "Above", "<frame/>"), nullptr);
    ASSERT_NE(Parent->LastChild, frame);
    _CreateFrame create;
    create.X = 5;
    create.Width = 60;
    create.WidthPosition.Type = ElementPosition::FarEdge;
    create.BackgroundColor = 0xFF0000FF;
    create.Border = 3;
    frame->Create(create);
    EXPECT_EQ(frame->X, 5);
    EXPECT_EQ(frame->WidthPosition.Type, unsigned(ElementPosition::FarEdge));
    EXPECT_EQ(frame->Border, 3u);
    EXPECT_EQ(frame->Texture, nullptr);
    EXPECT_EQ(Parent->LastChild, frame);
}
