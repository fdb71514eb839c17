// The readers through which element code takes its settings from a document.
//
// A setting stands either as an attribute of a node or as a value: a child
// element whose first child holds the text, as in <Width>10</Width>. Names are
// compared ignoring case. The two kinds differ on purpose when data is
// missing: an empty attribute gives the default, while a value element with no
// content gives the empty text, 0, or true for a toggle.
#pragma once

#include "ElementPosition.h"
#include "TavuExport.h"

#include <cstdint>

class XMLNode;

// Told of each key a reader looks up on a node, found or not: the key
// registry's check watches a reader at work through it.
class TAVU_API XMLKeyWatcher {
public:
    virtual void OnKeyLookup(const XMLNode* node, const char* name) = 0;

protected:
    ~XMLKeyWatcher() = default;
};

class TAVU_API XMLHelper {
public:
    // One watcher at a time; null stops watching.
    static void SetKeyWatcher(XMLKeyWatcher* watcher);

    // The first child element (type 1) of that name; null for a null node.
    static XMLNode* GetChild(XMLNode* node, const char* name);
    static XMLNode* GetFirstChild(XMLNode* node);
    static XMLNode* GetNext(XMLNode* node);
    static XMLNode* GetPrev(XMLNode* node);
    static XMLNode* GetParent(XMLNode* node);
    // The node's Name, which for a text node is its text; "" for a null node.
    static const char* GetText(XMLNode* node);

    static const char* GetStringAttribute(XMLNode* node, const char* name,
                                          const char* defaultValue);
    static const char* GetStringValue(XMLNode* node, const char* name, const char* defaultValue);
    static unsigned int GetIntAttribute(XMLNode* node, const char* name, unsigned int defaultValue);
    static unsigned int GetIntValue(XMLNode* node, const char* name, unsigned int defaultValue);
    static unsigned int GetHexAttribute(XMLNode* node, const char* name, unsigned int defaultValue);
    static unsigned int GetHexValue(XMLNode* node, const char* name, unsigned int defaultValue);
    static float GetFloatAttribute(XMLNode* node, const char* name, float defaultValue);
    static float GetFloatValue(XMLNode* node, const char* name, float defaultValue);
    // A value element with no content is true; with content, its number is.
    static bool GetToggle(XMLNode* node, const char* name, bool defaultValue);

    // "50%" and "0.5" fill factor with 0.5 and answer the default; a whole
    // number answers itself and sets factor to 0.
    static unsigned int GetFactorAttribute(XMLNode* node, const char* name, float& factor,
                                           unsigned int defaultValue);
    static unsigned int GetFactorValue(XMLNode* node, const char* name, float& factor,
                                       unsigned int defaultValue);

    // Positions: "10" pixels from the near edge, "r10" from the far edge,
    // "50%" or "0.5" a fraction of the parent. Whole numbers are also answered.
    static unsigned int GetElementPositionAttribute(XMLNode* node, const char* name,
                                                    ElementPosition& position,
                                                    unsigned int defaultValue);
    static unsigned int GetElementPositionValue(XMLNode* node, const char* name,
                                                ElementPosition& position,
                                                unsigned int defaultValue);
    // Tells an absent value from a value of 0: false, with nothing written,
    // unless the value element exists and has content.
    static bool GetElementPositionValueEx(XMLNode* node, const char* name,
                                          ElementPosition& position, unsigned int& pixels);
    // The position grammar on its own.
    static unsigned int ParseElementPosition(const char* text, ElementPosition& position,
                                             unsigned int defaultValue);

private:
    // The text of an attribute, or null when the node, the attribute or its
    // text is missing.
    static const char* AttributeText(XMLNode* node, const char* name);
    // The value element of that name, or null.
    static XMLNode* ValueElement(XMLNode* node, const char* name);
    static unsigned int ParseFactor(const char* text, float& factor, unsigned int defaultValue);
};
