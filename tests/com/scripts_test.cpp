// Script clients, run by the system's own script host.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "client.h"

namespace vintrel::testing {
namespace {

/// The script host reports no failure of its own: a script is passed when it wrote its last line and nothing else.
TEST(Scripts, UseTheEightClasses) {
    for (const wchar_t* name : {L"classes.vbs", L"classes.js"}) {
        const std::wstring script = ProgramFolder() + L"\\scripts\\" + name;
        const std::wstring log = script + L".log";
        _wsystem((L"cscript.exe //nologo \"" + script + L"\" > \"" + log + L"\" 2>&1").c_str());
        std::ifstream file{std::filesystem::path(log)};
        EXPECT_EQ(std::string(std::istreambuf_iterator(file), {}), "END\n") << name;
    }
}

}  // namespace
}  // namespace vintrel::testing
