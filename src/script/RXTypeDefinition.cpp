#include "RXTypeDefinition.h"

#include "StringHelpers.h"

#include <cstring>

namespace {

// One table of a type: the slots of same-name chains and the name index.
struct MemberTable {
    CIndex<_RXTypeMember*>& Slots;
    std::map<std::string, uint32_t>& Names;
    uint32_t& NextID;
};

// The head of the chain registered under a name, or null.
_RXTypeMember* FindChain(MemberTable table, const char* name) {
    auto entry = table.Names.find(name);
    if (entry == table.Names.end() || entry->second == 0) return nullptr;
    return table.Slots.Get(entry->second - 1);
}

bool AddRecord(MemberTable table, uint32_t id, const char* name, void* handler) {
    if (id >= table.NextID) table.NextID = id + 1;
    uint32_t& entry = table.Names[name];
    _RXTypeMember* head = nullptr;
    if (entry != 0) {
        head = table.Slots.Get(entry - 1);
        for (_RXTypeMember* record = head; record; record = record->Next)
            if (record->Handler == handler) return false;
    }
    auto* record = new _RXTypeMember{id, StrDuplicate(name), handler, nullptr, head};
    if (entry == 0) {
        int slot = table.Slots.Add(record);
        if (slot < 0) {
            StrFree(record->Name);
            delete record;
            table.Names.erase(name);
            return false;
        }
        entry = uint32_t(slot) + 1;
        return true;
    }
    if (head) head->Previous = record;
    // The new record becomes the head; the slot keeps the head of the chain.
    table.Slots.Remove(entry - 1);
    int slot = table.Slots.Add(record);
    entry = uint32_t(slot) + 1;
    return true;
}

// An existing name keeps the ID it has; a new one takes the next free number.
bool AddRecordByName(MemberTable table, const char* name, void* handler) {
    _RXTypeMember* head = name ? FindChain(table, name) : nullptr;
    uint32_t id = head ? head->ID : table.NextID++;
    return AddRecord(table, id, name, handler);
}

void FreeRecord(_RXTypeMember* record) {
    StrFree(record->Name);
    delete record;
}

bool RemoveRecord(MemberTable table, const char* name, void* handler) {
    auto entry = table.Names.find(name);
    if (entry == table.Names.end() || entry->second == 0) return false;
    uint32_t slot = entry->second - 1;
    _RXTypeMember* head = table.Slots.Get(slot);
    _RXTypeMember* record = head;
    while (record && record->Handler != handler)
        record = record->Next;
    if (!record) return false;
    if (record->Previous) record->Previous->Next = record->Next;
    if (record->Next) record->Next->Previous = record->Previous;
    _RXTypeMember* newHead = record == head ? record->Next : head;
    FreeRecord(record);
    table.Slots.Remove(slot);
    if (!newHead) {
        table.Names.erase(entry);
        return true;
    }
    // Removing only freed the place, so the surviving head goes straight back in it.
    entry->second = uint32_t(table.Slots.Add(newHead)) + 1;
    return true;
}

void FreeTable(MemberTable table) {
    unsigned size = table.Slots.GetSize();
    for (unsigned slot = 0; slot < size; ++slot) {
        _RXTypeMember* record = table.Slots.Get(slot);
        while (record) {
            _RXTypeMember* next = record->Next;
            FreeRecord(record);
            record = next;
        }
        table.Slots.Remove(slot);
    }
    table.Names.clear();
}

bool HasName(const std::map<std::string, uint32_t>& names, const char* name) {
    auto entry = names.find(name);
    return entry != names.end() && entry->second != 0;
}

} // namespace

RXTypeDefinition::RXTypeDefinition(const char* typeName) {
    StrCopyBounded(TypeName, typeName ? typeName : "", sizeof(TypeName));
}

RXTypeDefinition::~RXTypeDefinition() {
    FreeTable({Members, MemberNames, NextMemberID});
    FreeTable({Methods, MethodNames, NextMethodID});
}

bool RXTypeDefinition::ParseText(RXObjectData& object, const char* text) {
    return false;
}

bool RXTypeDefinition::FromText(RXObjectData& object, const char* text) {
    return ParseText(object, text);
}

bool RXTypeDefinition::FromArguments(RXObjectData& object, int argc, char* argv[]) {
    char joined[4096];
    size_t length = 0;
    joined[0] = 0;
    for (int i = 0; i < argc; ++i) {
        if (i > 0 && length < sizeof(joined) - 1) joined[length++] = ' ';
        const char* word = argv[i] ? argv[i] : "";
        size_t room = sizeof(joined) - 1 - length;
        size_t count = strnlen(word, room);
        memcpy(joined + length, word, count);
        length += count;
    }
    joined[length] = 0;
    return FromText(object, joined);
}

bool RXTypeDefinition::InitVariable(RXObjectData& object, const char* subType) {
    if (subType && subType[0]) return false;
    ClearVariable(object, subType);
    return true;
}

void RXTypeDefinition::ClearVariable(RXObjectData& object, const char* subType) {
    object.Value.UInt64 = 0;
}

void RXTypeDefinition::FreeVariable(RXObjectData& object) {}

bool RXTypeDefinition::GetMember(RXObjectData& object, _RXTypeMember* member, int argc,
                                 char* argv[], _RXTypeVar& result) {
    return GetMemberByName(object, member->Name, argc, argv, result);
}

bool RXTypeDefinition::GetMemberByName(RXObjectData& object, const char* name, int argc,
                                       char* argv[], _RXTypeVar& result) {
    return false;
}

bool RXTypeDefinition::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                 char* argv[]) {
    return GetMethodByName(object, method->Name, argc, argv);
}

bool RXTypeDefinition::GetMethodByName(RXObjectData& object, const char* name, int argc,
                                       char* argv[]) {
    return false;
}

int RXTypeDefinition::GetIndex(RXObjectData& object, int argc, char* argv[], _RXTypeVar& result) {
    return IndexFallback(object, argc, argv, result);
}

int RXTypeDefinition::DispatchMember(RXObjectData& object, const char* name, int argc, char* argv[],
                                     _RXTypeVar& result) {
    if (!name) return -1;
    auto entry = MemberNames.find(name);
    if (entry == MemberNames.end() || entry->second == 0)
        return MemberFallback(object, name, argc, argv, result);
    _RXTypeMember* record = Members.Get(entry->second - 1);
    if (!record) return -1;
    if (record->Handler) {
        auto handler = reinterpret_cast<RXMemberHandler>(record->Handler);
        return handler(this, object, argc, argv, result) ? 1 : 0;
    }
    return GetMember(object, record, argc, argv, result) ? 1 : 0;
}

int RXTypeDefinition::DispatchMethod(RXObjectData& object, const char* name, int argc,
                                     char* argv[]) {
    if (!name) return -1;
    auto entry = MethodNames.find(name);
    if (entry == MethodNames.end() || entry->second == 0)
        return MethodFallback(object, name, argc, argv);
    _RXTypeMember* record = Methods.Get(entry->second - 1);
    if (!record) return -1;
    if (record->Handler) {
        auto handler = reinterpret_cast<RXMethodHandler>(record->Handler);
        return handler(this, object, argc, argv) ? 1 : 0;
    }
    return GetMethod(object, record, argc, argv) ? 1 : 0;
}

int RXTypeDefinition::IndexFallback(RXObjectData& object, int argc, char* argv[],
                                    _RXTypeVar& result) {
    return -1;
}

int RXTypeDefinition::MemberFallback(RXObjectData& object, const char* name, int argc, char* argv[],
                                     _RXTypeVar& result) {
    return -1;
}

int RXTypeDefinition::MethodFallback(RXObjectData& object, const char* name, int argc,
                                     char* argv[]) {
    return -1;
}

bool RXTypeDefinition::ToText(RXObjectData& object, char* buffer) {
    return ToTextFallback(object);
}

bool RXTypeDefinition::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    return ToText(object, buffer);
}

bool RXTypeDefinition::ToTextFallback(RXObjectData& object) {
    return false;
}

bool RXTypeDefinition::InheritsMember(const char* name) {
    if (!BaseType || !name) return false;
    if (HasName(BaseType->MemberNames, name)) return true;
    return BaseType->InheritsMember(name);
}

bool RXTypeDefinition::InheritsMethod(const char* name) {
    if (!BaseType || !name) return false;
    if (HasName(BaseType->MethodNames, name)) return true;
    return BaseType->InheritsMethod(name);
}

RXTypeDefinition* RXTypeDefinition::GetVariableType() {
    return this;
}

bool RXTypeDefinition::AddMember(const char* name, void* handler) {
    if (!name) return false;
    return AddRecordByName({Members, MemberNames, NextMemberID}, name, handler);
}

bool RXTypeDefinition::AddMember(uint32_t id, const char* name, void* handler) {
    if (!name) return false;
    return AddRecord({Members, MemberNames, NextMemberID}, id, name, handler);
}

bool RXTypeDefinition::RemoveMember(const char* name, void* handler) {
    if (!name) return false;
    return RemoveRecord({Members, MemberNames, NextMemberID}, name, handler);
}

bool RXTypeDefinition::AddMethod(const char* name, void* handler) {
    if (!name) return false;
    return AddRecordByName({Methods, MethodNames, NextMethodID}, name, handler);
}

bool RXTypeDefinition::AddMethod(uint32_t id, const char* name, void* handler) {
    if (!name) return false;
    return AddRecord({Methods, MethodNames, NextMethodID}, id, name, handler);
}

bool RXTypeDefinition::RemoveMethod(const char* name, void* handler) {
    if (!name) return false;
    return RemoveRecord({Methods, MethodNames, NextMethodID}, name, handler);
}

void RXTypeDefinition::Initialize(RXTypeDefinition* baseType) {
    BaseType = baseType;
}
