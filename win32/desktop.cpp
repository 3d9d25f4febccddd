#include "win32/desktop.h"

#include "win32/module.h"
#include "win32/wide.h"

#include <shellapi.h>

namespace vintrel::win32 {

bool HasDesktop() {
    USEROBJECTFLAGS flags{};
    return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) == FALSE ||
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

void CriticalMessage::Show(std::u16string_view text, std::u16string_view title) {
    const std::wstring shown_text = WideCopy(text);
    const std::wstring shown_title = WideCopy(title);
    constexpr UINT kStyle = MB_OK | MB_ICONHAND | MB_TASKMODAL | MB_SETFOREGROUND;
    if (HasDesktop() && MessageBoxW(nullptr, shown_text.c_str(), shown_title.c_str(), kStyle) != 0) return;
    OutputDebugStringW((shown_title + L": " + shown_text + L"\n").c_str());
}

void HelpViewer::Start(std::u16string_view program, std::u16string_view arguments) {
    const std::wstring file = WideCopy(program);
    const std::wstring parameters = WideCopy(arguments);
    SHELLEXECUTEINFOW start{};
    start.cbSize = sizeof start;
    start.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    start.lpVerb = L"open";
    start.lpFile = file.c_str();
    start.lpParameters = parameters.c_str();
    start.nShow = SW_SHOWNORMAL;
    const auto execute = SystemFunction<decltype(&ShellExecuteExW)>(L"shell32.dll", "ShellExecuteExW");
    if (execute != nullptr) execute(&start);
}

}  // namespace vintrel::win32
