#include "ScriptTypeTest.h"
#include "TAVUButton.h"
#include "TAVUCheckBox.h"
#include "TAVUFrame.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"
#include "Words.h"

class ControlTypes : public ScriptTypeTest {
protected:
    template <class T> T* Make(const char* type, const char* name) {
        return static_cast<T*>(g_UIManager.LoadElement(g_UIManager.Screen, type, name));
    }
};

TEST_F(ControlTypes, FrameMembersGiveColoursAsIntsAndNamesClimbToTheElementType) {
    auto* frame = Make<TAVUFrame>("frame", "Panel");
    frame->BackgroundColor = 0xFF102030;
    frame->X = 7;
    EXPECT_EQ(Get(pTAVUFrameType, frame, "BackgroundColor"),
              "1 " + std::to_string(int(0xFF102030)));
    EXPECT_EQ(Get(pTAVUFrameType, frame, "Texture"), "0"); // none
    EXPECT_EQ(Get(pTAVUFrameType, frame, "X"), "1 7");     // from tavuelement
    EXPECT_EQ(Get(pTAVUFrameType, frame, "Nothing"), "-1");
    EXPECT_EQ(Get(pTAVUFrameType, nullptr, "Border"), "0");

    EXPECT_EQ(Method(pTAVUFrameType, frame, "SetBorderColor", {"FF00FF00"}), 1);
    EXPECT_EQ(Method(pTAVUFrameType, frame, "SetBorderColor", {"zz"}), 1);
    EXPECT_EQ(frame->BorderColor, 0xFF00FF00u);               // unparsed text keeps the colour
    EXPECT_EQ(Method(pTAVUFrameType, frame, "SetBorder"), 0); // a required argument
    EXPECT_EQ(Method(pTAVUFrameType, frame, "SetTexture", {"<T Filename=\"#wood\"/>"}), 1);
    EXPECT_EQ(Get(pTAVUFrameType, frame, "Texture"), "1 tavutexture");
    EXPECT_EQ(Method(pTAVUFrameType, frame, "SetTexture", {"<broken"}), 0);
    EXPECT_EQ(frame->Texture, nullptr);                  // a failed read leaves no texture
    EXPECT_EQ(Method(pTAVUFrameType, frame, "Hide"), 1); // a tavuelement method
    EXPECT_FALSE(frame->Visible);

    char name[16];
    RXObjectData object{};
    object.Value.Pointer = frame;
    ASSERT_TRUE(pTAVUFrameType->ToTextSized(object, name, sizeof(name)));
    EXPECT_STREQ(name, "panel");
}

TEST_F(ControlTypes, ButtonMembersAndMethods) {
    auto* button = Make<TAVUButton>("button", "Ok");
    EXPECT_EQ(Get(pTAVUButtonType, button, "Text"), "0"); // no caption yet
    EXPECT_EQ(Method(pTAVUButtonType, button, "SetText", {"Hello ${Name}"}), 1);
    EXPECT_EQ(Get(pTAVUButtonType, button, "Text"), "1 Hello ${Name}"); // the source text
    EXPECT_EQ(Method(pTAVUButtonType, button, "SetText"), 1);
    EXPECT_EQ(button->Text.Text, nullptr);
    button->Pressed = true;
    EXPECT_EQ(Get(pTAVUButtonType, button, "Down"), "1 TRUE");
    EXPECT_EQ(Get(pTAVUButtonType, button, "Font"), "1 tavufont"); // no null test
    EXPECT_EQ(Result.Value.Pointer, button->Font);
    EXPECT_EQ(Method(pTAVUButtonType, button, "SetTextureHover", {"<T Filename=\"#lit\"/>"}), 1);
    EXPECT_EQ(Get(pTAVUButtonType, button, "TextureHover"), "1 tavutexture");
    EXPECT_EQ(Get(pTAVUButtonType, button, "TexturePressed"), "0");
    EXPECT_EQ(Method(pTAVUButtonType, button, "SetBorder", {"3"}), 1);
    EXPECT_EQ(Get(pTAVUButtonType, button, "Border"), "1 3");
}

TEST_F(ControlTypes, CheckBoxTickMethodsChangeTheStateAlone) {
    auto* box = Make<TAVUCheckBox>("commandcheckbox", "Music");
    Host.ClearRecords();
    std::string states; // each method's answer and the state it leaves
    for (const char* method : {"SetChecked", "ToggleChecked", "ToggleChecked"})
        states += Words(Method(pTAVUCheckBoxType, box, method), box->Checked) + "; ";
    EXPECT_EQ(states, "1 1; 1 0; 1 1; ");
    EXPECT_EQ(Get(pTAVUCheckBoxType, box, "Checked"), "1 TRUE");
    EXPECT_EQ(Method(pTAVUCheckBoxType, box, "UnsetChecked"), 1);
    EXPECT_FALSE(box->Checked);
    EXPECT_TRUE(Host.Commands.empty()); // no command, no event
    EXPECT_TRUE(Host.AtomRuns.empty());
    EXPECT_EQ(Get(pTAVUCheckBoxType, box, "TextureCheckedHover"), "0");
    EXPECT_EQ(Get(pTAVUCheckBoxType, box, "Name"), "1 music"); // names are kept in lower case
}
