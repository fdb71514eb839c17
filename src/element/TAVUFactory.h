// The factory of one element class T, for the toolkit's own classes and for
// modules that derive element types of their own:
//
//     static TAVUFactory<MyGauge> MyGaugeFactory("mygauge");
//
// makes "mygauge" usable as a tag in interface files. T needs the constructor
// T(const char* type, TAVUElement* parent, const char* name).
#pragma once

#include "CUIManager.h"
#include "TAVUElement.h"
#include "TAVUElementFactory.h"

template <class T> class TAVUFactory : public TAVUElementFactory {
public:
    explicit TAVUFactory(const char* name, unsigned version = CUIManager::Version) {
        Register(name, version);
    }
    ~TAVUFactory() = default;

    TAVUElement* CreateUIElement(TAVUElement* parent, const char* name) override {
        T* element = new T(TypeName, parent, name);
        Elements[element] = 1;
        return element;
    }

    TAVUElement* CreateUIElement(TAVUElement* parent, const char* name, XMLNode* node,
                                 const char* templateName) override {
        T* element = new T(TypeName, parent, name);
        XMLNode* templateNode = g_UIManager.FindTemplate(templateName);
        if (element->FromXML(node, templateNode)) {
            Elements[element] = 1;
            return element;
        }
        if (parent)
            parent->DeleteChild(element);
        else
            delete element;
        return nullptr;
    }
};
