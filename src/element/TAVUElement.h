// The base of everything on the screen: a node of the one element tree under
// the screen, with its name, ID, geometry, fading, events and drawing.
//
// Siblings are doubly linked from FirstChild (bottom) to LastChild (top). An
// element is deleted at once, also from inside its own script event, so code
// that has run a script finds an element again by its ID before touching it.
#pragma once

#include "ElementPosition.h"
#include "Line.h"
#include "Platform.h"
#include "Point2i.h"
#include "TAVUDrawRecord.h"
#include "TavuExport.h"

#include <cstddef>

class RXTypeDefinition;
class TAVUEmbeddedScript;
class TAVUFixedFont;
class TAVUFont;
class TAVUTexture;
struct TAVUTexturedRect;
class XMLNode;

// Codes of OnNotify, the small protocol between a control and its parent.
enum : unsigned {
    TAVU_NOTIFY_LEFT_UP = 1,
    TAVU_NOTIFY_TEXT_CHANGED = 3,
    TAVU_NOTIFY_VALUE_CHANGED = 4,
    TAVU_NOTIFY_ENTER = 5,
    TAVU_NOTIFY_LEFT_DOWN = 6,
    TAVU_NOTIFY_RIGHT_DOWN = 7,
    TAVU_NOTIFY_RIGHT_UP = 8,
    TAVU_NOTIFY_SELECTION_CHANGED = 9,
    TAVU_NOTIFY_LEFT_DOUBLE_CLICK = 10,
    TAVU_NOTIFY_RIGHT_DOUBLE_CLICK = 11,
    TAVU_NOTIFY_ROW_DOUBLE_CLICK = 12,
    TAVU_NOTIFY_ROWS_REORDERED = 13,
    TAVU_NOTIFY_MOUSE_MOVED = 14,
    TAVU_NOTIFY_WHEEL = 15,
    TAVU_NOTIFY_FONT_CHANGED = 50,
    TAVU_NOTIFY_CHILD_REMOVED = 51,
};

// Fade states of an element.
enum : unsigned {
    TAVU_FADE_NORMAL = 0,
    TAVU_FADE_DELAYING = 1,
    TAVU_FADE_FADING = 2,
    TAVU_FADE_FADED = 3,
};

class TAVU_API TAVUElement {
public:
    TAVUElement(const char* type, TAVUElement* parent, const char* name);

    // The table of functions of every element class, in this order.
    virtual ~TAVUElement();
    virtual bool FromXML(XMLNode* node, XMLNode* templateNode);
    virtual TAVUTexture* TextureFromXML(XMLNode* node, const char* key, XMLNode* templateNode);
    virtual TAVUFont* FontFromXML(XMLNode* node, const char* key, XMLNode* templateNode);
    virtual TAVUFixedFont* FixedFontFromXML(XMLNode* node, const char* key, XMLNode* templateNode);
    virtual TAVUEmbeddedScript* EmbeddedScriptFromXML(XMLNode* node, const char* key,
                                                      XMLNode* templateNode, const char* arguments);
    virtual bool IsTypeOf(const char* type);
    virtual void RecalculateSize(bool recurse);
    virtual void RecalculateChildrenSize();
    virtual void SizeRecalculated(bool changed);
    virtual void Render();
    virtual void RenderChildren();
    virtual void Show(bool show);
    virtual void Center();
    virtual bool OnLMouseUp(_Point2i& point);
    virtual bool OnLMouseDown(_Point2i& point);
    virtual bool OnRMouseUp(_Point2i& point);
    virtual bool OnRMouseDown(_Point2i& point);
    virtual bool OnLMouseDoubleClick(_Point2i& point);
    virtual bool OnRMouseDoubleClick(_Point2i& point);
    virtual bool OnMouseMove(_Point2i& point);
    virtual bool OnMouseWheel(int offset);
    virtual bool OnKeyUp(unsigned key);
    virtual bool OnKeyDown(unsigned key);
    virtual void OnNotify(TAVUElement* source, unsigned code, size_t value);
    virtual void OnMouseEnter(_Point2i& point);
    virtual void OnMouseExit(TAVUElement* next);
    virtual void OnKeyboardEnter();
    virtual void OnKeyboardExit(TAVUElement* next);
    virtual void OnLMouseDownOther(TAVUElement* other);
    virtual void OnCreate();
    virtual void OnDestroy();
    virtual RXTypeDefinition* GetRXType();
    virtual bool GetStoragePosition(int& x, int& y, unsigned& width, unsigned& height);
    virtual TAVUElement* FindChild(const char* name);
    virtual bool SetFocus();
    virtual bool SetMouseOver();
    virtual TAVUElement* FindMouseOver(_Point2i& point, TAVUElement* after);
    virtual void MoveZUp();
    virtual void MoveZDown();
    virtual void MoveZTop(bool parents);
    virtual void MoveZBottom();

    // The tree.
    void AddChild(TAVUElement* child);
    void DeleteChild(TAVUElement* child);
    // Deletes this element through its factory, after "OnUnload".
    void Delete();
    // From the start of Delete (or of the screen's teardown) until the element
    // has left the manager's maps: a second deletion asked for then is ignored,
    // and no element is loaded under it.
    bool IsBeingDeleted() const;
    // Marks an element that is deleted directly, not through Delete: the screen.
    void BeginDeletion();
    TAVUElement* FindUsableChild(const char* name, const char* type);
    // The next (previous) element in depth-first order: the Tab order of focus.
    TAVUElement* Walk(bool onlyVisible, TAVUElement* stop);
    TAVUElement* WalkReverse(bool onlyVisible, TAVUElement* stop);

    bool IsFocus();
    bool IsMouseOver();
    bool IsReallyVisible();
    bool HitTest(_Point2i& point);
    float GetCurrentAlpha();
    void SetAbsolutePosition(_Point2i& position);

    // Reads a texture from XML text (argv[0]) with an optional skin (argv[1])
    // in force, replacing *texture: for script methods that set textures.
    bool TextureFromArgs(int argc, char** argv, TAVUTexture** texture);

    // Drawing primitives. They take screen coordinates (a control adds
    // AbsolutePosition itself) and draw with CurrentAlpha applied.
    bool FillRect(tagRECT& rect, unsigned color);
    bool FillRectBordered(tagRECT& rect, unsigned color, unsigned borderWidth,
                          unsigned borderColor);
    bool DrawBorder(tagRECT& rect, unsigned width, unsigned color);
    bool DrawLine(_Line& line, unsigned color, unsigned width);
    bool DrawLines(_Line* lines, unsigned count, unsigned color, unsigned width);
    bool DrawLine(_Line& line, TAVUTexture* texture, unsigned width);
    bool DrawLines(_Line* lines, unsigned count, TAVUTexture* texture, unsigned width);
    bool TexturedRect(tagRECT& rect, TAVUTexture* texture);
    // Nine cells, so that the texture's frame keeps its size at any rectangle.
    bool TexturedRectBordered(tagRECT& rect, TAVUTexture* texture, unsigned width);
    bool TexturedRects(unsigned count, TAVUTexturedRect* rects);
    // Text through a font, each nothing for a null font, answering the width
    // drawn. Without a right edge, the clipped forms stop at this element's
    // right side; nothing is drawn when x is at or beyond the edge.
    size_t DrawText(TAVUFont* font, const char* text, int x, int y);
    size_t DrawTextClipped(TAVUFont* font, const char* text, int x, int y);
    size_t DrawTextClipped(TAVUFont* font, const char* text, int x, int y, int right);
    size_t DrawTextCenter(TAVUFont* font, const char* text, int x, int y);
    size_t DrawTextCenter(TAVUFont* font, const char* text, int x, int y, int right);
    size_t DrawTextRight(TAVUFont* font, const char* text, int x, int y);
    size_t DrawTextRight(TAVUFont* font, const char* text, int x, int y, int right);
    // Text with colour codes, segment by segment, in at most 2048 bytes.
    size_t DrawColoredText(TAVUFont* font, const char* text, int x, int y);
    size_t DrawColoredTextClipped(TAVUFont* font, const char* text, int x, int y, int right);
    // A colour with its alpha byte scaled by CurrentAlpha, capped at 255.
    unsigned AdjustColorAlpha(unsigned color);

    // Text with colour codes: the count of characters that are not code, and a
    // copy without the codes (out holds at least as many bytes as text).
    static size_t ColorStrlen(const char* text);
    static void StripColor(const char* text, char* out);

    char* Type;
    unsigned ID;
    char* Name;
    char* FullName;
    TAVUElement* Parent = nullptr;
    TAVUElement* Previous = nullptr;
    TAVUElement* Next = nullptr;
    TAVUElement* FirstChild = nullptr;
    TAVUElement* LastChild = nullptr;
    // The 17 event scripts. Those whose event name is also a handler of the
    // table above carry the suffix Script.
    TAVUEmbeddedScript* OnLoad = nullptr;
    TAVUEmbeddedScript* OnUnload = nullptr;
    TAVUEmbeddedScript* OnLeftClick = nullptr;
    TAVUEmbeddedScript* OnRightClick = nullptr;
    TAVUEmbeddedScript* OnDoubleLeftClick = nullptr;
    TAVUEmbeddedScript* OnDoubleRightClick = nullptr;
    TAVUEmbeddedScript* OnMouseEnterScript = nullptr;
    TAVUEmbeddedScript* OnMouseExitScript = nullptr;
    TAVUEmbeddedScript* OnMouseMoveScript = nullptr;
    TAVUEmbeddedScript* OnMouseWheelScript = nullptr;
    TAVUEmbeddedScript* OnKeyboardEnterScript = nullptr;
    TAVUEmbeddedScript* OnKeyboardExitScript = nullptr;
    TAVUEmbeddedScript* OnKeyUpScript = nullptr;
    TAVUEmbeddedScript* OnKeyDownScript = nullptr;
    TAVUEmbeddedScript* OnLeftDown = nullptr;
    TAVUEmbeddedScript* OnRightDown = nullptr;
    TAVUEmbeddedScript* OnRender = nullptr;
    int X = 0;
    ElementPosition XPosition{};
    int Y = 0;
    ElementPosition YPosition{};
    int Height = 0;
    ElementPosition HeightPosition{};
    int Width = 0;
    ElementPosition WidthPosition{};
    int LoadedX = 0;
    ElementPosition LoadedXPosition{};
    int LoadedY = 0;
    ElementPosition LoadedYPosition{};
    int LoadedHeight = 0;
    ElementPosition LoadedHeightPosition{};
    int LoadedWidth = 0;
    ElementPosition LoadedWidthPosition{};
    bool StorePosition = false;
    bool Visible = true;
    signed char Strata = 0;
    bool LeftClickThru = false;
    bool RightClickThru = false;
    float Alpha = 1.0f;
    unsigned FadeStart = 0;
    unsigned FadeDelay = 0;
    unsigned FadeDuration = 0;
    float FadeAlpha = 1.0f;
    unsigned FadeState = TAVU_FADE_DELAYING;
    char* AutoTooltip = nullptr;
    float CurrentAlpha = 1.0f;
    _Point2i AbsolutePosition{0, 0};

protected:
    // Draws one visible child placed at position, with its "OnRender" and
    // fading; false when a script removed the child (and so maybe its
    // siblings), which ends the caller's walk.
    bool RenderChild(TAVUElement* child, const _Point2i& position);

private:
    TAVUElement(const TAVUElement&) = delete;
    TAVUElement& operator=(const TAVUElement&) = delete;

    void ComposeFullName();
    void ReadPosition(XMLNode* node, XMLNode* templateNode, const char* key, int& value,
                      ElementPosition& position);
    void ReadScripts(XMLNode* node, XMLNode* templateNode);
    // The child of node named key, else the template's; without a key, node.
    static XMLNode* KeyNode(XMLNode* node, const char* key, XMLNode* templateNode);
    bool IsOffScreen(const tagRECT& rect);
    bool FillBorderStrips(const tagRECT& rect, unsigned width, unsigned color);
    void FillTextureRecord(TAVUDrawRecord& record, TAVUTexture* texture);
    int RightEdge() const;
    void ShowAutoTooltip();
    static void SetLineEnds(TAVUDrawRecord& record, const _Line& line);
    static void DrawLineRecords(TAVUDrawRecord& record, _Line* lines, unsigned count,
                                unsigned width);
    void Unlink();
    void ForgetAsParentOfDeletions();
    void LinkAbove(TAVUElement* below);
    void SwapWithNext();
    bool ResolveValue(int& value, const ElementPosition& position, int parentSize);
    int RunEvent(TAVUEmbeddedScript* script, int x, int y);
    bool RunKeyEvent(TAVUEmbeddedScript* script, unsigned key);
};
