// The one object the host drives: the root of the element tree, every registry
// (elements by name and by ID, factories, templates, skins, metadata), the
// input state and the frame. There is one, g_UIManager, exported by the module.
#pragma once

#include "Platform.h"
#include "Point2i.h"
#include "TavuExport.h"
#include "utf8stringnocase.h"

#include <cstdint>
#include <map>
#include <string>

class TAVUElement;
class TAVUElementFactory;
class TAVUScreen;
class TAVUSkin;
class XMLNode;
class XMLParser;

class TAVU_API CUIManager {
public:
    enum : unsigned { Version = 18 }; // the interface version factories register with

    typedef std::map<utf8stringnocase, std::string> MetadataMap;

    CUIManager();
    ~CUIManager();
    CUIManager(const CUIManager&) = delete;
    CUIManager& operator=(const CUIManager&) = delete;

    // The manager's table of functions, in this order.
    virtual void Initialize();
    virtual void Shutdown();
    virtual unsigned GetVersion();
    virtual void ClearMouseState();

    // One frame: mouse-over, frame time, screen size, and the whole drawing.
    void Render();
    // Deletes the tree and makes a new screen; templates, skins, factories stay.
    void Reset();

    // Index lookups: an unknown name or ID gets an empty entry and gives null.
    TAVUElement* FindElement(const char* fullName);
    TAVUElement* FindElementByID(unsigned id);
    TAVUElementFactory* FindFactory(const char* type);

    bool ShowElement(const char* fullName, bool show);
    bool ToggleElement(const char* fullName);

    TAVUElement* GetFocusElement();
    void SetFocusElement(TAVUElement* element);
    TAVUElement* SetFocusElement();
    TAVUElement* GetMouseOverElement();
    TAVUElement* SetMouseOverElement();

    // Interface files. The forms without a parent load under the screen; with
    // an element name, only the entries of that name load, under newName. A
    // reload first deletes a loaded element of the same name from the screen.
    bool LoadInterfaceXML(TAVUElement* parent, const char* file, const char* elementName,
                          const char* newName, bool reload, TAVUSkin* skin);
    bool LoadInterfaceXML(TAVUElement* parent, const char* file, bool reload, TAVUSkin* skin);
    bool LoadInterfaceXML(const char* file, const char* elementName, const char* newName,
                          bool reload, TAVUSkin* skin);
    bool LoadInterfaceXML(const char* file, bool reload, TAVUSkin* skin);
    // Deletes from the screen the elements that a file's entries name.
    bool UnloadInterfaceXML(const char* file);
    // Makes an element through its type's factory, then its size, OnCreate and
    // "OnLoad". From a node, its "Children" (or its template's) load first,
    // deepest first. Null on failure, with a message; null too when the
    // element deleted itself in "OnLoad".
    TAVUElement* LoadElement(TAVUElement* parent, const char* type, const char* name);
    TAVUElement* LoadElement(TAVUElement* parent, const char* type, const char* name, XMLNode* node,
                             const char* templateName);

    // Raw input from the host. Each answers whether the toolkit took the event,
    // so that the host knows whether to pass it on to its own application.
    bool OnMouseMove(_Point2i& point);
    bool OnLMouseDown();
    bool OnLMouseUp();
    bool OnRMouseDown();
    bool OnRMouseUp();
    bool OnMouseWheel(int offset);
    bool OnKeyDown(unsigned key);
    bool OnKeyUp(unsigned key);

    // Thin forwards to the host's renderer. Nothing is given back after Shutdown.
    bool GetTextureSize(unsigned handle, _Point2i& size);
    unsigned AcquireFont(const char* name, int height, bool fixed, bool bold);
    void ReleaseFont(unsigned handle);
    unsigned AcquireTexture(const char* file, unsigned colorKey);
    void ReleaseTexture(unsigned handle);

    // Per-element text by key (keys ignore case). The value, or "".
    const char* GetMetadata(unsigned id, const char* key);
    bool SetMetadata(unsigned id, const char* key, const char* value);
    bool UnsetMetadata(unsigned id, const char* key);
    void ClearMetadata(TAVUElement* element);

    // Templates (owned XML nodes, each tagged "Template"), by name. Adding one
    // merges its chain of bases into one stored tree and replaces a template
    // of the same name. Lookups go through the current skin.
    XMLNode* AddTemplate(const char* name, XMLNode* node);
    XMLNode* AddTemplate(const char* name, const char* xmlText);
    XMLNode* FindTemplate(const char* name);
    void RemoveTemplate(const char* name);
    void ClearTemplates();

    // Skins (owned), by name. A new skin replaces one of the same name.
    TAVUSkin* NewSkin(const char* name);
    TAVUSkin* FindSkin(const char* name);
    void RemoveSkin(const char* name);
    void ClearSkins();
    // Makes a remembered skin current again, or none when it was deleted since
    // it was remembered (a load may redefine the skin it ran under).
    void RestoreSkin(TAVUSkin* remembered);

    unsigned FocusElementID = 0;
    unsigned MouseOverElementID = 0;
    unsigned LeftPressedElementID = 0;
    unsigned RightPressedElementID = 0;
    unsigned MouseOverRootID = 0;
    bool Shift = false;
    bool Alt = false;
    bool Control = false;
    uint8_t LeftButtonState = 0; // 0 up, 1 pressed and not taken, 2 pressed and taken
    uint8_t RightButtonState = 0;
    _Point2i MousePosition{-1, -1};
    uint8_t KeyState[256]; // bit 0x80 down, 0x02 press consumed; 20 and 144 hold toggles
    std::map<utf8stringnocase, TAVUElement*> ElementsByName;
    std::map<unsigned, TAVUElement*> ElementsByID;
    TAVUScreen* Screen = nullptr;
    std::map<utf8stringnocase, TAVUElementFactory*> Factories;
    unsigned NextElementID = 1;
    CRITICAL_SECTION Lock; // never entered: everything runs on the host's thread
    std::map<utf8stringnocase, XMLNode*> Templates;
    std::map<utf8stringnocase, TAVUSkin*> Skins;
    TAVUSkin* CurrentSkin = nullptr;
    char Prefix[64];
    char CurrentFile[512];
    bool IsShutDown = false;
    unsigned MouseEnterTime = 0;
    unsigned LastInputTime = 0;
    _Point2i LastClickPosition{0, 0};
    unsigned LeftClickTime = 0;
    unsigned LeftClickElementID = 0;
    unsigned RightClickTime = 0;
    unsigned RightClickElementID = 0;
    unsigned FrameTime = 0;
    unsigned AutoTooltipElementID = 0;
    unsigned TooltipDelay = 1000;
    unsigned DoubleClickTime = 250;
    unsigned KeyRepeatInterval = 50;
    unsigned KeyRepeatDelay = 250;
    bool ZOrderChanged = false;
    std::map<unsigned, uint16_t> KeyStates;
    unsigned PersistentClass = 0;
    std::map<unsigned, MetadataMap*> Metadata;

private:
    // Takes a template out of the registry without deleting it.
    XMLNode* TakeTemplate(const char* name);
    XMLNode* OpenInterfaceFile(const char* file, XMLParser& parser);
    bool DeleteScreen();
    bool LoadEntry(TAVUElement* parent, XMLNode* entry, const char* elementName,
                   const char* newName, bool reload);
    TAVUElement* CreateFromNode(TAVUElement* parent, const char* type, const char* name,
                                XMLNode* node, const char* templateName, bool& failed);
    void LoadChildren(TAVUElement* element, XMLNode* node, const char* templateName);
    void LoadChildNodes(TAVUElement* element, XMLNode* children);
    TAVUElement* FinishLoad(TAVUElement* element);
    struct ButtonFields; // one mouse button's part of the input state
    ButtonFields LeftButton();
    ButtonFields RightButton();
    bool PressButton(ButtonFields& button);
    bool ReleaseButton(ButtonFields& button);
    void RaiseTopLevelAncestor(TAVUElement* element);
    void SetModifier(unsigned key, bool down);
    void RegisterScriptTypes();
    void RemoveScriptTypes();
    void RegisterScriptAccess();
    void RemoveScriptAccess();
};

extern "C" TAVU_API CUIManager g_UIManager;
