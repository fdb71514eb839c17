// The window of builds without SDL2: there is none, so Open always fails and
// nothing else is ever asked of it.
#include "PreviewWindow.h"

struct PreviewWindow::Parts {};

PreviewWindow::PreviewWindow() = default;
PreviewWindow::~PreviewWindow() = default;

bool PreviewWindow::Open(const std::string&, int, int, std::string& error) {
    error = "this build of tavuhost has no window (it was built without SDL2)";
    return false;
}

bool PreviewWindow::Pump(HostInput&) {
    return false;
}

void PreviewWindow::Present(const FrameBuffer&) {}

void* PreviewWindow::ClipboardOwner() const {
    return nullptr;
}

uint32_t PreviewWindow::Now() const {
    return 0;
}

void PreviewWindow::Sleep(uint32_t) const {}
