// The window `SupportList`: the supported exchanges, with the way to the connection diagrams of the help file.
#pragma once

#include <windows.h>

#include "platform/desktop.h"

namespace vintrel::win32 {

/// One modeless window of the thread that shows it. It sizes itself by its texts, the system's message font and the
/// resolution of its screen. Enter, Esc, OK and the close button unload it.
class SupportList : public platform::SupportListWindow {
 public:
    SupportList() = default;
    ~SupportList() override;
    SupportList(const SupportList&) = delete;
    SupportList& operator=(const SupportList&) = delete;

    void Show(platform::SupportListContent content) override;
    /// A window ends with its thread, without a word.
    bool IsOpen() const { return IsWindow(window_) != FALSE; }
    void Unload();

 private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static LRESULT CALLBACK TranslateKeys(int code, WPARAM wparam, LPARAM lparam) noexcept;

    bool Handle(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);
    void CreateControls();
    HWND CreateControl(const wchar_t* control_class, const std::u16string& text, DWORD style, DWORD extended_style,
                       int id);
    void CreateToolTip();
    void UseFontOfScreen();
    /// Places the controls for the current font; the answer is the client area that they need.
    SIZE ArrangeControls();
    SIZE MeasureTexts() const;
    SIZE OuterSize(SIZE client) const;
    void Centre();
    /// The window came to a screen of another resolution.
    void MoveToScreen(const RECT& suggested);
    void DoubleClick();
    void Forget();

    platform::SupportListContent content_;
    HWND window_ = nullptr;
    HWND list_ = nullptr;
    HWND frame_ = nullptr;
    HWND ok_ = nullptr;
    HFONT font_ = nullptr;
    HHOOK keys_ = nullptr;
    UINT dpi_ = USER_DEFAULT_SCREEN_DPI;
    bool starting_help_ = false;
};

}  // namespace vintrel::win32
