// "textentry": the one-line edit box. A fixed buffer of MaxLength bytes with a
// caret, insert and overwrite modes, an optional password mask and horizontal
// scrolling; it types by the keyboard layout, pastes, and has no selection.
//
// Every change by the keyboard tells the parent first and then runs OnChange,
// and either may delete the entry: code that changes the text asks whether
// the entry still lives before it goes on. A script may raise MaxLength past
// the buffer that was allocated; writes stop at the buffer all the same.
#pragma once

#include "TAVUCreateHead.h"
#include "TAVUElement.h"
#include "TAVUFont.h"

#include <cstddef>
#include <string>

struct _CreateTextEntry : _CreateHead {
    const char* Text = nullptr;
    _CreateFont Font{};
    unsigned BackgroundColor = 0;
    unsigned SelectionColor = 0;
    unsigned MaxLength = 0;
    unsigned BorderColor = 0;
    unsigned Border = 0;
    unsigned CaretOuterColor = 0;
    unsigned CaretInnerColor = 0;
    char PasswordCharacter = 0;
};

class TAVU_API TAVUTextEntry : public TAVUElement {
public:
    // MaxLength after reading: 0 becomes 1, anything above this the largest.
    enum : unsigned { LargestMaxLength = 4096 };
    // The focused part left of the caret is drawn from a buffer of this size.
    enum : size_t { CaretPartSize = 1024 };
    // The virtual keys that the entries handle themselves.
    enum VirtualKey : unsigned {
        KeyBackspace = 8,
        KeyTab = 9,
        KeyEnter = 13,
        KeyEscape = 27,
        KeyPageUp = 33,
        KeyPageDown = 34,
        KeyEnd = 35,
        KeyHome = 36,
        KeyLeft = 37,
        KeyUp = 38,
        KeyRight = 39,
        KeyDown = 40,
        KeyInsert = 45,
        KeyDelete = 46,
        KeyV = 86,
        KeySeparator = 108,
    };

    TAVUTextEntry(const char* type, TAVUElement* parent, const char* name);

    ~TAVUTextEntry() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    bool OnKeyDown(unsigned key) override;
    bool OnKeyUp(unsigned key) override;
    bool OnLMouseDown(_Point2i& point) override;
    void OnKeyboardExit(TAVUElement* next) override;
    void Render() override;
    RXTypeDefinition* GetRXType() override;

    // Added to the table of functions, in this order.
    virtual void SetText(char* text);
    virtual void SetFontSize(unsigned int size);
    virtual void InsertCharacter(char c);
    virtual void HandleBackspace();
    virtual void HandleDelete();
    virtual void HandleEnter();
    virtual void HandleEscape();
    virtual void PasteClipboard();

    // An entry made by code; fields left at 0 come from node (the template
    // "textentry" when null), the password character from create alone.
    void Create(_CreateTextEntry& create, XMLNode* node);

    // The caret position under a screen point. It measures the text from its
    // first byte, not from the scrolled start and not the mask: a click in a
    // scrolled or masked entry lands by the plain text from the left, and
    // interfaces have always had it so.
    size_t GetPositionFromPoint(_Point2i& point);

    // The next entry or editor in Tab order from an element (the previous
    // with Shift) takes the focus.
    static void MoveFocus(TAVUElement* from);
    // The UTF-8 bytes a virtual key types by the keyboard layout; false
    // when it types nothing.
    static bool KeyCharacters(unsigned key, std::string& typed);
    // Presses a held key again once its time has come, while the element
    // has the focus (the repeat ends when it loses it). False when the
    // repeated key's handling deleted the element.
    static bool RepeatHeldKey(TAVUElement* element, unsigned& repeatKey, unsigned& nextRepeat);

    // Repeats a held key, then draws the background, text and caret. False
    // when the repeated key's handling deleted the entry.
    bool RenderCustom();

    char* Text = nullptr;
    TAVUFont* Font = nullptr;
    unsigned BackgroundColor = 0;
    unsigned SelectionColor = 0; // read and kept: the entry has no selection to paint
    unsigned MaxLength = 0;
    unsigned BorderColor = 0;
    unsigned Border = 0;
    unsigned CaretOuterColor = 0;
    unsigned CaretInnerColor = 0;
    TAVUTexture* Texture = nullptr;
    TAVUTexture* TextureFocused = nullptr;
    TAVUTexture* TextureCaret = nullptr;          // owned; nothing fills it
    TAVUTexture* TextureCaretOverwrite = nullptr; // owned; nothing fills it
    TAVUEmbeddedScript* OnChange = nullptr;
    char PasswordCharacter = 0;
    bool InsertMode = true;
    size_t Caret = 0;
    unsigned RepeatKey = 0;
    size_t Length = 0;
    unsigned NextRepeat = 0;
    size_t ScrollOffset = 0;

protected:
    // The most bytes of text the buffer may hold now: MaxLength, but never
    // more than the buffer that was allocated.
    size_t Limit() const;
    // Replaces the text with up to maxBytes bytes of text and puts the caret
    // at its end. Tells nobody.
    void ReplaceText(const char* text, size_t maxBytes);
    // Empties the text, caret and scrolling.
    void ClearText();
    // Tells the parent, then runs OnChange; false when the entry is gone.
    bool NotifyChange();
    // Sets the repeat state after a key and runs the element's own key event.
    // False when the entry did not survive the event.
    bool FinishKeyDown(unsigned key);
    // Types the clipboard's text byte by byte: backspace and delete bytes
    // edit, line breaks are dropped or, with linesEnter, press Enter. Stops
    // when the entry is gone. The text is copied out of the clipboard first,
    // so that a script run along the way may use the clipboard itself.
    void PasteBytes(bool linesEnter);

private:
    void Allocate();
    void ReadKeys(XMLNode* node, XMLNode* templateNode);
    bool TypeKey(unsigned key);
    const char* ShownText(char* mask);
    void ScrollToCaret(const char* shown);
    void DrawBackground(tagRECT& rect);
    void DrawFocusedText(const char* shown, const tagRECT& rect, int y);
    size_t TextWidth(const char* text);
    size_t Allocated = 0; // bytes of text the buffer holds, besides its terminator
};
