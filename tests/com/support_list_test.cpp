// The list window as an operator meets it, in a host whose message loop knows nothing of it.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <objidl.h>

#include <algorithm>
// The system's header below expects both by these names.
using std::max;  // NOLINT(misc-unused-using-decls)
using std::min;  // NOLINT(misc-unused-using-decls)
#include <gdiplus.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <vector>

#include "client.h"
#include "exchanges/catalogue.h"
#include "version.h"

namespace vintrel::testing {
namespace {

constexpr wchar_t kHelpFile[] = L"C:\\Help\\Srv.chm";

/// Runs the host's message loop until that is true, or for so long.
template <typename Done>
void PumpUntil(Done done, DWORD milliseconds = 5000) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    do {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjectsEx(0, nullptr, 5, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    } while (!done() && GetTickCount64() < end);
}

void Pump(DWORD milliseconds) {
    PumpUntil([] { return false; }, milliseconds);
}

/// The windows of this class that the host's thread has.
std::vector<HWND> WindowsOf(const wchar_t* kind) {
    std::vector<HWND> found;
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, kind, nullptr)) != nullptr;)
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()) found.push_back(window);
    return found;
}

HWND ToolTip() {
    const std::vector<HWND> tips = WindowsOf(TOOLTIPS_CLASSW);
    return tips.empty() ? nullptr : tips.front();
}

/// Writes the screen to "screenshots/name.png" beside the test program, for a person to look at.
/// @return whether that worked and the picture is not of one colour
bool SaveScreenshot(const std::wstring& name) {
    constexpr CLSID kPngEncoder{0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    const std::wstring folder = ProgramFolder() + L"\\screenshots";
    CreateDirectoryW(folder.c_str(), nullptr);
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) return false;
    bool saved = false;
    {
        const int width = GetSystemMetrics(SM_CXSCREEN);
        const int height = GetSystemMetrics(SM_CYSCREEN);
        Gdiplus::Bitmap bitmap(width, height, PixelFormat32bppRGB);
        Gdiplus::Graphics graphics(&bitmap);
        HDC screen = GetDC(nullptr);
        HDC copy = graphics.GetHDC();
        BitBlt(copy, 0, 0, width, height, screen, 0, 0, SRCCOPY | CAPTUREBLT);
        graphics.ReleaseHDC(copy);
        ReleaseDC(nullptr, screen);
        std::set<Gdiplus::ARGB> colours;
        for (int at = 0; at < width * height; at += 97) {
            Gdiplus::Color colour;
            bitmap.GetPixel(at % width, at / width, &colour);
            colours.insert(colour.GetValue());
        }
        saved = colours.size() > 1 &&
                bitmap.Save((folder + L"\\" + name + L".png").c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
    }
    Gdiplus::GdiplusShutdown(token);
    return saved;
}

class SupportList : public ::testing::Test {
 protected:
    ~SupportList() override {
        for (HWND open : WindowsOf(L"SupportList")) SendMessageW(open, WM_CLOSE, 0, 0);
    }

    void Set(const wchar_t* help_file, const wchar_t* language) {
        Call(options.Get(), L"SetHelpFilePage", {Variant(help_file), Variant(L"Schemi")});
        Call(options.Get(), L"SetServerLanguage", {Variant(language)});
    }
    void Show() {
        const Outcome outcome = Call(info.Get(), L"GetPabxTypeList", {});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.answer.vt, VT_EMPTY);
        const std::vector<HWND> open = WindowsOf(L"SupportList");
        ASSERT_EQ(open.size(), 1U);
        window = open.front();
        list = FindWindowExW(window, nullptr, L"ListBox", nullptr);
        ok = GetDlgItem(window, IDOK);
        ASSERT_NE(list, nullptr);
        ASSERT_NE(ok, nullptr);
        PumpUntil([&] { return GetFocus() == list; });
    }
    std::wstring Line(WPARAM index) const {
        wchar_t text[256] = {};
        SendMessageW(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text));
        return text;
    }
    std::wstring Hint() const {
        wchar_t text[256] = {};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.uFlags = TTF_IDISHWND;
        tool.hwnd = window;
        tool.uId = reinterpret_cast<UINT_PTR>(list);
        tool.lpszText = text;
        SendMessageW(ToolTip(), TTM_GETTEXTW, 256, reinterpret_cast<LPARAM>(&tool));
        return text;
    }
    HWND Part(const wchar_t* text) const { return FindWindowExW(window, nullptr, L"Button", text); }
    bool IsOpen() const { return IsWindow(window) != FALSE; }
    static void Press(HWND control, WPARAM key) {
        PostMessageW(control, WM_KEYDOWN, key, 1);
        PostMessageW(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        Pump(50);
    }
    HCURSOR PointerOver(HWND control) const {
        SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(control), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    }

    Ref<IDispatch> options = Create(L"Vintrel.SetServerOptions");
    Ref<IDispatch> info = Create(L"Vintrel.ServerInfo");
    HWND window = nullptr;
    HWND list = nullptr;
    HWND ok = nullptr;
};

TEST_F(SupportList, ShowsTheModelsInGermanAndItalian) {
    const struct {
        const wchar_t *language, *help_file, *picture, *heading, *hint;
    } rows[] = {
        {L"GER", kHelpFile, L"support_list_german", L"Unterst\u00FCtzte Kommunikationssysteme:",
         L"Doppelklick um die Anschlu\u00DFpl\u00E4ne anzuzeigen"},
        {L"ita", kHelpFile, L"support_list_italian", L"Sistemi di comunicazione supportati:",
         L"Doppio click per visualizzare gli schemi di collegamento"},
        {L"GER", L"", L"support_list_without_help", L"Unterst\u00FCtzte Kommunikationssysteme:", L""},
    };
    for (const auto& row : rows) {
        Set(row.help_file, row.language);
        EXPECT_EQ(Part(row.heading), nullptr) << "an open list stays as it is until the next call";
        Show();
        EXPECT_NE(Part(row.heading), nullptr);
        EXPECT_NE(Part(L"OK"), nullptr);
        wchar_t title[256] = {};
        GetWindowTextW(window, title, 256);
        EXPECT_STREQ(title, L" Pabx Com Server  V " VINTREL_VERSION);
        const std::size_t models = exchanges::Models().size();
        EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), static_cast<LRESULT>(models));
        EXPECT_EQ(Line(0), L"Avaya - Integral 1/3/5 SW xE3.xxx - xE5.xxx");
        EXPECT_EQ(Line(models - 1), L"FIAS - PMS");
        EXPECT_EQ(Hint(), row.hint);
        EXPECT_EQ(GetFocus(), list);
        const bool has_help = *row.help_file != L'\0';
        EXPECT_EQ(PointerOver(list), LoadCursorW(nullptr, has_help ? IDC_HAND : IDC_ARROW));
        EXPECT_EQ(ToolTip() != nullptr, has_help);

        RECT area{};
        GetWindowRect(list, &area);
        SetCursorPos((area.left + area.right) / 2, (area.top + area.bottom) / 2);
        PumpUntil([&] { return !has_help || IsWindowVisible(ToolTip()) != FALSE; });
        Pump(100);
        EXPECT_TRUE(SaveScreenshot(row.picture));
    }
}

TEST_F(SupportList, IsUsedAndClosedByKeyboardAndMouseAndStaysForTheOperator) {
    Show();
    options.Reset();
    Press(list, VK_DOWN);
    EXPECT_EQ(SendMessageW(list, LB_GETCURSEL, 0, 0), 1);
    Press(list, VK_TAB);
    EXPECT_EQ(GetFocus(), ok);
    Press(ok, VK_TAB);
    EXPECT_EQ(GetFocus(), list);
    EXPECT_TRUE(IsOpen());
    const std::function<void()> ways[] = {
        [&] { Press(list, VK_ESCAPE); },
        [&] { Press(list, VK_RETURN); },
        [&] { SendMessageW(ok, BM_CLICK, 0, 0); },
        [&] { PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0); },
    };
    for (const auto& close : ways) {
        Show();
        close();
        Pump(50);
        EXPECT_FALSE(IsOpen());
    }
    Show();
    info.Reset();  // the host has released its objects
    Pump(50);
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(ServerIsIdle());
    Press(list, VK_ESCAPE);
    EXPECT_TRUE(ServerIsIdle());
}

/// Puts a program in the place of the system's help viewer that writes down how it was called.
class StandInViewer {
 public:
    StandInViewer() {
        wchar_t folder[MAX_PATH] = {};
        GetWindowsDirectoryW(folder, MAX_PATH);
        program_ = std::filesystem::path(folder) / L"hh.exe";
        is_placed = MoveFileW(program_.c_str(), Saved().c_str()) != FALSE &&
                    CopyFileW((ProgramFolder() + L"\\stand-ins\\hh.exe").c_str(), program_.c_str(), TRUE) != FALSE;
    }
    ~StandInViewer() {
        DeleteFileW(Record().c_str());
        for (int i = 0; i < 100; ++i) {  // it may still be running
            if (MoveFileExW(Saved().c_str(), program_.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE) break;
            Sleep(20);
        }
    }
    StandInViewer(const StandInViewer&) = delete;
    StandInViewer& operator=(const StandInViewer&) = delete;

    std::string Called() const {
        std::ifstream file(Record());
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool is_placed = false;

 private:
    std::filesystem::path Saved() const { return program_.native() + L".saved"; }
    std::filesystem::path Record() const { return std::filesystem::path(program_).replace_extension(L"txt"); }

    std::filesystem::path program_;
};

TEST_F(SupportList, DoubleClickStartsTheHelpViewerWithThePage) {
    const StandInViewer viewer;
    if (!viewer.is_placed) GTEST_SKIP() << "the system protects its help viewer";
    Set(kHelpFile, L"GER");
    Show();
    PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(20, 20));
    PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(20, 20));
    PumpUntil([&] { return !viewer.Called().empty(); });
    EXPECT_EQ(viewer.Called(), "C:\\Help\\Srv.chm::/Schemi.htm");
    EXPECT_TRUE(IsOpen());
}

}  // namespace
}  // namespace vintrel::testing
