// The window of tavuhost --window: it shows each frame and hands what the
// user does in it to the host: through Win32 on Windows, elsewhere through
// SDL2. Builds without SDL2 have no window: Open then says so.
#pragma once

#include "FrameBuffer.h"
#include "HostInput.h"

#include <cstdint>
#include <memory>
#include <string>

class PreviewWindow {
public:
    PreviewWindow();
    ~PreviewWindow();
    PreviewWindow(const PreviewWindow&) = delete;
    PreviewWindow& operator=(const PreviewWindow&) = delete;

    // False, with the reason in one line, when no window can be opened (no
    // display, or a build without windows).
    bool Open(const std::string& title, int width, int height, std::string& error);
    // Hands everything that happened since the last call to the input; false
    // once the user has closed the window.
    bool Pump(HostInput& input);
    // Shows a frame; the window's size is the frame's.
    void Present(const FrameBuffer& frame);
    // The system's handle of the window, which owns what the toolkit puts on
    // the clipboard; null where the clipboard is the module's own.
    void* ClipboardOwner() const;
    // Milliseconds of the real clock, and a pause until a frame is due.
    uint32_t Now() const;
    void Sleep(uint32_t milliseconds) const;

private:
    struct Parts;
    std::unique_ptr<Parts> Window;
};
