// The second interface of the host, returned once by GetScriptInterface.
#pragma once

class RXTypeDefinition;
struct _RXTypeVar;

class HostScriptInterface {
public:
    // Evaluates a data sequence to a typed object rather than to text.
    virtual bool DataParse(const char* text, _RXTypeVar& result) = 0;
    // Finds a type by name (the two further arguments are 0).
    virtual RXTypeDefinition* FindType(const char* name, int reserved1, int reserved2) = 0;
    // A short-lived host buffer of size bytes, valid until control returns to
    // the script engine, filled with the size bytes at contents (which may be
    // wide text, zero bytes and all).
    virtual char* GetTempBuffer(unsigned size, const char* contents) = 0;
    // A persistent class, as HostServices::RegisterPersistentClass.
    virtual unsigned RegisterPersistentClass(const char* name) = 0;
    // As HostServices::InvalidatePersistentObject.
    virtual void InvalidatePersistentObject(unsigned persistentClass, void* object) = 0;
    // Compiles a boolean query over a script object; 0 on failure.
    virtual unsigned CompileQuery(const char* query) = 0;
    // Evaluates a query for one object.
    virtual bool EvaluateQuery(unsigned query, _RXTypeVar* object, bool* result) = 0;
    // Frees a query.
    virtual void FreeQuery(unsigned query) = 0;

protected:
    ~HostScriptInterface() = default;
};
