// The factory of window classes T, whose script type is *scriptType.
//
// Loading a <window> from a file gives the loader the window's client, not
// the window: the node's "Children" then load into the client, and the
// client's OnCreate lays the window out again once they exist. The window
// itself has had its OnCreate and "OnLoad" by then. A window without a
// client makes the load fail, though the window stays.
#pragma once

#include "CUIManager.h"
#include "TAVUElementFactory.h"
#include "TAVUEmbeddedScript.h"

class RXTypeDefinition;

template <class T, RXTypeDefinition** scriptType>
class TAVUWindowFactory : public TAVUElementFactory {
public:
    explicit TAVUWindowFactory(const char* name, unsigned version = CUIManager::Version) {
        Register(name, version);
    }
    ~TAVUWindowFactory() = default;

    TAVUElement* CreateUIElement(TAVUElement* parent, const char* name) override {
        T* window = new T(TypeName, parent, name);
        Elements[window] = 1;
        return window;
    }

    TAVUElement* CreateUIElement(TAVUElement* parent, const char* name, XMLNode* node,
                                 const char* templateName) override {
        T* window = new T(TypeName, parent, name);
        if (!window->FromXML(node, g_UIManager.FindTemplate(templateName))) {
            if (parent)
                parent->DeleteChild(window);
            else
                delete window;
            return nullptr;
        }
        Elements[window] = 1;
        unsigned id = window->ID;
        window->OnCreate();
        if (window->OnLoad) window->OnLoad->Execute(0, nullptr);
        if (!g_UIManager.FindElementByID(id)) return nullptr; // its "OnLoad" deleted it
        return window->Client;
    }

    RXTypeDefinition* GetRXType() const { return *scriptType; }
};
