// What every element reads from its XML: the common keys, node over template
// over default, and the event scripts compiled into atoms through the host.
#include "TAVUElement.h"

#include "CUIManager.h"
#include "Module.h"
#include "StringHelpers.h"
#include "TAVUEmbeddedScript.h"
#include "XMLHelper.h"
#include "XMLNode.h"
#include "XMLParser.h"
#include "TAVUFixedFont.h"
#include "TAVUFont.h"
#include "TAVUTexture.h"
#include "TAVUSkin.h"

#include <cstring>

namespace {
const char kPointArguments[] = "int X, int Y";

void ReplaceScript(TAVUEmbeddedScript*& field, TAVUEmbeddedScript* script) {
    if (field) field->Delete();
    field = script;
}
} // namespace

// A position of the node wins whole; only when the node lacks it does the
// template's count, with 0 as the default.
void TAVUElement::ReadPosition(XMLNode* node, XMLNode* templateNode, const char* key, int& value,
                               ElementPosition& position) {
    unsigned pixels = 0;
    if (XMLHelper::GetElementPositionValueEx(node, key, position, pixels)) {
        value = int(pixels);
        return;
    }
    value = int(XMLHelper::GetElementPositionValue(templateNode, key, position, 0));
}

bool TAVUElement::FromXML(XMLNode* node, XMLNode* templateNode) {
    ReadPosition(node, templateNode, "X", X, XPosition);
    ReadPosition(node, templateNode, "Y", Y, YPosition);
    ReadPosition(node, templateNode, "Height", Height, HeightPosition);
    ReadPosition(node, templateNode, "Width", Width, WidthPosition);

    Alpha = XMLHelper::GetFloatValue(node, "Alpha",
                                     XMLHelper::GetFloatValue(templateNode, "Alpha", 1.0f));
    FadeAlpha = XMLHelper::GetFloatValue(
        node, "FadeAlpha", XMLHelper::GetFloatValue(templateNode, "FadeAlpha", Alpha));
    FadeDelay = XMLHelper::GetIntValue(node, "FadeDelay",
                                       XMLHelper::GetIntValue(templateNode, "FadeDelay", 0));
    FadeDuration = XMLHelper::GetIntValue(node, "FadeDuration",
                                          XMLHelper::GetIntValue(templateNode, "FadeDuration", 0));
    StorePosition = XMLHelper::GetToggle(
        node, "StorePosition", XMLHelper::GetToggle(templateNode, "StorePosition", false));
    unsigned strata =
        XMLHelper::GetIntValue(node, "Strata", XMLHelper::GetIntValue(templateNode, "Strata", 0));
    Strata = static_cast<signed char>(strata & 0xFF);
    if (XMLHelper::GetToggle(node, "AlwaysOnTop",
                             XMLHelper::GetToggle(templateNode, "AlwaysOnTop", false)))
        Strata = 127;
    Visible = XMLHelper::GetToggle(node, "Visible",
                                   XMLHelper::GetToggle(templateNode, "Visible", Visible));

    ReadScripts(node, templateNode);

    const char* tooltip = XMLHelper::GetStringValue(
        node, "AutoTooltip", XMLHelper::GetStringValue(templateNode, "AutoTooltip", ""));
    if (tooltip[0]) {
        StrFree(AutoTooltip);
        AutoTooltip = StrDuplicate(tooltip);
    }

    LoadedX = X, LoadedXPosition = XPosition;
    LoadedY = Y, LoadedYPosition = YPosition;
    LoadedHeight = Height, LoadedHeightPosition = HeightPosition;
    LoadedWidth = Width, LoadedWidthPosition = WidthPosition;
    if (StorePosition) g_pHost->RestoreElementPosition(this);
    MoveZTop(false); // takes its place among its siblings by strata
    return true;
}

namespace {
bool HasEventKey(XMLNode* node) {
    for (XMLNode* child = node ? node->FirstChild : nullptr; child; child = child->Next)
        if (child->Type == XMLNode::Element && child->Name &&
            StrCompareNoCaseN(child->Name, "on", 2) == 0)
            return true;
    return false;
}
} // namespace

void TAVUElement::ReadScripts(XMLNode* node, XMLNode* templateNode) {
    struct Event {
        const char* Key;
        TAVUEmbeddedScript* TAVUElement::*Field;
        const char* Arguments;
    };
    static const Event kEvents[] = {
        {"OnLoad", &TAVUElement::OnLoad, ""},
        {"OnUnload", &TAVUElement::OnUnload, ""},
        {"OnLeftClick", &TAVUElement::OnLeftClick, kPointArguments},
        {"OnRightClick", &TAVUElement::OnRightClick, kPointArguments},
        {"OnLeftDown", &TAVUElement::OnLeftDown, kPointArguments},
        {"OnRightDown", &TAVUElement::OnRightDown, kPointArguments},
        {"OnDoubleLeftClick", &TAVUElement::OnDoubleLeftClick, kPointArguments},
        {"OnDoubleRightClick", &TAVUElement::OnDoubleRightClick, kPointArguments},
        {"OnMouseEnter", &TAVUElement::OnMouseEnterScript, kPointArguments},
        {"OnMouseExit", &TAVUElement::OnMouseExitScript, ""},
        {"OnMouseMove", &TAVUElement::OnMouseMoveScript, kPointArguments},
        {"OnMouseWheel", &TAVUElement::OnMouseWheelScript, "int Offset"},
        {"OnKeyboardEnter", &TAVUElement::OnKeyboardEnterScript, ""},
        {"OnKeyboardExit", &TAVUElement::OnKeyboardExitScript, ""},
        {"OnKeyUp", &TAVUElement::OnKeyUpScript, "string Key"},
        {"OnKeyDown", &TAVUElement::OnKeyDownScript, "string Key"},
        {"OnRender", &TAVUElement::OnRender, ""},
    };
    // Every event key begins with "On": a node without such a key is left out
    // of the lookups, and most template nodes hold none.
    XMLNode* nodeEvents = HasEventKey(node) ? node : nullptr;
    XMLNode* templateEvents = HasEventKey(templateNode) ? templateNode : nullptr;
    if (!nodeEvents && !templateEvents) return;
    for (const Event& event : kEvents) {
        TAVUEmbeddedScript* script =
            EmbeddedScriptFromXML(nodeEvents, event.Key, templateEvents, event.Arguments);
        if (script) ReplaceScript(this->*event.Field, script);
    }
}

XMLNode* TAVUElement::KeyNode(XMLNode* node, const char* key, XMLNode* templateNode) {
    if (!key) return node;
    XMLNode* found = XMLHelper::GetChild(node, key);
    return found ? found : XMLHelper::GetChild(templateNode, key);
}

TAVUEmbeddedScript* TAVUElement::EmbeddedScriptFromXML(XMLNode* node, const char* key,
                                                       XMLNode* templateNode,
                                                       const char* arguments) {
    XMLNode* source = KeyNode(node, key, templateNode);
    if (!source || !source->FirstChild) return nullptr;
    TAVUEmbeddedScript* script = TAVUEmbeddedScript::New(this, source->FirstChild->Name, arguments);
    if (!script) g_pHost->ConsolePrintf("%s embedded script failed to load", key ? key : "");
    return script;
}

TAVUTexture* TAVUElement::TextureFromXML(XMLNode* node, const char* key, XMLNode* templateNode) {
    XMLNode* source = KeyNode(node, key, templateNode);
    return source ? TAVUTexture::NewFromXML(source) : nullptr;
}

// Without a node, a 12-pixel font of the host's default face.
TAVUFont* TAVUElement::FontFromXML(XMLNode* node, const char* key, XMLNode* templateNode) {
    return TAVUFont::NewFromXML(this, KeyNode(node, key, templateNode));
}

TAVUFixedFont* TAVUElement::FixedFontFromXML(XMLNode* node, const char* key,
                                             XMLNode* templateNode) {
    return TAVUFixedFont::NewFromXML(this, KeyNode(node, key, templateNode));
}

bool TAVUElement::TextureFromArgs(int argc, char** argv, TAVUTexture** texture) {
    TAVUTexture::Delete(*texture);
    *texture = nullptr;
    if (argc < 1 || !argv[0]) return false;
    XMLParser document;
    if (!document.ParseBuffer(argv[0], strlen(argv[0]))) return false;
    XMLNode* element = document.Root ? document.Root->FirstChild : nullptr;
    while (element && element->Type != XMLNode::Element)
        element = element->Next;
    if (!element) return false;
    TAVUSkin* savedSkin = g_UIManager.CurrentSkin;
    if (argc >= 2) {
        if (TAVUSkin* skin = g_UIManager.FindSkin(argv[1])) g_UIManager.CurrentSkin = skin;
    }
    *texture = TextureFromXML(element, nullptr, nullptr);
    g_UIManager.RestoreSkin(savedSkin);
    return *texture != nullptr;
}
