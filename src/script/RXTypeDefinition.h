// The base of every script type: the object through which the host's script
// engine reads members of, and calls methods on, objects of one type.
//
// A type registers each member and method under a name and an ID; a request by
// name reaches the type's GetMember/GetMethod with the record, whose ID the
// type's handler switches on. A name the type lacks goes to MemberFallback /
// MethodFallback, which a derived type points at its parent type, so that a
// search climbs a chain of types and answers -1 at its top.
#pragma once

#include "CIndex.h"
#include "RXTypeVar.h"
#include "TavuExport.h"

#include <cstdint>
#include <map>
#include <string>

class RXTypeDefinition;

// The object operand of a type's operations: 16 bytes, of which the first 8
// hold the object (a pointer, or an integer for value-like types).
struct RXObjectData {
    RXValueData Value;
    uint64_t Extra;
};
static_assert(sizeof(RXObjectData) == 16, "the object operand is 16 bytes");

// A member or method handler of its own; the toolkit registers none (null).
typedef bool (*RXMemberHandler)(RXTypeDefinition* type, RXObjectData& object, int argc,
                                char* argv[], _RXTypeVar& result);
typedef bool (*RXMethodHandler)(RXTypeDefinition* type, RXObjectData& object, int argc,
                                char* argv[]);

// One registered member or method; records of one name form a chain.
struct _RXTypeMember {
    uint32_t ID;
    char* Name;
    void* Handler;
    _RXTypeMember* Previous;
    _RXTypeMember* Next;
};

class TAVU_API RXTypeDefinition {
public:
    explicit RXTypeDefinition(const char* typeName);
    virtual ~RXTypeDefinition();
    RXTypeDefinition(const RXTypeDefinition&) = delete;
    RXTypeDefinition& operator=(const RXTypeDefinition&) = delete;

    virtual bool ParseText(RXObjectData& object, const char* text);
    virtual bool FromText(RXObjectData& object, const char* text);
    virtual bool FromArguments(RXObjectData& object, int argc, char* argv[]);
    virtual bool InitVariable(RXObjectData& object, const char* subType);
    virtual void ClearVariable(RXObjectData& object, const char* subType);
    virtual void FreeVariable(RXObjectData& object);
    virtual bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                           _RXTypeVar& result);
    virtual bool GetMemberByName(RXObjectData& object, const char* name, int argc, char* argv[],
                                 _RXTypeVar& result);
    virtual bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]);
    virtual bool GetMethodByName(RXObjectData& object, const char* name, int argc, char* argv[]);
    virtual int GetIndex(RXObjectData& object, int argc, char* argv[], _RXTypeVar& result);
    // 1: result filled in; 0: the member exists but the request failed; -1: no such member.
    virtual int DispatchMember(RXObjectData& object, const char* name, int argc, char* argv[],
                               _RXTypeVar& result);
    // The same for methods, without a result.
    virtual int DispatchMethod(RXObjectData& object, const char* name, int argc, char* argv[]);
    virtual int IndexFallback(RXObjectData& object, int argc, char* argv[], _RXTypeVar& result);
    virtual int MemberFallback(RXObjectData& object, const char* name, int argc, char* argv[],
                               _RXTypeVar& result);
    virtual int MethodFallback(RXObjectData& object, const char* name, int argc, char* argv[]);
    virtual bool ToText(RXObjectData& object, char* buffer);
    virtual bool ToTextSized(RXObjectData& object, char* buffer, size_t size);
    virtual bool ToTextFallback(RXObjectData& object);
    virtual bool InheritsMember(const char* name);
    virtual bool InheritsMethod(const char* name);
    virtual RXTypeDefinition* GetVariableType();
    virtual bool AddMember(const char* name, void* handler);
    virtual bool AddMember(uint32_t id, const char* name, void* handler);
    virtual bool RemoveMember(const char* name, void* handler);
    virtual bool AddMethod(const char* name, void* handler);
    virtual bool AddMethod(uint32_t id, const char* name, void* handler);
    virtual bool RemoveMethod(const char* name, void* handler);

    // Declares the type this one inherits from (InheritsMember, InheritsMethod).
    void Initialize(RXTypeDefinition* baseType);

    const char* GetName() const { return TypeName; }

    char TypeName[32];
    CIndex<_RXTypeMember*> Members;
    std::map<std::string, uint32_t> MemberNames; // name to slot + 1; exact comparison
    CIndex<_RXTypeMember*> Methods;
    std::map<std::string, uint32_t> MethodNames;
    RXTypeDefinition* BaseType = nullptr;
    uint32_t NextMethodID = 1;
    uint32_t NextMemberID = 1;
};
