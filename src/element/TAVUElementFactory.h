// Makes elements of one type name, the tag used in interface files. Factories
// are static objects: they register with the manager while the module loads,
// so type names work from the first file, and they outlive every element.
#pragma once

#include "TavuExport.h"

#include <map>

class TAVUElement;
class TAVUElementDeleter;
class XMLNode;

class TAVU_API TAVUElementFactory {
public:
    virtual TAVUElement* CreateUIElement(TAVUElement* parent, const char* name) = 0;
    // Makes the element and reads it from node with the named template; an
    // element whose reading fails is deleted again and null is given.
    virtual TAVUElement* CreateUIElement(TAVUElement* parent, const char* name, XMLNode* node,
                                         const char* templateName) = 0;
    // The element is going: it leaves Elements.
    virtual void Forget(TAVUElement* element);

    // Enters the factory under its lower-cased name when version is the
    // manager's; otherwise says so on the console and stays unregistered.
    void Register(const char* name, unsigned version);
    void Unregister();

    std::map<TAVUElement*, unsigned> Elements; // every live element, each with 1
    TAVUElementDeleter* Deleter = nullptr;     // owned
    char* TypeName = nullptr;                  // null when registration failed

protected:
    TAVUElementFactory();
    ~TAVUElementFactory();
    TAVUElementFactory(const TAVUElementFactory&) = delete;
    TAVUElementFactory& operator=(const TAVUElementFactory&) = delete;
};
