#include "win32/support_list.h"

#include <commctrl.h>

#include <algorithm>

#include "win32/desktop.h"
#include "win32/module.h"
#include "win32/screen.h"
#include "win32/wide.h"

#ifndef WM_DPICHANGED
constexpr UINT WM_DPICHANGED = 0x02E0;
#endif

namespace vintrel::win32 {
namespace {

constexpr wchar_t kClassName[] = L"SupportList";
constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

// The controls. The OK button is the default button: the dialog keys know it by this number.
constexpr int kList1 = 101;
constexpr int kFrame1 = 102;
constexpr int kCommand1 = IDOK;

// Distances at 96 dots per inch.
constexpr int kEdge = 12;
constexpr int kGap = 10;
constexpr int kInsideFrame = 10;
constexpr int kBesideLine = 14;
constexpr int kMinimumLineWidth = 300;
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 26;

/// The window whose keys are translated: there is one.
SupportList* shown = nullptr;

HCURSOR Pointer(const wchar_t* name) { return LoadCursorW(nullptr, name); }

/// The window outlives the objects and even COM itself: the code behind it stays until the process ends.
void KeepModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<const wchar_t*>(ThisModule()), &module);
}

RECT WorkAreaAt(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor) == FALSE)
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &monitor.rcWork, 0);
    return monitor.rcWork;
}

SIZE TextSize(HDC device, const std::u16string& text) {
    SIZE size{};
    GetTextExtentPoint32W(device, Wide(text), static_cast<int>(text.size()), &size);
    return size;
}

}  // namespace

SupportList::~SupportList() { Unload(); }

void SupportList::Show(platform::SupportListContent content) {
    Unload();
    if (!HasDesktop()) return;
    content_ = std::move(content);

    const ModernWindows modern;
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = WindowProcedure;
    window_class.hInstance = ThisModule();
    window_class.hCursor = Pointer(IDC_ARROW);
    window_class.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    window_class.lpszClassName = kClassName;
    RegisterClassExW(&window_class);
    KeepModule();
    window_ = CreateWindowExW(kExtendedStyle, kClassName, Wide(content_.caption), kStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                              kMinimumLineWidth, kMinimumLineWidth, nullptr, nullptr, ThisModule(), nullptr);
    if (window_ == nullptr) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    shown = this;
    keys_ = SetWindowsHookExW(WH_GETMESSAGE, TranslateKeys, nullptr, GetCurrentThreadId());
    CreateControls();
    UseFontOfScreen();
    Centre();
    ShowWindow(window_, SW_SHOWNORMAL);
    UpdateWindow(window_);
    SetForegroundWindow(window_);
}

void SupportList::Unload() {
    if (window_ != nullptr) DestroyWindow(window_);
    UnregisterClassW(kClassName, ThisModule());
}

void SupportList::CreateControls() {
    const auto initialize = SystemFunction<decltype(&InitCommonControlsEx)>(L"comctl32.dll", "InitCommonControlsEx");
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
    if (initialize != nullptr) initialize(&controls);
    // In the order of the Tab key.
    list_ = CreateControl(L"LISTBOX", {}, WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, WS_EX_CLIENTEDGE,
                          kList1);
    ok_ = CreateControl(L"BUTTON", u"OK", WS_TABSTOP | BS_DEFPUSHBUTTON, 0, kCommand1);
    frame_ = CreateControl(L"BUTTON", content_.heading, WS_GROUP | BS_GROUPBOX, 0, kFrame1);
    for (const std::u16string& line : content_.lines)
        SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(line)));
    SendMessageW(list_, LB_SETCURSEL, 0, 0);
    CreateToolTip();
}

HWND SupportList::CreateControl(const wchar_t* control_class, const std::u16string& text, DWORD style,
                                DWORD extended_style, int id) {
    return CreateWindowExW(extended_style, control_class, Wide(text), style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
                           window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ThisModule(), nullptr);
}

void SupportList::CreateToolTip() {
    if (content_.tool_tip.empty()) return;
    HWND tip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0,
                               0, 0, window_, nullptr, ThisModule(), nullptr);
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = window_;
    tool.uId = reinterpret_cast<UINT_PTR>(list_);
    tool.lpszText = reinterpret_cast<wchar_t*>(content_.tool_tip.data());
    SendMessageW(tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void SupportList::UseFontOfScreen() {
    dpi_ = DpiOf(window_);
    HFONT former = font_;
    font_ = CreateMessageFont(dpi_);
    for (HWND control : {list_, frame_, ok_}) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
    if (former != nullptr) DeleteObject(former);
}

SIZE SupportList::MeasureTexts() const {
    HDC device = GetDC(list_);
    HGDIOBJ former = SelectObject(device, font_);
    const SIZE heading = TextSize(device, content_.heading);
    SIZE texts{MulDiv(kMinimumLineWidth, static_cast<int>(dpi_), USER_DEFAULT_SCREEN_DPI), heading.cy};
    texts.cx = std::max(texts.cx, heading.cx);
    for (const std::u16string& line : content_.lines) texts.cx = std::max(texts.cx, TextSize(device, line).cx);
    SelectObject(device, former);
    ReleaseDC(list_, device);
    return texts;
}

SIZE SupportList::ArrangeControls() {
    const auto scaled = [this](int distance) {
        return MulDiv(distance, static_cast<int>(dpi_), USER_DEFAULT_SCREEN_DPI);
    };
    const SIZE texts = MeasureTexts();
    const int edge = scaled(kEdge);
    const int inside = scaled(kInsideFrame);
    const int border = 2 * GetSystemMetrics(SM_CYEDGE);
    const int frame_top = texts.cy + scaled(kGap) / 2;
    const int around_list = 2 * edge + frame_top + inside + scaled(kGap) + scaled(kButtonHeight);

    const auto line_height = static_cast<int>(SendMessageW(list_, LB_GETITEMHEIGHT, 0, 0));
    const RECT work_area = WorkAreaAt(window_);
    const int room = work_area.bottom - work_area.top - OuterSize({0, around_list}).cy;
    const int all_lines = line_height * static_cast<int>(content_.lines.size()) + border;
    const int list_height = std::min(all_lines, std::max(room, 4 * line_height + border));
    const int list_width =
        texts.cx + scaled(kBesideLine) + border + (list_height < all_lines ? GetSystemMetrics(SM_CXVSCROLL) : 0);

    const SIZE client{list_width + 2 * inside + 2 * edge, list_height + around_list};
    MoveWindow(frame_, edge, edge, client.cx - 2 * edge, frame_top + list_height + inside, TRUE);
    MoveWindow(list_, edge + inside, edge + frame_top, list_width, list_height, TRUE);
    MoveWindow(ok_, client.cx - edge - scaled(kButtonWidth), client.cy - edge - scaled(kButtonHeight),
               scaled(kButtonWidth), scaled(kButtonHeight), TRUE);
    return client;
}

SIZE SupportList::OuterSize(SIZE client) const {
    RECT outer{};
    RECT inner{};
    GetWindowRect(window_, &outer);
    GetClientRect(window_, &inner);
    return {client.cx + (outer.right - outer.left) - inner.right,
            client.cy + (outer.bottom - outer.top) - inner.bottom};
}

void SupportList::Centre() {
    const SIZE size = OuterSize(ArrangeControls());
    const RECT area = WorkAreaAt(window_);
    MoveWindow(window_, area.left + std::max<LONG>(0, (area.right - area.left - size.cx) / 2),
               area.top + std::max<LONG>(0, (area.bottom - area.top - size.cy) / 2), size.cx, size.cy, TRUE);
}

void SupportList::MoveToScreen(const RECT& suggested) {
    UseFontOfScreen();
    const SIZE size = OuterSize(ArrangeControls());
    MoveWindow(window_, suggested.left, suggested.top, size.cx, size.cy, TRUE);
}

void SupportList::DoubleClick() {
    // The host may unload or rebuild the window while the viewer starts.
    const std::function<void()> on_double_click = content_.on_double_click;
    starting_help_ = true;
    SetCursor(Pointer(IDC_APPSTARTING));
    Fenced(on_double_click);
    starting_help_ = false;
    SetCursor(Pointer(IDC_ARROW));
}

void SupportList::Forget() {
    if (keys_ != nullptr) UnhookWindowsHookEx(keys_);
    if (font_ != nullptr) DeleteObject(font_);
    window_ = list_ = frame_ = ok_ = nullptr;
    keys_ = nullptr;
    font_ = nullptr;
    shown = nullptr;
}

bool SupportList::Handle(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    switch (message) {
        case WM_ACTIVATE:
            if (LOWORD(wparam) == WA_INACTIVE) return false;
            SetFocus(list_);
            return true;
        case WM_COMMAND:
            if (LOWORD(wparam) == kList1 && HIWORD(wparam) == LBN_DBLCLK) DoubleClick();
            if (LOWORD(wparam) == kCommand1 || LOWORD(wparam) == IDCANCEL) DestroyWindow(window_);
            return true;
        case WM_SETCURSOR:
            if (!starting_help_ &&
                (!content_.clickable || reinterpret_cast<HWND>(wparam) != list_ || LOWORD(lparam) != HTCLIENT))
                return false;
            SetCursor(Pointer(starting_help_ ? IDC_APPSTARTING : IDC_HAND));
            result = TRUE;
            return true;
        case WM_DPICHANGED: MoveToScreen(*reinterpret_cast<const RECT*>(lparam)); return true;
        case WM_NCDESTROY: Forget(); return false;
        default: return false;
    }
}

LRESULT CALLBACK SupportList::WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    auto* const list = reinterpret_cast<SupportList*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    LRESULT result = 0;
    bool handled = false;
    if (list != nullptr) Fenced([&] { handled = list->Handle(message, wparam, lparam, result); });
    return handled ? result : DefWindowProcW(window, message, wparam, lparam);
}

/// The host's message loop knows nothing of this window: its keys are translated as they are taken from the queue.
LRESULT CALLBACK SupportList::TranslateKeys(int code, WPARAM wparam, LPARAM lparam) noexcept {
    auto* const message = reinterpret_cast<MSG*>(lparam);
    auto* const hook = shown != nullptr ? shown->keys_ : nullptr;
    if (code == HC_ACTION && wparam == PM_REMOVE && shown != nullptr && message->message >= WM_KEYFIRST &&
        message->message <= WM_KEYLAST && IsDialogMessageW(shown->window_, message) != FALSE)
        message->message = WM_NULL;
    return CallNextHookEx(hook, code, wparam, lparam);
}

}  // namespace vintrel::win32
