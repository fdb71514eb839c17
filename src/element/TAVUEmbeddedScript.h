// A compiled event script: a reference-counted wrapper of a host atom. The
// count lets a script outlive the deletion of its own element while it runs.
#pragma once

#include "TavuExport.h"

class TAVUElement;

class TAVU_API TAVUEmbeddedScript {
public:
    // Compiles "atom auto(ARGUMENTS)\n{\nSOURCE\n}\n"; null when the element or
    // the source is missing, or the host cannot compile it.
    static TAVUEmbeddedScript* New(TAVUElement* element, const char* source, const char* arguments);

    virtual ~TAVUEmbeddedScript();
    // Drops one reference; the last one deletes the object.
    virtual void Delete();
    // Runs the atom with This set to the given element (null passes no This).
    virtual int Execute(TAVUElement* element, int argc, char** argv);
    // Runs the atom with This set to the script's own element.
    virtual int Execute(int argc, char** argv);

    unsigned Atom;
    TAVUElement* Element;
    int RefCount = 1;

protected:
    TAVUEmbeddedScript(unsigned atom, TAVUElement* element) : Atom(atom), Element(element) {}
};
