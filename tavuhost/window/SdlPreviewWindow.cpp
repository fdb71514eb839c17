// The window through SDL2: a streaming texture that takes the frame buffer as
// it is (ARGB8888), and SDL's events turned into the toolkit's input.
#include "PreviewWindow.h"

#include "SdlKeys.h"

#include <SDL.h>

#include <cstdlib>
#include <cstring>

struct PreviewWindow::Parts {
    SDL_Window* Window = nullptr;
    SDL_Renderer* Renderer = nullptr;
    SDL_Texture* Texture = nullptr;
    int TextureWidth = 0;
    int TextureHeight = 0;

    ~Parts() {
        if (Texture) SDL_DestroyTexture(Texture);
        if (Renderer) SDL_DestroyRenderer(Renderer);
        if (Window) SDL_DestroyWindow(Window);
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
    }
};

namespace {

void HandleKey(const SDL_KeyboardEvent& key, HostInput& input) {
    unsigned code = SdlKeys::VirtualKeyOf(key.keysym.scancode);
    if (code) input.KeyChanged(code, key.type == SDL_KEYDOWN);
}

void HandleWindowEvent(const SDL_WindowEvent& event, HostInput& input) {
    if (event.event == SDL_WINDOWEVENT_SIZE_CHANGED) input.Resized(event.data1, event.data2);
}

// Whether the environment names a display, or the user chose SDL's driver.
// Without either, SDL would fall back to drawing off screen, which nobody sees.
bool DisplayNamed() {
#if defined(_WIN32) || defined(__APPLE__)
    return true;
#else
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "SDL_VIDEODRIVER"})
        if (const char* value = getenv(name); value && *value) return true;
    return false;
#endif
}

// SDL's drivers without a screen count as no display unless asked for by name.
bool DrawsNowhere() {
    const char* chosen = getenv("SDL_VIDEODRIVER");
    const char* driver = SDL_GetCurrentVideoDriver();
    if ((chosen && *chosen) || !driver) return !driver;
    return strcmp(driver, "offscreen") == 0 || strcmp(driver, "dummy") == 0;
}

} // namespace

PreviewWindow::PreviewWindow() = default;
PreviewWindow::~PreviewWindow() = default;

bool PreviewWindow::Open(const std::string& title, int width, int height, std::string& error) {
    const std::string noDisplay = "--window needs a display, and there is none";
    if (!DisplayNamed()) {
        error = noDisplay + " (DISPLAY and WAYLAND_DISPLAY are not set)";
        return false;
    }
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || DrawsNowhere()) {
        error = noDisplay + " (" + (*SDL_GetError() ? SDL_GetError() : "no video driver") + ")";
        SDL_Quit();
        return false;
    }
    // The frame is already painted: the window only copies it, which needs no
    // graphics driver to be loaded.
    SDL_SetHint(SDL_HINT_RENDER_DRIVER, "software");
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    Window = std::make_unique<Parts>();
    Window->Window = SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_UNDEFINED,
                                      SDL_WINDOWPOS_UNDEFINED, width, height, SDL_WINDOW_RESIZABLE);
    if (Window->Window)
        Window->Renderer = SDL_CreateRenderer(Window->Window, -1, SDL_RENDERER_PRESENTVSYNC);
    if (!Window->Renderer) {
        error = std::string("cannot open a window: ") + SDL_GetError();
        Window.reset();
        return false;
    }
    return true;
}

bool PreviewWindow::Pump(HostInput& input) {
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        switch (event.type) {
        case SDL_QUIT:
            return false;
        case SDL_MOUSEMOTION:
            input.PointerMoved(event.motion.x, event.motion.y);
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            if (event.button.button == SDL_BUTTON_LEFT || event.button.button == SDL_BUTTON_RIGHT)
                input.ButtonChanged(event.button.button == SDL_BUTTON_LEFT,
                                    event.type == SDL_MOUSEBUTTONDOWN);
            break;
        case SDL_MOUSEWHEEL:
            input.WheelTurned(event.wheel.y * 120);
            break;
        case SDL_KEYDOWN:
        case SDL_KEYUP:
            HandleKey(event.key, input);
            break;
        case SDL_WINDOWEVENT:
            HandleWindowEvent(event.window, input);
            break;
        default:
            break;
        }
    }
    return true;
}

void PreviewWindow::Present(const FrameBuffer& frame) {
    if (!Window) return;
    if (!Window->Texture || Window->TextureWidth != frame.Width() ||
        Window->TextureHeight != frame.Height()) {
        if (Window->Texture) SDL_DestroyTexture(Window->Texture);
        Window->Texture =
            SDL_CreateTexture(Window->Renderer, SDL_PIXELFORMAT_ARGB8888,
                              SDL_TEXTUREACCESS_STREAMING, frame.Width(), frame.Height());
        Window->TextureWidth = frame.Width();
        Window->TextureHeight = frame.Height();
    }
    if (!Window->Texture) return;
    SDL_UpdateTexture(Window->Texture, nullptr, frame.Pixels(), frame.Width() * 4);
    SDL_RenderClear(Window->Renderer);
    SDL_RenderCopy(Window->Renderer, Window->Texture, nullptr, nullptr);
    SDL_RenderPresent(Window->Renderer);
}

void* PreviewWindow::ClipboardOwner() const {
    return nullptr;
}

uint32_t PreviewWindow::Now() const {
    return SDL_GetTicks();
}

void PreviewWindow::Sleep(uint32_t milliseconds) const {
    SDL_Delay(milliseconds);
}

#if defined(__SANITIZE_ADDRESS__)
// SDL opens a D-Bus connection that lives as long as the process and is never
// freed: a leak of the system library, not of this program.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libdbus-1.so\n";
}
#endif
