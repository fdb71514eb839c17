// What the host does to the manager beyond the exported frame and input
// operations: the virtual Initialize and Shutdown, and the Prefix field.
#pragma once

class CUIManager;

class ManagerAccess {
public:
    static void Initialize(CUIManager* manager);
    static void Shutdown(CUIManager* manager);
    // Sets the tag of the contents node of interface files (at most 63 bytes).
    static void SetPrefix(CUIManager* manager, const char* prefix);
};
