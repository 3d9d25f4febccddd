#include "win32/screen.h"

#include <array>

#include "win32/module.h"

namespace vintrel::win32 {
namespace {

/// The manifest in the module's resources that asks for the current common controls.
constexpr WORD kControlsManifest = 101;

constexpr wchar_t kUser32[] = L"user32.dll";

using SetThreadDpiAwarenessContextFunction = void*(WINAPI*)(void*);
using GetDpiForWindowFunction = UINT(WINAPI*)(HWND);
using SystemParametersInfoForDpiFunction = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);

void* SetDpiContext(void* context) {
    static const auto set =
        SystemFunction<SetThreadDpiAwarenessContextFunction>(kUser32, "SetThreadDpiAwarenessContext");
    return set != nullptr ? set(context) : nullptr;
}

UINT DpiOfScreen() {
    HDC screen = GetDC(nullptr);
    const int dpi = screen != nullptr ? GetDeviceCaps(screen, LOGPIXELSY) : USER_DEFAULT_SCREEN_DPI;
    if (screen != nullptr) ReleaseDC(nullptr, screen);
    return static_cast<UINT>(dpi);
}

}  // namespace

ModernWindows::ModernWindows() {
    const auto per_monitor = static_cast<INT_PTR>(-4);
    former_dpi_context_ = SetDpiContext(reinterpret_cast<void*>(per_monitor));

    std::array<wchar_t, 4 * MAX_PATH> path{};
    GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.lpSource = path.data();
    context.lpResourceName = MAKEINTRESOURCEW(kControlsManifest);
    context.hModule = ThisModule();
    controls_ = CreateActCtxW(&context);
    if (controls_ != INVALID_HANDLE_VALUE) ActivateActCtx(controls_, &cookie_);
}

ModernWindows::~ModernWindows() {
    if (cookie_ != 0) DeactivateActCtx(0, cookie_);
    if (controls_ != INVALID_HANDLE_VALUE) ReleaseActCtx(controls_);
    if (former_dpi_context_ != nullptr) SetDpiContext(former_dpi_context_);
}

UINT DpiOf(HWND window) {
    static const auto dpi_for_window = SystemFunction<GetDpiForWindowFunction>(kUser32, "GetDpiForWindow");
    const UINT dpi = dpi_for_window != nullptr ? dpi_for_window(window) : DpiOfScreen();
    return dpi != 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

HFONT CreateMessageFont(UINT dpi) {
    static const auto for_dpi =
        SystemFunction<SystemParametersInfoForDpiFunction>(kUser32, "SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (for_dpi == nullptr || for_dpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi) == FALSE)
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

}  // namespace vintrel::win32
