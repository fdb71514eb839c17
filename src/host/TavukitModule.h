// For hosts: loads the toolkit module at run time and calls into it.
//
// A host needs two exports, F1 and g_UIManager, and the manager's operations.
// The four virtual ones (Initialize, Shutdown, GetVersion, ClearMouseState) go
// through the manager's table of functions; the frame and input operations are
// plain exported members, found here by their exported (mangled) names and
// called with the manager as their object. The module is the one file
// Tavukit.dll on Windows, libtavukit.so elsewhere. Header-only: a host compiles
// it in and links nothing of the toolkit.
#pragma once

#include "Point2i.h"

#include <cstdio>
#include <cstring>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

class CUIManager;
class HostInterface;
class TAVUSkin;

class TavukitModule {
public:
    TavukitModule() = default;
    ~TavukitModule() { Unload(); }
    TavukitModule(const TavukitModule&) = delete;
    TavukitModule& operator=(const TavukitModule&) = delete;

    // Loads the module and finds every entry; on failure Error() says why.
    bool Load(const char* path) {
        Unload();
#if defined(_WIN32)
        Handle = LoadLibraryA(path);
#else
        Handle = dlopen(path, RTLD_NOW | RTLD_LOCAL);
#endif
        if (!Handle) return Fail("cannot load module '%s'", path);
        EntryF1 = reinterpret_cast<F1Function>(Find("F1"));
        Manager = static_cast<CUIManager*>(Find("g_UIManager"));
        RenderFunction = reinterpret_cast<VoidMember>(Find("_ZN10CUIManager6RenderEv"));
        MouseMoveFunction =
            reinterpret_cast<PointMember>(Find("_ZN10CUIManager11OnMouseMoveER8_Point2i"));
        LMouseDownFunction = reinterpret_cast<BoolMember>(Find("_ZN10CUIManager12OnLMouseDownEv"));
        LMouseUpFunction = reinterpret_cast<BoolMember>(Find("_ZN10CUIManager10OnLMouseUpEv"));
        RMouseDownFunction = reinterpret_cast<BoolMember>(Find("_ZN10CUIManager12OnRMouseDownEv"));
        RMouseUpFunction = reinterpret_cast<BoolMember>(Find("_ZN10CUIManager10OnRMouseUpEv"));
        WheelFunction = reinterpret_cast<IntMember>(Find("_ZN10CUIManager12OnMouseWheelEi"));
        KeyDownFunction = reinterpret_cast<KeyMember>(Find("_ZN10CUIManager9OnKeyDownEj"));
        KeyUpFunction = reinterpret_cast<KeyMember>(Find("_ZN10CUIManager7OnKeyUpEj"));
        LoadInterfaceFunction =
            reinterpret_cast<LoadMember>(Find("_ZN10CUIManager16LoadInterfaceXMLEPKcbP8TAVUSkin"));
        DriveClockFunction = reinterpret_cast<ClockFunction>(Find("TavuDriveClock"));
        AdvanceClockFunction = reinterpret_cast<ClockFunction>(Find("TavuAdvanceClock"));
        ReleaseClockFunction = reinterpret_cast<ReleaseFunction>(Find("TavuReleaseClock"));
        SetKeyStateFunction = reinterpret_cast<KeyStateFunction>(Find("TavuSetKeyState"));
        if (!EntryF1 || !Manager) return Fail("'%s' has no F1 or g_UIManager", path);
        return true;
    }

    void Unload() {
        if (!Handle) return;
#if defined(_WIN32)
        FreeLibrary(static_cast<HMODULE>(Handle));
#else
        dlclose(Handle);
#endif
        Handle = nullptr;
        Manager = nullptr;
        LoadInterfaceFunction = nullptr;
        DriveClockFunction = AdvanceClockFunction = nullptr;
        ReleaseClockFunction = nullptr;
        SetKeyStateFunction = nullptr;
        EntryF1 = nullptr;
        RenderFunction = nullptr;
        MouseMoveFunction = nullptr;
        LMouseDownFunction = LMouseUpFunction = RMouseDownFunction = RMouseUpFunction = nullptr;
        WheelFunction = nullptr;
        KeyDownFunction = KeyUpFunction = nullptr;
    }

    bool IsLoaded() const {
        return Handle != nullptr;
    }
    const char* Error() const {
        return ErrorText;
    }

    // The module's entry: hands over the host and answers the manager.
    CUIManager* Enter(HostInterface* host) {
        return EntryF1 ? EntryF1(host) : nullptr;
    }
    CUIManager* GetManager() const {
        return Manager;
    }

    // Any exported symbol, by name; null when the module lacks it.
    void* Find(const char* name) const {
        if (!Handle) return nullptr;
#if defined(_WIN32)
        return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(Handle), name));
#else
        return dlsym(Handle, name);
#endif
    }

    // The frame and the eight input operations; each answers whether the toolkit
    // took the event (false too when the module lacks the operation).
    void Render() {
        if (RenderFunction) RenderFunction(Manager);
    }
    bool OnMouseMove(_Point2i& point) {
        return MouseMoveFunction && MouseMoveFunction(Manager, point);
    }
    bool OnLMouseDown() {
        return LMouseDownFunction && LMouseDownFunction(Manager);
    }
    bool OnLMouseUp() {
        return LMouseUpFunction && LMouseUpFunction(Manager);
    }
    bool OnRMouseDown() {
        return RMouseDownFunction && RMouseDownFunction(Manager);
    }
    bool OnRMouseUp() {
        return RMouseUpFunction && RMouseUpFunction(Manager);
    }
    bool OnMouseWheel(int offset) {
        return WheelFunction && WheelFunction(Manager, offset);
    }
    bool OnKeyDown(unsigned key) {
        return KeyDownFunction && KeyDownFunction(Manager, key);
    }
    bool OnKeyUp(unsigned key) {
        return KeyUpFunction && KeyUpFunction(Manager, key);
    }

    // Loads an interface file into the screen, as "UI -load FILE" does: the
    // form (file, reload, skin) of CUIManager::LoadInterfaceXML.
    bool CanLoadInterfaces() const {
        return LoadInterfaceFunction != nullptr;
    }
    bool LoadInterfaceXML(const char* file) {
        return LoadInterfaceFunction && LoadInterfaceFunction(Manager, file, false, nullptr);
    }

    // The module's tick clock (see TavuDriveClock): a host that wants the same
    // output for the same input drives it. Absent operations do nothing.
    bool CanDriveClock() const {
        return DriveClockFunction && AdvanceClockFunction;
    }
    void DriveClock(unsigned tick) {
        if (DriveClockFunction) DriveClockFunction(tick);
    }
    void AdvanceClock(unsigned milliseconds) {
        if (AdvanceClockFunction) AdvanceClockFunction(milliseconds);
    }
    void ReleaseClock() {
        if (ReleaseClockFunction) ReleaseClockFunction();
    }
    // Tells the module's keyboard state that a key is down (0x8000) or up (0),
    // on systems where it cannot ask the operating system.
    void SetKeyState(int key, short state) {
        if (SetKeyStateFunction) SetKeyStateFunction(key, state);
    }

private:
    // A member function takes its object as the first argument on both 64-bit
    // conventions this module is built for.
    typedef CUIManager* (*F1Function)(HostInterface*);
    typedef void (*VoidMember)(CUIManager*);
    typedef bool (*BoolMember)(CUIManager*);
    typedef bool (*PointMember)(CUIManager*, _Point2i&);
    typedef bool (*IntMember)(CUIManager*, int);
    typedef bool (*KeyMember)(CUIManager*, unsigned);
    typedef bool (*LoadMember)(CUIManager*, const char*, bool, TAVUSkin*);
    typedef void (*ClockFunction)(unsigned);
    typedef void (*ReleaseFunction)();
    typedef void (*KeyStateFunction)(int, short);

    bool Fail(const char* format, const char* argument) {
        snprintf(ErrorText, sizeof(ErrorText), format, argument);
        Unload();
        return false;
    }

    void* Handle = nullptr;
    CUIManager* Manager = nullptr;
    F1Function EntryF1 = nullptr;
    VoidMember RenderFunction = nullptr;
    PointMember MouseMoveFunction = nullptr;
    BoolMember LMouseDownFunction = nullptr;
    BoolMember LMouseUpFunction = nullptr;
    BoolMember RMouseDownFunction = nullptr;
    BoolMember RMouseUpFunction = nullptr;
    IntMember WheelFunction = nullptr;
    KeyMember KeyDownFunction = nullptr;
    KeyMember KeyUpFunction = nullptr;
    LoadMember LoadInterfaceFunction = nullptr;
    ClockFunction DriveClockFunction = nullptr;
    ClockFunction AdvanceClockFunction = nullptr;
    ReleaseFunction ReleaseClockFunction = nullptr;
    KeyStateFunction SetKeyStateFunction = nullptr;
    char ErrorText[600] = "";
};
