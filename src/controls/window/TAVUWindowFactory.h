// The factory of window classes T, whose script type is *scriptType.
//
// Loading a <window> from a file gives the loader the window's client, not
// the window: the node's "Children" then load into the client, and the
// client's OnCreate lays the window out again once they exist. The window
// itself has had its OnCreate and "OnLoad" by then. A window without a
// client makes the load fail, though the window stays. Made without a file,
// a window is given as it is.
#pragma once

#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"

class RXTypeDefinition;

template <class T, RXTypeDefinition** scriptType> class TAVUWindowFactory : public TAVUFactory<T> {
public:
    explicit TAVUWindowFactory(const char* name) : TAVUFactory<T>(name) {}

    using TAVUFactory<T>::CreateUIElement;
    TAVUElement* CreateUIElement(TAVUElement* parent, const char* name, XMLNode* node,
                                 const char* templateName) override {
        auto* window =
            static_cast<T*>(TAVUFactory<T>::CreateUIElement(parent, name, node, templateName));
        if (!window) return nullptr;
        unsigned id = window->ID;
        window->OnCreate();
        if (window->OnLoad) window->OnLoad->Execute(0, nullptr);
        if (!g_UIManager.FindElementByID(id)) return nullptr; // its "OnLoad" deleted it
        return window->Client;
    }

    RXTypeDefinition* GetRXType() const { return *scriptType; }
};
