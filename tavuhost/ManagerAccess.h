// What the host does to the manager beyond the exported frame and input
// operations: the virtual Initialize and Shutdown, the Prefix field, and the
// clearing that a reload starts with.
#pragma once

class CUIManager;
class TavukitModule;

class ManagerAccess {
public:
    static void Initialize(CUIManager* manager);
    static void Shutdown(CUIManager* manager);
    // Sets the tag of the contents node of interface files (at most 63 bytes).
    static void SetPrefix(CUIManager* manager, const char* prefix);
    // Empties the screen and forgets every template and skin, as before the
    // first file was loaded; false when the module lacks one of the three
    // operations (and then nothing is done).
    static bool ClearInterface(TavukitModule& module);
};
