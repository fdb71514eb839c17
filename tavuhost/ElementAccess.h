// What the host reads and writes in an element: to keep its position, the
// element's full name, its virtual GetStoragePosition, and its place; for the
// inspector, the tree as the manager holds it and the facts of one element.
#pragma once

#include <string>

class CUIManager;
class TAVUElement;

// One element as the inspector shows it.
struct ElementFacts {
    unsigned ID = 0;
    std::string FullName;
    std::string Name;
    std::string Type;
    int X = 0; // on the screen
    int Y = 0;
    int Width = 0;
    int Height = 0;
    bool Shown = false;   // its own flag
    bool Visible = false; // its own flag and every ancestor's
    bool Focused = false;
    bool MouseOver = false;
    std::string Skin; // the current skin's name
};

struct StoredPosition {
    int X = 0;
    int Y = 0;
    unsigned Width = 0;
    unsigned Height = 0;
};

class ElementAccess {
public:
    static std::string FullName(TAVUElement* element);
    // The rectangle the element wants kept; false when it keeps none.
    static bool StoragePosition(TAVUElement* element, StoredPosition& position);
    // Puts the element at a kept rectangle, in plain pixels, so that no
    // relative place of its file overrides it.
    static void Place(TAVUElement* element, const StoredPosition& position);

    // The tree: the screen, and each element's parent, first child and next sibling.
    static TAVUElement* Screen(CUIManager* manager);
    static TAVUElement* Parent(TAVUElement* element);
    static TAVUElement* FirstChild(TAVUElement* element);
    static TAVUElement* Next(TAVUElement* element);
    // A live element by its ID; null when it is gone.
    static TAVUElement* ByID(CUIManager* manager, unsigned id);
    static ElementFacts Facts(CUIManager* manager, TAVUElement* element);
    // The template that the current skin puts in place of the named one; the
    // name itself when there is no skin or it has no entry for the name.
    static std::string SkinnedTemplate(CUIManager* manager, const std::string& name);
    // The name of the element's event whose script is this atom; "" when none is.
    static std::string EventOfAtom(TAVUElement* element, unsigned atom);
};
