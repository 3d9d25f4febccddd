// The list window as an operator meets it, in a host whose message loop knows nothing of it.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "client.h"
#include "screenshot.h"
#include "server_control.h"

namespace vintrel::testing {
namespace {

constexpr wchar_t kHelpFile[] = L"C:\\Help\\Srv.chm";

/// Runs the host's message loop.
void Pump(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    do {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjectsEx(0, nullptr, 5, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    } while (GetTickCount64() < end);
}

template <typename Done>
bool PumpUntil(Done done) {
    for (const ULONGLONG end = GetTickCount64() + 5000; !done(); Pump(10))
        if (GetTickCount64() > end) return false;
    return true;
}

std::wstring TextOf(HWND window) {
    wchar_t text[256] = {};
    GetWindowTextW(window, text, 256);
    return text;
}

BOOL CALLBACK CollectLists(HWND window, LPARAM found) noexcept {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (std::wstring_view(name) == L"SupportList") reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
    return TRUE;
}

std::vector<HWND> OpenLists() {
    std::vector<HWND> found;
    EnumThreadWindows(GetCurrentThreadId(), CollectLists, reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND ToolTipOf(HWND list_window) {
    HWND tip = nullptr;
    while ((tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr)
        if (GetWindow(tip, GW_OWNER) == list_window) return tip;
    return nullptr;
}

std::wstring ToolTipText(HWND tip, HWND list_window, HWND list) {
    wchar_t text[256] = {};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = list_window;
    tool.uId = reinterpret_cast<UINT_PTR>(list);
    tool.lpszText = text;
    SendMessageW(tip, TTM_GETTEXTW, 256, reinterpret_cast<LPARAM>(&tool));
    return text;
}

class SupportList : public ::testing::Test {
 protected:
    void TearDown() override {
        for (HWND open : OpenLists()) SendMessageW(open, WM_CLOSE, 0, 0);
    }

    void Set(const wchar_t* help_file, const wchar_t* language) {
        Call(options.Get(), L"SetHelpFilePage", {Variant(help_file), Variant(L"Schemi")});
        Call(options.Get(), L"SetServerLanguage", {Variant(language)});
    }
    void Show() {
        const Outcome outcome = Call(info.Get(), L"GetPabxTypeList", {});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.answer.vt, VT_EMPTY);
        const std::vector<HWND> open = OpenLists();
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
    bool IsOpen() const { return IsWindow(window) != FALSE; }
    void Press(HWND control, WPARAM key) {
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
        const wchar_t *language, *picture, *heading, *hint;
    } cases[] = {
        {L"GER", L"support_list_german", L"Unterst\u00FCtzte Kommunikationssysteme:",
         L"Doppelklick um die Anschlu\u00DFpl\u00E4ne anzuzeigen"},
        {L"ita", L"support_list_italian", L"Sistemi di comunicazione supportati:",
         L"Doppio click per visualizzare gli schemi di collegamento"},
    };
    for (const auto& each : cases) {
        Set(kHelpFile, each.language);
        Show();
        EXPECT_EQ(TextOf(window), L" Pabx Com Server  V 2.841");
        EXPECT_EQ(TextOf(FindWindowExW(window, nullptr, L"Button", each.heading)), each.heading);
        EXPECT_EQ(TextOf(ok), L"OK");
        EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), 21);
        EXPECT_EQ(Line(0), L"Avaya - Integral 1/3/5 SW xE3.xxx - xE5.xxx");
        EXPECT_EQ(Line(20), L"FIAS - PMS");
        HWND tip = ToolTipOf(window);
        EXPECT_EQ(ToolTipText(tip, window, list), each.hint);
        EXPECT_EQ(GetFocus(), list);
        EXPECT_EQ(PointerOver(list), LoadCursorW(nullptr, IDC_HAND));

        RECT area{};
        GetWindowRect(list, &area);
        SetCursorPos((area.left + area.right) / 2, (area.top + area.bottom) / 2);
        PumpUntil([&] { return IsWindowVisible(tip) != FALSE; });
        Pump(100);
        EXPECT_TRUE(SaveScreenshot(each.picture));
    }
}

TEST_F(SupportList, IsBuiltAnewByASecondCallAndHasNoHintWithoutAHelpFile) {
    Set(kHelpFile, L"GER");
    Show();
    Set(L"", L"ITA");
    EXPECT_NE(FindWindowExW(window, nullptr, L"Button", L"Unterst\u00FCtzte Kommunikationssysteme:"), nullptr);
    Show();
    EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), 21);
    EXPECT_NE(FindWindowExW(window, nullptr, L"Button", L"Sistemi di comunicazione supportati:"), nullptr);
    EXPECT_EQ(ToolTipOf(window), nullptr);
    EXPECT_EQ(PointerOver(list), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(SupportList, IsUsedAndClosedByKeyboardAndMouse) {
    Show();
    Press(list, VK_DOWN);
    EXPECT_EQ(SendMessageW(list, LB_GETCURSEL, 0, 0), 1);
    Press(list, VK_TAB);
    EXPECT_EQ(GetFocus(), ok);
    Press(ok, VK_TAB);
    EXPECT_EQ(GetFocus(), list);
    EXPECT_TRUE(IsOpen());
    for (const WPARAM key : {WPARAM{VK_ESCAPE}, WPARAM{VK_RETURN}}) {
        Press(list, key);
        EXPECT_FALSE(IsOpen()) << key;
        Show();
    }
    SendMessageW(ok, BM_CLICK, 0, 0);
    EXPECT_FALSE(IsOpen());
    Show();
    PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    Pump(50);
    EXPECT_FALSE(IsOpen());
}

TEST_F(SupportList, StaysForTheOperatorWhenTheHostHasReleasedItsObjects) {
    Show();
    options.Reset();
    info.Reset();
    Pump(50);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(CallExport("DllCanUnloadNow"), S_FALSE);
    Press(list, VK_ESCAPE);
    EXPECT_EQ(CallExport("DllCanUnloadNow"), S_OK);
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
        for (int i = 0; i < 100 && !MoveFileExW(Saved().c_str(), program_.c_str(), MOVEFILE_REPLACE_EXISTING); ++i)
            Sleep(20);  // it may still be running
    }
    StandInViewer(const StandInViewer&) = delete;
    StandInViewer& operator=(const StandInViewer&) = delete;

    std::string Called() const {
        std::string line;
        std::ifstream file(Record());
        std::getline(file, line);
        return line;
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
