// tavuhost: the reference host of Tavukit. It loads the module at run time,
// enters it through F1 like any third-party host, and runs interface files
// and scripts headless, or paints them into a picture (--png) or a window
// (--window). See docs/scripting.md for the script language and the options.
#include "HostOptions.h"
#include "HostSession.h"

#include <cstdio>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

int main(int argc, char* argv[]) {
#if defined(_WIN32)
    // Line ends stay "\n", so that output compares byte for byte on every system.
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    HostOptions options;
    if (!options.Parse(argc, argv)) {
        fprintf(stderr, "tavuhost: %s\n%s", options.Error().c_str(), HostOptions::Usage());
        return 2;
    }
    if (options.Help) {
        fputs(HostOptions::Usage(), stdout);
        return 0;
    }
    HostSession session(options);
    return session.Run();
}
