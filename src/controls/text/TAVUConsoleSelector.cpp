#include "TAVUConsoleSelector.h"

#include "HostInterface.h"
#include "Module.h"
#include "TAVUConsole.h"

TAVUConsoleSelector::TAVUConsoleSelector(const char* name) {
    // Terminated up front, so a host that writes nothing leaves an empty name
    // rather than stack garbage to restore later.
    Previous[0] = '\0';
    if (!g_pHost) return;
    g_pHost->GetCurrentConsole(Previous, sizeof(Previous));
    Previous[sizeof(Previous) - 1] = '\0';
    g_pHost->SelectConsole(name ? name : "");
}

TAVUConsoleSelector::TAVUConsoleSelector(TAVUConsole* console)
    : TAVUConsoleSelector(console ? console->FullName : nullptr) {}

TAVUConsoleSelector::~TAVUConsoleSelector() {
    if (g_pHost) g_pHost->SelectConsole(Previous);
}
