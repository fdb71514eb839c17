#include "TAVUTextEntry.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

#include <cstring>
#include <string>

namespace {
const char kTypeWord[] = "textentry";
// The text keeps this far from the box's sides, and the caret this many
// bytes from the edges of the shown part.
const int kInset = 3;
const size_t kCaretMargin = 3;

unsigned ClampMaxLength(unsigned length) {
    if (length == 0) return 1;
    return length > TAVUTextEntry::LargestMaxLength ? unsigned(TAVUTextEntry::LargestMaxLength)
                                                    : length;
}

unsigned FirstOr(unsigned value, unsigned fallback) {
    return value ? value : fallback;
}

// A typed character comes in the system code page; the text is UTF-8.
std::string SystemToUtf8(const char* bytes, int count) {
    WCHAR wide[4] = {0};
    int wideCount = MultiByteToWideChar(CP_ACP, 0, bytes, count, wide, 4);
    char utf8[16] = {0};
    int length =
        WideCharToMultiByte(CP_UTF8, 0, wide, wideCount, utf8, sizeof(utf8), nullptr, nullptr);
    return std::string(utf8, length > 0 ? size_t(length) : 0);
}

// The clipboard's plain text, or nothing when it cannot be opened.
std::string ClipboardText() {
    if (!OpenClipboard(nullptr)) return std::string();
    std::string text;
    HANDLE memory = GetClipboardData(CF_TEXT);
    if (const char* data = memory ? static_cast<const char*>(GlobalLock(memory)) : nullptr) {
        text = data;
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}

bool IsEntryType(TAVUElement* element) {
    RXTypeDefinition* type = element->GetRXType();
    return type && (type == pTAVUTextEntryType || type == pTAVUTextEditType);
}
} // namespace

TAVUFactory<TAVUTextEntry> g_TAVUTextEntryFactory(kTypeWord);

TAVUTextEntry::TAVUTextEntry(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

TAVUTextEntry::~TAVUTextEntry() {
    delete[] Text;
    TAVUFont::Delete(Font);
    TAVUTexture::Delete(Texture);
    TAVUTexture::Delete(TextureFocused);
    TAVUTexture::Delete(TextureCaret);
    TAVUTexture::Delete(TextureCaretOverwrite);
    if (OnChange) OnChange->Delete();
}

bool TAVUTextEntry::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    ReadKeys(node, templateNode);
    Allocate();
    return true;
}

void TAVUTextEntry::ReadKeys(XMLNode* node, XMLNode* templateNode) {
    MaxLength = ClampMaxLength(TAVUControlHelpers::ReadInt(node, templateNode, "MaxLength", 0));
    SelectionColor = TAVUControlHelpers::ReadHex(node, templateNode, "SelectionColor", 0);
    BackgroundColor = TAVUControlHelpers::ReadHex(node, templateNode, "BackgroundColor", 0);
    BorderColor = TAVUControlHelpers::ReadHex(node, templateNode, "BorderColor", 0);
    Border = TAVUControlHelpers::ReadInt(node, templateNode, "Border", 0);
    CaretOuterColor = TAVUControlHelpers::ReadHex(node, templateNode, "CaretOuterColor", 0);
    CaretInnerColor = TAVUControlHelpers::ReadHex(node, templateNode, "CaretInnerColor", 0);
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    if (TAVUEmbeddedScript* script = EmbeddedScriptFromXML(node, "OnChange", templateNode, "")) {
        if (OnChange) OnChange->Delete();
        OnChange = script;
    }
    TAVUControlHelpers::ReplaceTexture(Texture, TextureFromXML(node, "Texture", templateNode));
    TAVUControlHelpers::ReplaceTexture(TextureFocused,
                                       TextureFromXML(node, "TextureFocused", templateNode));
    PasswordCharacter = TAVUControlHelpers::ReadString(node, templateNode, "PasswordCharacter")[0];
}

// One byte more than MaxLength: a full buffer in insert mode writes its
// terminator at index MaxLength.
void TAVUTextEntry::Allocate() {
    delete[] Text;
    Allocated = MaxLength;
    Text = new char[Allocated + 1]();
    Length = Caret = ScrollOffset = 0;
}

size_t TAVUTextEntry::Limit() const {
    return MaxLength < Allocated ? MaxLength : Allocated;
}

bool TAVUTextEntry::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUTextEntry::Create(_CreateTextEntry& create, XMLNode* node) {
    TAVUApplyCreateHead(this, create);
    if (!node) node = g_UIManager.FindTemplate(kTypeWord);
    BackgroundColor =
        FirstOr(create.BackgroundColor, XMLHelper::GetHexValue(node, "BackgroundColor", 0));
    SelectionColor =
        FirstOr(create.SelectionColor, XMLHelper::GetHexValue(node, "SelectionColor", 0));
    MaxLength =
        ClampMaxLength(FirstOr(create.MaxLength, XMLHelper::GetIntValue(node, "MaxLength", 0)));
    BorderColor = FirstOr(create.BorderColor, XMLHelper::GetHexValue(node, "BorderColor", 0));
    Border = FirstOr(create.Border, XMLHelper::GetIntValue(node, "Border", 0));
    CaretOuterColor =
        FirstOr(create.CaretOuterColor, XMLHelper::GetHexValue(node, "CaretOuterColor", 0));
    CaretInnerColor =
        FirstOr(create.CaretInnerColor, XMLHelper::GetHexValue(node, "CaretInnerColor", 0));
    PasswordCharacter = create.PasswordCharacter;
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", nullptr);
    Allocate();
    if (create.Text) ReplaceText(create.Text, Limit() - 1);
}

void TAVUTextEntry::ReplaceText(const char* text, size_t maxBytes) {
    if (!Text) return;
    size_t length = text ? strnlen(text, maxBytes) : 0;
    if (length > Allocated) length = Allocated;
    if (length) memcpy(Text, text, length);
    Text[length] = 0;
    Length = Caret = length;
}

void TAVUTextEntry::ClearText() {
    if (Text) Text[0] = 0;
    Length = Caret = ScrollOffset = 0;
}

// SetText tells no parent and runs OnChange without asking whether the
// entry survives it: whoever calls it does not touch the entry afterwards.
void TAVUTextEntry::SetText(char* text) {
    size_t limit = Limit();
    size_t caret = Caret;
    ReplaceText(text, limit ? limit - 1 : 0);
    Caret = caret < Length ? caret : Length;
    if (OnChange) OnChange->Execute(0, nullptr);
}

void TAVUTextEntry::SetFontSize(unsigned int size) {
    if (!Font) return;
    Font->SetHeight((unsigned char)(size < 8 ? 8 : (size > 96 ? 96 : size)));
}

bool TAVUTextEntry::NotifyChange() {
    TAVUElementWatch watch(this);
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_TEXT_CHANGED, size_t(Text));
    if (!watch.Alive()) return false;
    if (OnChange) OnChange->Execute(0, nullptr);
    return watch.Alive();
}

// In insert mode at a full buffer the last byte falls off the end.
void TAVUTextEntry::InsertCharacter(char c) {
    size_t limit = Limit();
    if (!Text || Caret >= limit) return;
    if (InsertMode) {
        if (Caret < Length) {
            memmove(Text + Caret + 1, Text + Caret, Length - Caret);
            if (Length < limit) ++Length;
        } else {
            Length = Caret + 1;
        }
        Text[Length] = 0;
    } else if (Caret >= Length) {
        Length = Caret + 1;
        Text[Length] = 0;
    }
    Text[Caret++] = c;
    NotifyChange();
}

void TAVUTextEntry::HandleBackspace() {
    if (!Text || Caret == 0) return;
    memmove(Text + Caret - 1, Text + Caret, Length - Caret + 1);
    --Length;
    --Caret;
    NotifyChange();
}

void TAVUTextEntry::HandleDelete() {
    if (!Text || Length == 0 || Caret >= Length) return;
    memmove(Text + Caret, Text + Caret + 1, Length - Caret);
    --Length;
    NotifyChange();
}

void TAVUTextEntry::HandleEnter() {
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_ENTER, 0);
}

void TAVUTextEntry::HandleEscape() {}

void TAVUTextEntry::PasteClipboard() {
    PasteBytes(false);
}

void TAVUTextEntry::PasteBytes(bool linesEnter) {
    std::string text = ClipboardText();
    TAVUElementWatch watch(this);
    for (size_t i = 0; i < text.size() && watch.Alive(); ++i) {
        switch (text[i]) {
        case 8:
            HandleBackspace();
            break;
        case 127:
            HandleDelete();
            break;
        case '\n':
        case '\r':
            if (linesEnter) HandleEnter();
            break;
        default:
            InsertCharacter(text[i]);
        }
    }
}

size_t TAVUTextEntry::GetPositionFromPoint(_Point2i& point) {
    if (!Font || !Text) return 0;
    unsigned pixels = Border - unsigned(AbsolutePosition.x) + unsigned(point.x);
    return Font->GetCharByOffset(Text, pixels);
}

bool TAVUTextEntry::OnLMouseDown(_Point2i& point) {
    TAVUElementWatch watch(this);
    g_UIManager.SetFocusElement(this);
    if (!watch.Alive()) return true;
    Caret = GetPositionFromPoint(point);
    TAVUElement::OnLMouseDown(point);
    return true;
}

bool TAVUTextEntry::OnKeyUp(unsigned key) {
    if (key == RepeatKey) RepeatKey = 0;
    TAVUElement::OnKeyUp(key);
    return true;
}

void TAVUTextEntry::OnKeyboardExit(TAVUElement* next) {
    RepeatKey = 0;
    TAVUElement::OnKeyboardExit(next);
}

// Key codes are Windows virtual keys. Any key that reaches the end repeats
// while held, but Enter; a key that types nothing is refused, so that it can
// reach the entry's parents.
bool TAVUTextEntry::OnKeyDown(unsigned key) {
    TAVUElementWatch watch(this);
    switch (key) {
    case KeyBackspace:
        HandleBackspace();
        break;
    case KeyTab:
        MoveFocus(this);
        break;
    case KeyEnter:
    case KeySeparator:
        HandleEnter();
        break;
    case KeyEscape:
        HandleEscape();
        break;
    case KeyEnd:
        Caret = Length;
        break;
    case KeyHome:
        Caret = 0;
        break;
    case KeyLeft:
        if (Caret > 0) --Caret;
        break;
    case KeyRight:
        if (Text && Text[Caret]) ++Caret;
        break;
    case KeyInsert:
        if (g_UIManager.Shift)
            PasteClipboard();
        else
            InsertMode = !InsertMode;
        break;
    case KeyDelete:
        HandleDelete();
        break;
    default:
        if (key == KeyV && g_UIManager.Control) {
            PasteClipboard();
        } else if (key < 256 && !TypeKey(key)) {
            return false;
        }
    }
    if (!watch.Alive()) return true;
    FinishKeyDown(key);
    return true;
}

bool TAVUTextEntry::FinishKeyDown(unsigned key) {
    RepeatKey = key == KeyEnter ? 0 : key;
    NextRepeat = GetTickCount() + g_UIManager.KeyRepeatDelay;
    TAVUElementWatch watch(this);
    TAVUElement::OnKeyDown(key);
    return watch.Alive();
}

// The key's characters by the keyboard layout, each byte of their UTF-8
// typed in turn; false when the key types nothing.
bool TAVUTextEntry::TypeKey(unsigned key) {
    std::string typed;
    if (!KeyCharacters(key, typed)) return false;
    TAVUElementWatch watch(this);
    for (size_t i = 0; i < typed.size() && watch.Alive(); ++i)
        InsertCharacter(typed[i]);
    return true;
}

bool TAVUTextEntry::KeyCharacters(unsigned key, std::string& typed) {
    WORD characters = 0;
    int count = ToAscii(key, 0x80000000u, g_UIManager.KeyState, &characters, 0);
    if (count <= 0) return false;
    char bytes[2] = {char(characters & 0xFF), char(characters >> 8)};
    typed = SystemToUtf8(bytes, count > 2 ? 2 : count);
    return true;
}

// The walk covers the whole tree: it is not held to the element's window.
void TAVUTextEntry::MoveFocus(TAVUElement* from) {
    bool back = g_UIManager.Shift;
    TAVUElement* next = back ? from->WalkReverse(true, nullptr) : from->Walk(true, nullptr);
    while (next && next != from && !IsEntryType(next))
        next = back ? next->WalkReverse(true, nullptr) : next->Walk(true, nullptr);
    if (next && next != from) g_UIManager.SetFocusElement(next);
}

void TAVUTextEntry::Render() {
    if (RenderCustom()) TAVUElement::Render();
}

size_t TAVUTextEntry::TextWidth(const char* text) {
    return Font ? Font->GetTextWidth(text) : 0;
}

void TAVUTextEntry::DrawBackground(tagRECT& rect) {
    TAVUTexture* texture = Texture;
    if (texture && TextureFocused && IsFocus()) texture = TextureFocused;
    if (texture)
        TAVUControlHelpers::DrawTexture(this, rect, texture, Border, BorderColor);
    else if (Border > 0)
        FillRectBordered(rect, BackgroundColor, Border, BorderColor);
    else
        FillRect(rect, BackgroundColor);
}

// The repeat of a held key counts from the planned time, not from now, so
// that a slow frame does not slow the repeat down. False when the repeated
// key's handling deleted the entry.
bool TAVUTextEntry::RepeatHeldKey(TAVUElement* element, unsigned& repeatKey, unsigned& nextRepeat) {
    if (!repeatKey) return true;
    if (!element->IsFocus()) {
        repeatKey = 0;
        return true;
    }
    unsigned planned = nextRepeat;
    if (GetTickCount() <= planned) return true;
    TAVUElementWatch watch(element);
    element->OnKeyDown(repeatKey);
    if (!watch.Alive()) return false;
    nextRepeat = planned + g_UIManager.KeyRepeatInterval;
    return true;
}

bool TAVUTextEntry::RenderCustom() {
    if (!RepeatHeldKey(this, RepeatKey, NextRepeat)) return false;
    tagRECT rect = TAVUControlHelpers::ScreenRect(this);
    DrawBackground(rect);
    rect.left = WrapAdd(rect.left, kInset);
    rect.right = WrapSubtract(rect.right, kInset);
    if (ScrollOffset > Length) ScrollOffset = Length;
    char mask[LargestMaxLength + 1];
    const char* shown = ShownText(mask);
    int y = WrapAdd(rect.top, 1);
    if (!shown[0]) {
        if (IsFocus()) DrawFocusedText(shown, rect, y);
        return true;
    }
    ScrollToCaret(shown);
    if (IsFocus())
        DrawFocusedText(shown, rect, y);
    else
        DrawTextClipped(Font, shown + (ScrollOffset < Length ? ScrollOffset : Length), rect.left,
                        y);
    return true;
}

// The text as drawn: the mask character once for every byte, else the text.
const char* TAVUTextEntry::ShownText(char* mask) {
    if (!PasswordCharacter) return Text ? Text : "";
    memset(mask, PasswordCharacter, Length);
    mask[Length] = 0;
    return mask;
}

// Keeps the caret a few bytes from the left edge of the shown part and, in a
// text wider than the box, from its right edge. A caret far right of the
// shown part wraps the offset below zero; the next frame cuts it back to the
// text, and the drawing in between starts at the caret.
void TAVUTextEntry::ScrollToCaret(const char* shown) {
    if (ScrollOffset + kCaretMargin > Caret) {
        ScrollOffset = Caret > kCaretMargin ? Caret - kCaretMargin : 0;
        return;
    }
    if (Caret <= kCaretMargin || !Font) return;
    if (TextWidth(shown + ScrollOffset) + TextWidth(" ") < unsigned(Width)) return;
    size_t fit = Font->GetCharByOffset(shown + ScrollOffset, unsigned(Width));
    if (ScrollOffset < Caret && Caret - ScrollOffset + 1 > fit)
        ScrollOffset = ScrollOffset + kCaretMargin + fit - Caret;
}

// The part left of the caret, the caret box, then the rest of the text over
// the caret.
void TAVUTextEntry::DrawFocusedText(const char* shown, const tagRECT& rect, int y) {
    size_t caret = Caret < Length ? Caret : Length;
    size_t start = ScrollOffset < caret ? ScrollOffset : caret;
    if (caret - start >= CaretPartSize) start = caret - (CaretPartSize - 1);
    char part[CaretPartSize];
    memcpy(part, shown + start, caret - start);
    part[caret - start] = 0;
    size_t width = part[0] ? DrawTextClipped(Font, part, rect.left, y) : 0;
    int x = WrapAdd(rect.left, int(width));
    tagRECT box{x, WrapAdd(rect.top, int(Border)), WrapAdd(x, int(TextWidth(" "))),
                WrapSubtract(rect.bottom, int(Border))};
    unsigned fill = InsertMode ? CaretInnerColor : CaretOuterColor;
    unsigned line = InsertMode ? CaretOuterColor : CaretInnerColor;
    FillRectBordered(box, fill, 1, line);
    if (shown[caret]) DrawTextClipped(Font, shown + caret, x, y);
}

RXTypeDefinition* TAVUTextEntry::GetRXType() {
    return pTAVUTextEntryType;
}
