#include "Module.h"
#include "ToolkitTest.h"

#include <gtest/gtest.h>

#include <string>

#if defined(_WIN32)
#define SEP "\\"
#else
#define SEP "/"
#endif

TEST(ModuleFolder, IsEverythingBeforeTheLastSeparator) {
    char folder[TAVU_MODULE_PATH_BUFFER];
    TavuModuleFolderOf(SEP "games" SEP "client" SEP "Tavukit.dll", folder, sizeof(folder));
    EXPECT_STREQ(folder, SEP "games" SEP "client");
    TavuModuleFolderOf("Tavukit.dll", folder, sizeof(folder));
    EXPECT_STREQ(folder, ".");
    char tiny[4];
    TavuModuleFolderOf("ab" SEP "cdef", tiny, sizeof(tiny)); // cut, never overrun
    EXPECT_STREQ(tiny, "ab");
}

TEST(ModuleEntry, AttachRecordsFolderAndLogPathForEveryReason) {
    ResetToolkit();
    EXPECT_EQ(TavuModuleEntry(nullptr, DLL_PROCESS_ATTACH), 1);
    EXPECT_EQ(g_hModule, nullptr);
    std::string log = g_LogPath;
    EXPECT_EQ(log, std::string(g_ModuleFolder) + SEP "Tavukit.log");
    int marker;
    EXPECT_EQ(TavuModuleEntry(reinterpret_cast<HMODULE>(&marker), DLL_THREAD_ATTACH), 1);
    EXPECT_EQ(g_hModule, reinterpret_cast<HMODULE>(&marker)); // stored whatever the reason
    EXPECT_EQ(std::string(g_LogPath), log);                   // and nothing else done
}

TEST(ModuleEntry, DetachWithoutHostTouchesNothing) {
    ResetToolkit();
    EXPECT_EQ(TavuModuleEntry(nullptr, DLL_PROCESS_DETACH), 1);
    EXPECT_FALSE(g_UIManager.IsShutDown); // no host was ever given: Shutdown did nothing
}

TEST(F1, KeepsTheHostAndGivesTheManager) {
    ResetToolkit();
    FakeHost host;
    EXPECT_EQ(F1(&host), &g_UIManager);
    EXPECT_EQ(g_pHost, &host);
    EXPECT_EQ(g_pHostScript, static_cast<HostScriptInterface*>(&host));
    ASSERT_EQ(host.Calls.size(), 1u); // F1 asks for the script interface and nothing else
    EXPECT_EQ(host.Calls[0].Name, "GetScriptInterface");
    EXPECT_EQ(g_UIManager.Screen, nullptr);
    TavuModuleEntry(nullptr, DLL_PROCESS_DETACH); // the unload path shuts down
    EXPECT_TRUE(g_UIManager.IsShutDown);
    ResetToolkit();
}
