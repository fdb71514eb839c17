#include "ControlTest.h"
#include "TAVUCheckBox.h"
#include "TAVUCommandCheckBox.h"
#include "TAVUTexture.h"

class CheckBoxTest : public ControlTest {
protected:
    TAVUCheckBox* Box(const char* keys, const char* type = "checkbox", int height = 20) {
        std::string xml = "<checkbox><X>10</X><Y>10</Y><Width>120</Width><Height>" +
                          std::to_string(height) + "</Height>" + keys + "</checkbox>";
        return Load<TAVUCheckBox>(type, "Tick", xml.c_str());
    }
    std::string Shown(TAVUCheckBox* box) {
        TAVUTexture* texture = box->ChooseTexture();
        return texture ? texture->Filename : "(none)";
    }
};

TEST_F(CheckBoxTest, ChoosesAmongSixLooksByStatePressAndHover) {
    TAVUCheckBox* box = Box("<Texture Filename=\"#off\"/><TexturePressed Filename=\"#offdown\"/>"
                            "<TextureHover Filename=\"#offlit\"/>"
                            "<TextureChecked Filename=\"#on\"/>"
                            "<TextureCheckedHover Filename=\"#onlit\"/>");
    ASSERT_NE(box, nullptr);
    // Ticked, held, under the pointer, and the look; there is no checked-pressed
    // look, so hover comes next.
    const struct {
        bool Checked, Pressed, Over;
        const char* Look;
    } cases[] = {{false, false, false, "#off"},
                 {false, true, false, "#offdown"},
                 {true, true, true, "#onlit"},
                 {true, false, false, "#on"}};
    for (const auto& c : cases) {
        box->Checked = c.Checked, box->Pressed = c.Pressed;
        g_UIManager.MouseOverElementID = c.Over ? box->ID : 0;
        EXPECT_EQ(Shown(box), c.Look);
    }
    TAVUTexture::Delete(box->TextureChecked);
    box->TextureChecked = nullptr;
    EXPECT_EQ(Shown(box), "#off"); // ticked without a ticked look
    TAVUTexture::Delete(box->Texture);
    box->Texture = nullptr;
    EXPECT_EQ(Shown(box), "(none)");
}

TEST_F(CheckBoxTest, TheBoxTakesItsTexturesSizeOnceDrawnAndShrinksToALowElement) {
    Host.TextureSizes["#tick"] = {24, 24};
    TAVUCheckBox* box = Box("<Texture Filename=\"#tick\"/><Text>Sound</Text>", "checkbox", 40);
    ASSERT_NE(box, nullptr);
    RenderFrame(); // the texture's size is known only once it has been drawn
    RenderFrame();
    ASSERT_EQ(Host.DrawRecords.size(), 1u);
    EXPECT_EQ(Host.DrawRecords[0].Top, 10 + (40 - 24) / 2);
    EXPECT_EQ(Host.DrawRecords[0].Right - Host.DrawRecords[0].Left, 24);
    ASSERT_EQ(Host.Texts.size(), 1u);
    EXPECT_EQ(Host.Texts[0].Rect.left, 10 + 4 + 24);
    EXPECT_EQ(Host.Texts[0].Rect.top, 10 + (40 - 12) / 2); // the default font is 12 high

    box->Height = 10;
    Host.ClearRecords();
    g_UIManager.Render();
    ASSERT_EQ(Host.DrawRecords.size(), 1u);
    EXPECT_EQ(Host.DrawRecords[0].Top, 10);
    EXPECT_EQ(Host.DrawRecords[0].Bottom - Host.DrawRecords[0].Top, 10); // 10 by 10
    ASSERT_EQ(Host.Texts.size(), 1u);
    EXPECT_EQ(Host.Texts[0].Rect.left, 10 + 10 + 4); // Height + 4
}

TEST_F(CheckBoxTest, ReleaseTogglesWhereverThePointerIsAndTellsTheParent) {
    TAVUCheckBox* box = Box("");
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->OnLMouseDown(Point));
    EXPECT_TRUE(box->Pressed);
    _Point2i away{390, 290};
    EXPECT_TRUE(box->OnLMouseUp(away));
    EXPECT_TRUE(box->Checked);
    EXPECT_FALSE(box->Pressed);
    box->OnLMouseDown(Point);
    box->OnLMouseUp(Point);
    EXPECT_FALSE(box->Checked);
    ASSERT_EQ(Parent->Notes.size(), 4u);
    EXPECT_EQ(Parent->Notes[1].first, unsigned(TAVU_NOTIFY_LEFT_UP));

    Parent->OnNote = [&](TAVUElement* source, unsigned code) {
        if (code == TAVU_NOTIFY_LEFT_UP) Parent->DeleteChild(source);
    };
    EXPECT_TRUE(box->OnLMouseUp(Point)); // deleted by its parent: under ASan
}

class CommandCheckBoxTest : public CheckBoxTest {};

// Ticking runs Command, unticking CommandChecked, or Command again without one.
TEST_F(CommandCheckBoxTest, TickingAndUntickingRunTheirCommands) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"<Command>music on</Command><CommandChecked>music off</CommandChecked>",
         {"music on", "music off"}},
        {"<Command>toggle music</Command>", {"toggle music", "toggle music"}}};
    for (const auto& c : cases) {
        Host.ClearRecords();
        TAVUCheckBox* box = Box(c.first, "commandcheckbox");
        ASSERT_NE(box, nullptr) << c.first;
        box->OnLMouseUp(Point);
        box->OnLMouseUp(Point);
        EXPECT_EQ(Host.Commands, c.second) << c.first;
        EXPECT_FALSE(box->Checked) << c.first;
        Parent->DeleteChild(box);
    }
}

TEST_F(CommandCheckBoxTest, DataDecidesTheTickAtEveryFrame) {
    Host.Calculations["${Music}"] = 0.0;
    TAVUCheckBox* box = Box("<Data>${Music}</Data>", "commandcheckbox");
    ASSERT_NE(box, nullptr);
    box->OnLMouseUp(Point);
    EXPECT_TRUE(box->Checked); // the click ticks it ...
    RenderFrame();
    EXPECT_FALSE(box->Checked); // ... until the expression says otherwise
    Host.Calculations["${Music}"] = 2.0;
    RenderFrame();
    EXPECT_TRUE(box->Checked);
    Host.Calculations.clear(); // "${Music}" no longer calculates: the box stays
    RenderFrame();
    EXPECT_TRUE(box->Checked);
}

TEST_F(CommandCheckBoxTest, ACommandThatDeletesTheBoxSkipsTheToggle) {
    TAVUCheckBox* box = Box("<Command>close</Command>", "commandcheckbox");
    ASSERT_NE(box, nullptr);
    Host.OnExecuteCommand = [&](const std::string&) { Parent->DeleteChild(box); };
    EXPECT_TRUE(box->OnLMouseUp(Point)); // under ASan
    EXPECT_EQ(Parent->FirstChild, nullptr);
    EXPECT_TRUE(Parent->Notes.size() == 1 &&
                Parent->Notes[0].first == unsigned(TAVU_NOTIFY_CHILD_REMOVED));
}
