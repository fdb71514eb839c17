#include "ControlTest.h"
#include "TAVUButton.h"
#include "TAVUCommands.h"
#include "TAVUMessageBox.h"
#include "TAVUScriptInputBox.h"
#include "TAVUText.h"

class MessageBoxTest : public ControlTest {
protected:
    // Runs a command line split at spaces, as the host would.
    int Run(int (*command)(int, char*[]), std::vector<std::string> words) {
        std::vector<char*> argv;
        for (std::string& word : words)
            argv.push_back(word.data());
        return command(int(argv.size()), argv.data());
    }

    TAVUElement* Top(const char* name) { return g_UIManager.Screen->FindChild(name); }

    void StartScript() {
        Host.InScript = true;
        Host.Script.SetUserInput("an old answer");
    }
};

// A long message wraps at 70% of the screen; the text stops at three quarters
// of the screen's height while the box keeps its full height.
TEST_F(MessageBoxTest, MessagesAreCutToTheirBufferAndTheScreen) {
    std::string huge(100 * 1024, 'w');
    for (size_t i = 1; i < huge.size(); i += 2)
        huge[i] = '\n';
    Run(MessageBoxCommand, {"MessageBox", huge});
    auto* box = static_cast<TAVUMessageBox*>(Top("MessageBox"));
    ASSERT_NE(nullptr, box);
    auto* text = static_cast<TAVUText*>(box->FindChild("Text"));
    ASSERT_NE(nullptr, text);
    EXPECT_EQ(TAVUText::BufferSize - 1, strlen(text->Text));
    EXPECT_EQ(450, text->Height); // 600 * 0.75
    EXPECT_GT(box->Height, 600);
    EXPECT_LE(box->Width, 12 + 560 + 1);
}

// A box taken away by a script or a reset tells its script's record, so that
// the record never points at a freed box (tavuhost never reads it back).
TEST_F(MessageBoxTest, BoxesTakenAwayLeaveNoPointerBehind) {
    StartScript();
    Run(InputBoxCommand, {"InputBox", "Name?"});
    Run(MessageBoxCommand, {"MessageBox", "Note"});
    ASSERT_TRUE(Host.Script.OpenInputBox && Host.Script.OpenMessageBox);
    Run(UIElementCommand, {"UIElement", "-kill", "script InputBox"});
    EXPECT_EQ(nullptr, Host.Script.OpenInputBox);
    Run(UICommand, {"UI", "-reset"});
    EXPECT_EQ(nullptr, Host.Script.OpenMessageBox);
}

// The title of a code-made box is the template's, else the box's name.
TEST_F(MessageBoxTest, TemplatesGiveTitleColoursAndTextures) {
    g_UIManager.AddTemplate("dialog", "<Template><Title>Careful</Title><BorderColor>ff0000"
                                      "</BorderColor><OKTexture Filename=\"#ok\"/></Template>");
    g_UIManager.AddTemplate("asking", "<Template><BorderColor>ff0000</BorderColor></Template>");
    Run(MessageBoxCommand, {"MessageBox", "-template", "dialog", "Hi"});
    auto* box = static_cast<TAVUMessageBox*>(Top("MessageBox"));
    ASSERT_NE(nullptr, box);
    EXPECT_STREQ("Careful", box->Title);
    EXPECT_EQ(0xff0000u, box->BorderColor);
    ASSERT_NE(nullptr, box->OKButton);
    EXPECT_NE(nullptr, box->OKButton->Texture);
    EXPECT_EQ(nullptr, box->OKButton->TextureHover);
    StartScript();
    Run(InputBoxCommand, {"InputBox", "-template", "asking", "Name?"});
    auto* input = static_cast<TAVUScriptInputBox*>(Top("script InputBox"));
    ASSERT_NE(nullptr, input);
    EXPECT_STREQ("script inputbox", input->Title);
    EXPECT_EQ(0u, input->BorderColor); // decimal here: "ff0000" reads as 0
}
