#include "screenshot.h"

#include <windows.h>

#include <objidl.h>

#include <algorithm>
using std::max;  // the system's header below expects both by these names
using std::min;
#include <gdiplus.h>

#include "client.h"

namespace vintrel::testing {
namespace {

constexpr CLSID kPngEncoder{0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

HBITMAP CopyOfScreen() {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP copy = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ former = SelectObject(memory, copy);
    BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY | CAPTUREBLT);
    SelectObject(memory, former);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return copy;
}

bool HasPicture(Gdiplus::Bitmap& bitmap) {
    constexpr UINT kStep = 16;
    Gdiplus::Color first;
    bitmap.GetPixel(0, 0, &first);
    for (UINT y = 0; y < bitmap.GetHeight(); y += kStep) {
        for (UINT x = 0; x < bitmap.GetWidth(); x += kStep) {
            Gdiplus::Color other;
            bitmap.GetPixel(static_cast<INT>(x), static_cast<INT>(y), &other);
            if (other.GetValue() != first.GetValue()) return true;
        }
    }
    return false;
}

}  // namespace

bool SaveScreenshot(const std::wstring& name) {
    const std::wstring folder = ProgramFolder() + L"\\screenshots";
    CreateDirectoryW(folder.c_str(), nullptr);
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) return false;
    bool saved = false;
    HBITMAP copy = CopyOfScreen();
    {
        Gdiplus::Bitmap bitmap(copy, nullptr);
        const std::wstring path = folder + L"\\" + name + L".png";
        saved = HasPicture(bitmap) && bitmap.Save(path.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
    }
    DeleteObject(copy);
    Gdiplus::GdiplusShutdown(token);
    return saved;
}

}  // namespace vintrel::testing
