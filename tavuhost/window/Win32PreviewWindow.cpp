// The window through Win32: a plain window class whose client area shows a DIB
// section that takes each frame as it is (32-bit BGRA rows, top down, which is
// the frame buffer's own layout), and window messages turned into the
// toolkit's input as they arrive while Pump dispatches them.
#include "PreviewWindow.h"

#include "DibSection.h"

#include <windows.h>
#include <windowsx.h>

#include <cstring>

namespace {

const wchar_t kClassName[] = L"TavuhostPreview";

// Windows names Shift, Control and Alt without their side; the host hands
// on the sided codes, as the window of other systems does, and the toolkit
// folds them into one state each.
unsigned SidedKey(WPARAM key, LPARAM flags) {
    const bool extended = (flags >> 24) & 1;
    switch (key) {
    case VK_SHIFT:
        return MapVirtualKeyW(UINT((flags >> 16) & 0xFF), MAPVK_VSC_TO_VK_EX);
    case VK_CONTROL:
        return extended ? VK_RCONTROL : VK_LCONTROL;
    case VK_MENU:
        return extended ? VK_RMENU : VK_LMENU;
    default:
        return unsigned(key);
    }
}

} // namespace

struct PreviewWindow::Parts {
    HWND Window = nullptr;
    HDC Canvas = nullptr;
    HBITMAP Bitmap = nullptr;
    HBITMAP Previous = nullptr;
    void* Bits = nullptr;
    int Width = 0;
    int Height = 0;
    bool Closed = false;
    HostInput* Input = nullptr; // only while Pump dispatches

    ~Parts() {
        DropBitmap();
        if (Canvas) DeleteDC(Canvas);
        if (Window) DestroyWindow(Window);
    }

    void DropBitmap() {
        if (!Bitmap) return;
        SelectObject(Canvas, Previous);
        DeleteObject(Bitmap);
        Bitmap = nullptr;
        Bits = nullptr;
    }

    // A DIB section of the frame's size, made anew when the size changes.
    bool FitBitmap(int width, int height) {
        if (Bitmap && width == Width && height == Height) return true;
        DropBitmap();
        Bitmap = CreateTopDownDib(Canvas, width, height, &Bits);
        if (!Bitmap) return false;
        Previous = static_cast<HBITMAP>(SelectObject(Canvas, Bitmap));
        Width = width;
        Height = height;
        return true;
    }

    void Blit(HDC target) const {
        if (Bitmap) BitBlt(target, 0, 0, Width, Height, Canvas, 0, 0, SRCCOPY);
    }

    // Messages that carry input go to the input; the rest to Windows.
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
        case WM_CLOSE:
            Closed = true;
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            HDC target = BeginPaint(Window, &paint);
            Blit(target);
            EndPaint(Window, &paint);
            return 0;
        }
        default:
            break;
        }
        if (Input && Forward(message, wParam, lParam)) return 0;
        return DefWindowProcW(Window, message, wParam, lParam);
    }

    bool Forward(UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
        case WM_MOUSEMOVE:
            Input->PointerMoved(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
            return true;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
            SetCapture(Window); // a drag goes on outside the window
            Input->ButtonChanged(message == WM_LBUTTONDOWN, true);
            return true;
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
            if (!(wParam & (MK_LBUTTON | MK_RBUTTON))) ReleaseCapture();
            Input->ButtonChanged(message == WM_LBUTTONUP, false);
            return true;
        case WM_MOUSEWHEEL:
            Input->WheelTurned(GET_WHEEL_DELTA_WPARAM(wParam));
            return true;
        case WM_KEYDOWN:
        case WM_KEYUP:
            Input->KeyChanged(SidedKey(wParam, lParam), message == WM_KEYDOWN);
            return true;
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP:
            // Alt and F10 reach the toolkit too, but Alt+F4 still closes.
            Input->KeyChanged(SidedKey(wParam, lParam), message == WM_SYSKEYDOWN);
            return false;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) Input->Resized(LOWORD(lParam), HIWORD(lParam));
            return true;
        default:
            return false;
        }
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_NCCREATE) {
            auto* created = reinterpret_cast<CREATESTRUCTW*>(lParam);
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(created->lpCreateParams));
        }
        auto* parts = reinterpret_cast<Parts*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (!parts || !parts->Window) return DefWindowProcW(window, message, wParam, lParam);
        return parts->Handle(message, wParam, lParam);
    }

    static bool RegisterOnce() {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.style = CS_HREDRAW | CS_VREDRAW;
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
        windowClass.lpszClassName = kClassName;
        return RegisterClassExW(&windowClass) || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
    }
};

namespace {

std::wstring Wide(const std::string& text) {
    int length = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, nullptr, 0);
    if (length <= 0) return std::wstring();
    std::wstring wide(size_t(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, &wide[0], length);
    wide.resize(size_t(length - 1));
    return wide;
}

} // namespace

PreviewWindow::PreviewWindow() = default;
PreviewWindow::~PreviewWindow() = default;

bool PreviewWindow::Open(const std::string& title, int width, int height, std::string& error) {
    if (!Parts::RegisterOnce()) {
        error = "--window needs a display, and there is none (no window class)";
        return false;
    }
    // The client area is the frame's size; the frame and title bar come on top.
    const DWORD style = WS_OVERLAPPEDWINDOW;
    RECT outer{0, 0, width, height};
    AdjustWindowRect(&outer, style, FALSE);
    Window = std::make_unique<Parts>();
    HWND window = CreateWindowExW(0, kClassName, Wide(title).c_str(), style, CW_USEDEFAULT,
                                  CW_USEDEFAULT, outer.right - outer.left, outer.bottom - outer.top,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), Window.get());
    Window->Canvas = window ? CreateCompatibleDC(nullptr) : nullptr;
    if (!window || !Window->Canvas) {
        if (window) DestroyWindow(window);
        error = "--window needs a display, and there is none (cannot open a window)";
        Window.reset();
        return false;
    }
    Window->Window = window;
    ShowWindow(window, SW_SHOWNORMAL);
    return true;
}

bool PreviewWindow::Pump(HostInput& input) {
    if (!Window) return false;
    Window->Input = &input;
    MSG message;
    while (!Window->Closed && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    Window->Input = nullptr;
    return !Window->Closed;
}

void PreviewWindow::Present(const FrameBuffer& frame) {
    if (!Window || frame.Width() <= 0 || frame.Height() <= 0) return;
    if (!Window->FitBitmap(frame.Width(), frame.Height())) return;
    memcpy(Window->Bits, frame.Pixels(), size_t(frame.Width()) * size_t(frame.Height()) * 4);
    GdiFlush();
    if (HDC target = GetDC(Window->Window)) {
        Window->Blit(target);
        ReleaseDC(Window->Window, target);
    }
}

void* PreviewWindow::ClipboardOwner() const {
    return Window ? Window->Window : nullptr;
}

uint32_t PreviewWindow::Now() const {
    return GetTickCount();
}

void PreviewWindow::Sleep(uint32_t milliseconds) const {
    ::Sleep(milliseconds);
}
