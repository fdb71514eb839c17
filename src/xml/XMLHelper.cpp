#include "XMLHelper.h"

#include "StringHelpers.h"
#include "XMLAttribute.h"
#include "XMLNode.h"
#include "XMLNumbers.h"

#include <cstdlib>
#include <cstring>

namespace {

XMLKeyWatcher* g_KeyWatcher = nullptr;

// The value element's text: the Name of its first child, whatever its type.
const char* ContentOf(XMLNode* element) {
    return element->FirstChild ? element->FirstChild->Name : nullptr;
}

ElementPosition PixelsPosition(uint32_t type, int32_t pixels) {
    ElementPosition position;
    position.Type = type;
    position.Value.Pixels = pixels;
    return position;
}

ElementPosition FractionPosition(float factor) {
    ElementPosition position;
    position.Type = ElementPosition::Fraction;
    position.Value.Factor = factor;
    return position;
}

} // namespace

void XMLHelper::SetKeyWatcher(XMLKeyWatcher* watcher) {
    g_KeyWatcher = watcher;
}

XMLNode* XMLHelper::GetChild(XMLNode* node, const char* name) {
    if (!node) return nullptr;
    if (g_KeyWatcher) g_KeyWatcher->OnKeyLookup(node, name);
    for (XMLNode* child = node->FirstChild; child; child = child->Next)
        if (child->Type == XMLNode::Element && StrEqualNoCase(child->Name, name)) return child;
    return nullptr;
}

XMLNode* XMLHelper::GetFirstChild(XMLNode* node) {
    return node ? node->FirstChild : nullptr;
}
XMLNode* XMLHelper::GetNext(XMLNode* node) {
    return node ? node->Next : nullptr;
}
XMLNode* XMLHelper::GetPrev(XMLNode* node) {
    return node ? node->Prev : nullptr;
}
XMLNode* XMLHelper::GetParent(XMLNode* node) {
    return node ? node->Parent : nullptr;
}
const char* XMLHelper::GetText(XMLNode* node) {
    return node ? node->Name : "";
}

const char* XMLHelper::AttributeText(XMLNode* node, const char* name) {
    if (!node) return nullptr;
    if (g_KeyWatcher) g_KeyWatcher->OnKeyLookup(node, name);
    XMLAttribute* attribute = node->FindAttribute(name);
    if (!attribute || !attribute->Value || !attribute->Value[0]) return nullptr;
    return attribute->Value;
}

XMLNode* XMLHelper::ValueElement(XMLNode* node, const char* name) {
    return GetChild(node, name);
}

const char* XMLHelper::GetStringAttribute(XMLNode* node, const char* name,
                                          const char* defaultValue) {
    const char* text = AttributeText(node, name);
    return text ? text : defaultValue;
}

const char* XMLHelper::GetStringValue(XMLNode* node, const char* name, const char* defaultValue) {
    XMLNode* element = ValueElement(node, name);
    if (!element) return defaultValue;
    const char* text = ContentOf(element);
    return text ? text : "";
}

unsigned int XMLHelper::GetIntAttribute(XMLNode* node, const char* name,
                                        unsigned int defaultValue) {
    const char* text = AttributeText(node, name);
    return text ? unsigned(XMLReadDecimal(text)) : defaultValue;
}

unsigned int XMLHelper::GetIntValue(XMLNode* node, const char* name, unsigned int defaultValue) {
    XMLNode* element = ValueElement(node, name);
    if (!element) return defaultValue;
    const char* text = ContentOf(element);
    return text ? unsigned(XMLReadDecimal(text)) : 0;
}

unsigned int XMLHelper::GetHexAttribute(XMLNode* node, const char* name,
                                        unsigned int defaultValue) {
    const char* text = AttributeText(node, name);
    return text ? XMLReadHex(text) : defaultValue;
}

unsigned int XMLHelper::GetHexValue(XMLNode* node, const char* name, unsigned int defaultValue) {
    XMLNode* element = ValueElement(node, name);
    if (!element) return defaultValue;
    const char* text = ContentOf(element);
    return text ? XMLReadHex(text) : 0;
}

float XMLHelper::GetFloatAttribute(XMLNode* node, const char* name, float defaultValue) {
    const char* text = AttributeText(node, name);
    return text ? XMLReadFloat(text) : defaultValue;
}

float XMLHelper::GetFloatValue(XMLNode* node, const char* name, float defaultValue) {
    XMLNode* element = ValueElement(node, name);
    if (!element) return defaultValue;
    const char* text = ContentOf(element);
    return text ? XMLReadFloat(text) : 0.0f;
}

bool XMLHelper::GetToggle(XMLNode* node, const char* name, bool defaultValue) {
    XMLNode* element = ValueElement(node, name);
    if (!element) return defaultValue;
    const char* text = ContentOf(element);
    return text ? XMLReadDecimal(text) != 0 : true;
}

unsigned int XMLHelper::ParseFactor(const char* text, float& factor, unsigned int defaultValue) {
    if (strchr(text, '%')) {
        factor = float(strtod(text, nullptr) / 100.0);
        return defaultValue;
    }
    if (strchr(text, '.')) {
        factor = XMLReadFloat(text);
        return defaultValue;
    }
    factor = 0.0f;
    return unsigned(XMLReadDecimal(text));
}

unsigned int XMLHelper::GetFactorAttribute(XMLNode* node, const char* name, float& factor,
                                           unsigned int defaultValue) {
    const char* text = AttributeText(node, name);
    if (!text) {
        factor = 0.0f;
        return defaultValue;
    }
    return ParseFactor(text, factor, defaultValue);
}

unsigned int XMLHelper::GetFactorValue(XMLNode* node, const char* name, float& factor,
                                       unsigned int defaultValue) {
    XMLNode* element = ValueElement(node, name);
    if (!element) {
        factor = 0.0f;
        return defaultValue;
    }
    const char* text = ContentOf(element);
    return text ? ParseFactor(text, factor, defaultValue) : 0;
}

// A leading "r" or "R" measures a whole number from the far edge; it has no
// effect on a fraction, so "r50%" is the same as "50%".
unsigned int XMLHelper::ParseElementPosition(const char* text, ElementPosition& position,
                                             unsigned int defaultValue) {
    bool farEdge = text[0] == 'r' || text[0] == 'R';
    const char* body = farEdge ? text + 1 : text;
    if (strchr(body, '%')) {
        position = FractionPosition(float(strtod(body, nullptr) / 100.0));
        return defaultValue;
    }
    if (strchr(body, '.')) {
        position = FractionPosition(XMLReadFloat(body));
        return defaultValue;
    }
    int32_t pixels = XMLReadDecimal(body);
    position =
        PixelsPosition(farEdge ? ElementPosition::FarEdge : ElementPosition::Absolute, pixels);
    return unsigned(pixels);
}

unsigned int XMLHelper::GetElementPositionAttribute(XMLNode* node, const char* name,
                                                    ElementPosition& position,
                                                    unsigned int defaultValue) {
    const char* text = AttributeText(node, name);
    if (!text) {
        position = PixelsPosition(ElementPosition::Absolute, int32_t(defaultValue));
        return defaultValue;
    }
    return ParseElementPosition(text, position, defaultValue);
}

unsigned int XMLHelper::GetElementPositionValue(XMLNode* node, const char* name,
                                                ElementPosition& position,
                                                unsigned int defaultValue) {
    XMLNode* element = ValueElement(node, name);
    if (!element) {
        position = PixelsPosition(ElementPosition::Absolute, int32_t(defaultValue));
        return defaultValue;
    }
    const char* text = ContentOf(element);
    return text ? ParseElementPosition(text, position, defaultValue) : 0;
}

bool XMLHelper::GetElementPositionValueEx(XMLNode* node, const char* name,
                                          ElementPosition& position, unsigned int& pixels) {
    XMLNode* element = ValueElement(node, name);
    const char* text = element ? ContentOf(element) : nullptr;
    if (!text) return false;
    unsigned int whole = ParseElementPosition(text, position, 0);
    pixels = position.Type == ElementPosition::Fraction ? 0 : whole;
    return true;
}
