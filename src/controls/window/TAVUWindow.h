// "window": a movable, resizable frame that owns a title bar (a "frame" child
// called "TitleBar"), a client area (a "windowclient" child called "Client")
// and a right-click menu on the title bar. The children of a <window> node
// load into the client, so from outside a window's children are the client's.
//
// X, Y, Width and Height are the outer rectangle; what a file or a record
// gives is the inner one, and the border hangs outside it. Several sums here
// are lopsided on purpose (a right edge that stops at the minimum while a left
// edge pushes the window along, a stored width that keeps the title bar's
// offset): interfaces and stored positions depend on them.
#pragma once

#include "CWindowContextMenu.h"
#include "TAVUFrame.h"

class TAVUButton;
class TAVUText;

struct _CreateWindow : _CreateFrame {
    unsigned Flags = 0;
    const char* Title = nullptr;
    const char* ClickFocus = nullptr;
};

class TAVU_API TAVUWindow : public TAVUFrame {
public:
    // Bits of Flags; the bit of value 4 is not used.
    enum : unsigned {
        FlagCloseButton = 1,
        FlagMinimizeButton = 2,
        FlagWidthResizable = 8,
        FlagHeightResizable = 16,
        FlagOffsetTitleBarWidth = 32,
        FlagOffsetTitleBarHeight = 64,
    };
    // Bits of ResizeEdges.
    enum : unsigned { EdgeLeft = 1, EdgeRight = 2, EdgeTop = 4, EdgeBottom = 8 };
    // How near (in pixels) an edge must come to the parent's to snap to it.
    enum : int { SnapMargin = 5 };

    TAVUWindow(const char* type, TAVUElement* parent, const char* name);

    ~TAVUWindow() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void RecalculateSize(bool recurse) override;
    void Render() override;
    void RenderChildren() override;
    void Show(bool show) override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnRMouseUp(_Point2i& point) override;
    bool OnRMouseDown(_Point2i& point) override;
    bool OnLMouseDoubleClick(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    bool OnMouseWheel(int offset) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    void OnCreate() override;
    RXTypeDefinition* GetRXType() override;
    bool GetStoragePosition(int& x, int& y, unsigned& width, unsigned& height) override;
    TAVUElement* FindChild(const char* name) override;
    // Lays the children out in the inner rectangle.
    virtual void OnResize();

    // A window made by code. Its title comes from node's "Title" (else the
    // element's name), never from create.Title: code that builds windows
    // titles them through the node it passes.
    void Create(_CreateWindow& create, XMLNode* node);
    // Shrinks the window to its title bar, or gives it back its size. The
    // state is not tested: each call saves or restores as told.
    void Minimize(bool minimize);
    // Back to the place and size the window was loaded with.
    void ResetWindowPosition();
    void SetTitle(const char* text);

    unsigned Flags = 0;
    char* Title = nullptr;
    char* ClickFocus = nullptr;
    unsigned MinHeight = 40;
    unsigned MinWidth = 20;
    unsigned SavedHeight = 0;
    unsigned SavedWidth = 0;
    int SavedTitleBarX = 0;
    int SavedTitleBarY = 0;
    bool Minimized = false;
    bool Dragging = false;
    bool Locked = false;
    unsigned ResizeEdges = 0;
    _Point2i LastMouse{0, 0};
    _Point2i DragOffset{0, 0};
    TAVUElement* Client = nullptr;
    TAVUElement* TitleBar = nullptr;
    TAVUText* TitleText = nullptr;
    TAVUButton* MinimizeButton = nullptr;
    TAVUButton* MaximizeButton = nullptr;
    TAVUButton* CloseButton = nullptr;
    CWindowContextMenu ContextMenu;

private:
    void ReadToggles(XMLNode* node, XMLNode* templateNode, bool withOffsets);
    void ReadMinimumSizes(XMLNode* node, XMLNode* templateNode);
    void ReadTitleAndFocus(XMLNode* node);
    void LoadParts(XMLNode* node, XMLNode* templateNode);
    void FindTitleBarParts();
    void WidenResizableBorder();
    void AddTitleBarOffsets();
    void ApplyClickFocus();
    bool TitleBarHits(_Point2i& point);
    bool PassesMouse();
    void StartTitleBarDrag();
    void DragByTitleBar();
    static void SnapBody(int& position, int size, int parentSize);
    static void SnapTitleBar(int& position, int size, int parentSize, int nearKeep);
    void ForgetPart(TAVUElement* part);
    void ResizeStep(_Point2i& point);
    static void DragNearEdge(int& place, ElementPosition& placeMode, int& size,
                             ElementPosition& sizeMode, int delta);
    static void DragFarEdge(int& size, ElementPosition& sizeMode, int delta, bool pastMinimum);
};
