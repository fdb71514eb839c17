#include "ControlTest.h"
#include "TAVUButton.h"
#include "TAVUCommands.h"
#include "TAVUScriptInputBox.h"
#include "TAVUScriptMessageBox.h"
#include "TAVUText.h"
#include "TAVUTextEntry.h"

namespace {
std::string Place(const TAVUElement* element) {
    return std::to_string(element->X) + " " + std::to_string(element->Y) + " " +
           std::to_string(element->Width) + " " + std::to_string(element->Height);
}
} // namespace

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

    // A release on the button, as the mouse gives it.
    void Press(TAVUButton* button) {
        ASSERT_NE(nullptr, button);
        button->OnLMouseUp(Point);
    }

    void SetUp() override {
        ControlTest::SetUp();
        g_UIManager.AddTemplate("textentry", "<Template><MaxLength>64</MaxLength></Template>");
    }

    void StartScript() {
        Host.InScript = true;
        Host.Script.SetUserInput("an old answer");
    }
};

// Without a template the box has no client, and its buttons sit in the box:
// a one-word message gives the narrowest box, 13 + 30 high with a 12-pixel
// font, and its buttons centred along its bottom.
TEST_F(MessageBoxTest, ButtonsOfEachTypeSitCentredAlongTheBottom) {
    struct Case {
        const char* Option;
        std::vector<const char*> Buttons; // "label X Y W H"
    };
    const Case cases[] = {
        {"-ok", {"ok 48 18 32 20"}},
        {"-okcancel", {"ok 13 18 32 20", "cancel 50 18 64 20"}},
        {"-yesno", {"yes 29 18 32 20", "no 66 18 32 20"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Option);
        Run(MessageBoxCommand, {"MessageBox", c.Option, "Hello"});
        auto* box = static_cast<TAVUMessageBox*>(Top("MessageBox"));
        ASSERT_NE(nullptr, box);
        EXPECT_EQ("336 278 128 43", Place(box)); // centred on the 800x600 screen
        std::vector<std::string> buttons;
        for (TAVUElement* child = box->FirstChild; child; child = child->Next)
            if (child->IsTypeOf("button"))
                buttons.push_back(std::string(child->Name) + " " + Place(child));
        EXPECT_EQ(std::vector<std::string>(c.Buttons.begin(), c.Buttons.end()), buttons);
        g_UIManager.Screen->DeleteChild(box);
    }
}

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

// The word of the pressed button reaches the script's record and the box is
// gone; the record forgets its last answer as soon as a box opens.
TEST_F(MessageBoxTest, ScriptBoxesAnswerWithTheirButtonsWord) {
    struct Case {
        const char* Option;
        TAVUButton* TAVUMessageBox::*Button;
        const char* Answer;
    };
    const Case cases[] = {{"-ok", &TAVUMessageBox::OKButton, "OK"},
                          {"-okcancel", &TAVUMessageBox::CancelButton, "Cancel"},
                          {"-yesno", &TAVUMessageBox::YesButton, "Yes"},
                          {"-yesno", &TAVUMessageBox::NoButton, "No"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Answer);
        StartScript();
        Run(MessageBoxCommand, {"MessageBox", c.Option, "Sure?"});
        auto* box = static_cast<TAVUScriptMessageBox*>(Top("script MessageBox"));
        ASSERT_NE(nullptr, box);
        EXPECT_EQ(nullptr, Host.Script.UserInput);
        EXPECT_EQ(box, (TAVUElement*)Host.Script.OpenMessageBox);
        Press(box->*c.Button);
        EXPECT_EQ(nullptr, Top("script MessageBox"));
        EXPECT_EQ(nullptr, Host.Script.OpenMessageBox);
        ASSERT_NE(nullptr, Host.Script.UserInput);
        EXPECT_STREQ(c.Answer, Host.Script.UserInput);
    }
}

// Enter and "OK" hand over the typed text, "Cancel" nothing, and a click from
// anything else (the title bar) closes the box unanswered.
TEST_F(MessageBoxTest, InputBoxesAnswerWithTheTypedText) {
    enum How { Enter, OK, Cancel, Stray };
    struct Case {
        How Way;
        const char* Answer; // null: none
    };
    const Case cases[] = {{Enter, "Ada"}, {OK, "Ada"}, {Cancel, nullptr}, {Stray, nullptr}};
    for (const Case& c : cases) {
        SCOPED_TRACE(int(c.Way));
        StartScript();
        Run(InputBoxCommand, {"InputBox", "Your name?", "Ad"});
        auto* box = static_cast<TAVUScriptInputBox*>(Top("script InputBox"));
        ASSERT_NE(nullptr, box);
        ASSERT_NE(nullptr, box->Entry);
        EXPECT_EQ(box->Entry, g_UIManager.GetFocusElement());
        EXPECT_EQ(box, (TAVUElement*)Host.Script.OpenInputBox);
        box->Entry->OnKeyDown(TAVUTextEntry::KeyEnd);
        box->Entry->InsertCharacter('a');
        if (c.Way == Enter) box->Entry->OnKeyDown(TAVUTextEntry::KeyEnter);
        if (c.Way == OK) Press(box->OKButton);
        if (c.Way == Cancel) Press(box->CancelButton);
        if (c.Way == Stray) box->OnNotify(box->FindChild("Text"), TAVU_NOTIFY_LEFT_UP, 0);
        EXPECT_EQ(nullptr, Top("script InputBox"));
        EXPECT_EQ(nullptr, Host.Script.OpenInputBox);
        if (c.Answer)
            EXPECT_STREQ(c.Answer, Host.Script.UserInput);
        else
            EXPECT_EQ(nullptr, Host.Script.UserInput);
    }
}

// A box taken away by a script or a reset tells its record, so that the
// record never points at a freed box; a second box of the same script is
// refused while the first is open.
TEST_F(MessageBoxTest, BoxesTakenAwayLeaveNoPointerBehind) {
    StartScript();
    Run(InputBoxCommand, {"InputBox", "Name?"});
    Run(InputBoxCommand, {"InputBox", "Again?"});
    EXPECT_EQ("InputBox failed", Host.Console.back());
    Run(MessageBoxCommand, {"MessageBox", "Note"});
    ASSERT_NE(nullptr, Host.Script.OpenInputBox);
    ASSERT_NE(nullptr, Host.Script.OpenMessageBox);
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
