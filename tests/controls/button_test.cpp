#include "ControlTest.h"
#include "TAVUButton.h"
#include "TAVUCommandButton.h"
#include "TAVUTexture.h"

class ButtonTest : public ControlTest {
protected:
    // A 100x40 button at 10,10 with the given extra keys.
    TAVUButton* Button(const char* keys, const char* type = "button") {
        std::string xml = std::string("<button><X>10</X><Y>10</Y><Width>100</Width>"
                                      "<Height>40</Height>") +
                          keys + "</button>";
        return Load<TAVUButton>(type, "Go", xml.c_str());
    }
    void Hover(bool over) {
        _Point2i point = over ? _Point2i{20, 20} : _Point2i{300, 290};
        g_UIManager.OnMouseMove(point);
    }
};

// Away, over and held with all three looks are checked end to end by
// tavuhost's button looks case; these are the looks that are missing.
TEST_F(ButtonTest, PressedAndHoverLooksNeedAPlainTexture) {
    TAVUButton* button = Button("<Texture Filename=\"#up\"/><TextureHover Filename=\"#lit\"/>");
    ASSERT_NE(button, nullptr);
    Hover(true);
    button->Pressed = true;
    EXPECT_EQ(button->ChooseTexture()->Filename, std::string("#lit")); // held, no pressed look
    Hover(false);
    EXPECT_EQ(button->ChooseTexture()->Filename, std::string("#up"));

    TAVUTexture::Delete(button->Texture);
    button->Texture = nullptr;
    Hover(true);
    EXPECT_EQ(button->ChooseTexture(), nullptr); // hover and pressed looks are never used alone
    RenderFrame();
    EXPECT_TRUE(Host.DrawRecords.empty());
    ASSERT_EQ(Host.Fills.size(), 1u); // a plain fill without a border
}

TEST_F(ButtonTest, CaptionIsCentredInTheButtonWithDataSequencesResolved) {
    Host.DataSequences = [](const std::string& text) {
        return text == "${Name}" ? std::string("Ada") : text;
    };
    TAVUButton* button = Button("<Text>${Name}</Text><Font><Size>20</Size></Font>");
    ASSERT_NE(button, nullptr);
    RenderFrame();
    // Centred by the host across the button's width, halfway down for a
    // 20-pixel font in 40 pixels, in the font's colour (none given: none).
    EXPECT_EQ(Host.TextLines(),
              std::vector<std::string>{"Ada 10,20,110,600 0x00000000 0x00000021"});
}

TEST_F(ButtonTest, PressAndReleaseTellTheParentAndRunTheButtonsScripts) {
    TAVUButton* button = Button("<OnLeftClick>echo click</OnLeftClick>");
    ASSERT_NE(button, nullptr);
    EXPECT_TRUE(button->OnLMouseDown(Point));
    EXPECT_TRUE(button->Pressed);
    EXPECT_TRUE(button->OnLMouseUp(Point));
    EXPECT_FALSE(button->Pressed);
    std::vector<std::pair<unsigned, size_t>> expected = {{TAVU_NOTIFY_LEFT_DOWN, 0},
                                                         {TAVU_NOTIFY_LEFT_UP, 0}};
    EXPECT_EQ(Parent->Notes, expected);
    EXPECT_EQ(Host.AtomRuns.size(), 1u);
}

TEST_F(ButtonTest, AParentThatDeletesTheButtonOnPressStopsItCold) {
    TAVUButton* button = Button("<OnLeftDown>echo down</OnLeftDown>");
    ASSERT_NE(button, nullptr);
    unsigned id = button->ID;
    Parent->OnNote = [&](TAVUElement* source, unsigned code) {
        if (code == TAVU_NOTIFY_LEFT_DOWN) Parent->DeleteChild(source);
    };
    EXPECT_TRUE(button->OnLMouseDown(Point)); // under ASan: nothing touched after
    EXPECT_TRUE(Host.AtomRuns.empty());       // the button's own script does not run
    // The look-up that found it gone leaves an empty entry behind.
    ASSERT_EQ(g_UIManager.ElementsByID.count(id), 1u);
    EXPECT_EQ(g_UIManager.ElementsByID[id], nullptr);
}

TEST_F(ButtonTest, ColorMaskAppliesToEveryTextureThereIs) {
    TAVUButton* masked = Button("<Texture Filename=\"#up\"/><TextureHover Filename=\"#lit\"/>");
    ASSERT_NE(masked, nullptr);
    EXPECT_EQ(masked->Texture->Flags & TAVUTexture::HasColorMask, 0u); // no mask said
    Parent->DeleteChild(masked);

    g_UIManager.AddTemplate("Tinted", "<Template ColorMask=\"FF00FF00\"/>");
    auto* tinted = Load<TAVUButton>("button", "Tinted",
                                    "<button Template=\"Tinted\"><Texture Filename=\"#up\"/>"
                                    "<TextureHover Filename=\"#lit\"/></button>");
    ASSERT_NE(tinted, nullptr);
    EXPECT_EQ(tinted->Texture->ColorMask, 0xFF00FF00u);
    EXPECT_NE(tinted->TextureHover->Flags & TAVUTexture::HasColorMask, 0u);
    EXPECT_EQ(tinted->TexturePressed, nullptr);
}

TEST_F(ButtonTest, CreateFillsZeroColoursAndTexturesFromTheButtonTemplate) {
    g_UIManager.AddTemplate("button", "<Template><BackgroundColor>FF111111</BackgroundColor>"
                                      "<BorderColor>FF222222</BorderColor>"
                                      "<Texture Filename=\"#skin\"/></Template>");
    auto* button = static_cast<TAVUButton*>(g_UIManager.LoadElement(Parent, "button", "Made"));
    ASSERT_NE(button, nullptr);
    _CreateButton create;
    create.Text = "OK";
    create.BorderColor = 0xFF333333;
    create.Border = 1;
    button->Create(create, nullptr);
    EXPECT_EQ(button->BackgroundColor, 0xFF111111u); // 0 asks the template
    EXPECT_EQ(button->BorderColor, 0xFF333333u);
    EXPECT_STREQ(button->Text.Text, "OK");
    EXPECT_NE(button->Font, nullptr);
    EXPECT_EQ(button->Texture, nullptr); // textures only when asked for
    create.UseTemplateTextures = 1;
    button->Create(create, nullptr);
    ASSERT_NE(button->Texture, nullptr);
    EXPECT_STREQ(button->Texture->Filename, "#skin");
}

class CommandButtonTest : public ButtonTest {};

TEST_F(CommandButtonTest, RunsItsCommandOnTheCurrentConsoleOrForOneCommandOnItsOwn) {
    Host.CurrentConsole = "Main";
    TAVUButton* plain = Button("<Command>say hi</Command>", "commandbutton");
    ASSERT_NE(plain, nullptr);
    EXPECT_TRUE(plain->IsTypeOf("commandbutton") && plain->IsTypeOf("button"));
    plain->OnLMouseUp(Point);
    EXPECT_EQ(Host.Commands, std::vector<std::string>{"say hi"});
    EXPECT_EQ(Host.Count("SelectConsole"), 0u);
    Parent->DeleteChild(plain);

    Host.ClearRecords();
    TAVUButton* chat = Button("<Command>say hi</Command><Console>Chat</Console>", "commandbutton");
    ASSERT_NE(chat, nullptr);
    Host.ClearRecords();
    chat->OnLMouseUp(Point);
    std::vector<std::string> calls;
    for (const FakeHost::Call& call : Host.Calls)
        if (call.Name == "SelectConsole" || call.Name == "ExecuteCommand")
            calls.push_back(call.Line());
    EXPECT_EQ(calls,
              (std::vector<std::string>{"SelectConsole \"Chat\"", "ExecuteCommand \"say hi\"",
                                        "SelectConsole \"Main\""}));
    EXPECT_EQ(Host.CurrentConsole, "Main");
}

TEST_F(CommandButtonTest, EmptyOrMissingCommandsRunNothingAndFieldsAreNeverNull) {
    auto* button = static_cast<TAVUCommandButton*>(Button("", "commandbutton"));
    ASSERT_NE(button, nullptr);
    ASSERT_NE(button->Command, nullptr);
    ASSERT_NE(button->Console, nullptr);
    EXPECT_STREQ(button->Command, "");
    button->OnLMouseUp(Point);
    EXPECT_TRUE(Host.Commands.empty());
}

TEST_F(CommandButtonTest, ADeletedButtonRunsNoCommand) {
    TAVUButton* button = Button("<Command>say hi</Command>", "commandbutton");
    ASSERT_NE(button, nullptr);
    Parent->OnNote = [&](TAVUElement* source, unsigned code) {
        if (code == TAVU_NOTIFY_LEFT_UP) Parent->DeleteChild(source);
    };
    EXPECT_TRUE(button->OnLMouseUp(Point));
    EXPECT_TRUE(Host.Commands.empty());
}

TEST_F(CommandButtonTest, ACommandThatDeletesItsButtonStillEndsOnTheRightConsole) {
    Host.CurrentConsole = "Main";
    TAVUButton* button = Button("<Command>close</Command><Console>Chat</Console>", "commandbutton");
    ASSERT_NE(button, nullptr);
    std::string seen;
    Host.OnExecuteCommand = [&](const std::string& command) {
        Parent->DeleteChild(button); // frees the button's copy of the command
        seen = command + " on " + Host.CurrentConsole;
    };
    EXPECT_TRUE(button->OnLMouseUp(Point)); // under ASan
    EXPECT_EQ(seen, "close on Chat");
    EXPECT_EQ(Host.CurrentConsole, "Main");
    EXPECT_EQ(Parent->FirstChild, nullptr);
}
