#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "printing.h"
#include "win32/ansi_text.h"
#include "win32/clock.h"
#include "win32/files.h"
#include "win32/handle.h"
#include "win32/ini.h"
#include "win32/wide.h"

namespace vintrel::win32 {
namespace {

using testing::Shown;

/// An empty folder whose name no code page of one byte can hold.
class SystemFiles : public ::testing::Test {
 protected:
    SystemFiles() { std::filesystem::create_directories(folder); }
    ~SystemFiles() override { std::filesystem::remove_all(folder); }
    std::u16string Path(const char* name) const { return (folder / name).u16string(); }

    std::filesystem::path folder = std::filesystem::temp_directory_path() / u"vintrel è 文書";
    Files files;
    Ini ini;
};

TEST_F(SystemFiles, AreReadFromAPositionAsFarAsTheyGo) {
    std::ofstream(folder / "a.bin", std::ios::binary) << "0123456789";
    EXPECT_TRUE(files.Exists(Path("a.bin")));
    EXPECT_FALSE(files.Exists(folder.u16string())) << "a folder is no file";
    const auto bytes = files.Read(Path("a.bin"), 7, 100);
    ASSERT_TRUE(bytes);
    ASSERT_EQ(bytes->size(), 3U);
    EXPECT_EQ(bytes->front(), std::byte{'7'});
    EXPECT_EQ(files.Read(Path("a.bin"), 5000, 100)->size(), 0U);
    EXPECT_FALSE(files.Read(Path("missing"), 0, 1));
}

TEST_F(SystemFiles, ThatAnotherProgramLocksExistButCannotBeRead) {
    const Handle locked(CreateFileW(Wide(Path("a.bin")), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    ASSERT_TRUE(locked.IsOpen());
    EXPECT_TRUE(files.Exists(Path("a.bin")));
    EXPECT_FALSE(files.Read(Path("a.bin"), 0, 1));
}

TEST_F(SystemFiles, IniValuesComeBackUpTo255Characters) {
    const std::u16string path = Path("a.ini");
    EXPECT_EQ(ini.Read(path, u"S", u"key"), u"");
    ini.Write(path, u"S", u"key", u"");
    ini.Write(path, u"S", u"other", std::u16string(300, u'x'));
    EXPECT_TRUE(files.Exists(path));
    EXPECT_EQ(ini.Read(path, u"S", u"key"), u"");
    EXPECT_EQ(ini.Read(path, u"S", u"OTHER"), std::u16string(255, u'x'));
}

TEST(SystemText, GoesThroughTheCodePage) {
    const AnsiText ansi;
    EXPECT_EQ(Shown(ansi.ToText(ansi.FromText(u"adminpw"))), "adminpw");
    EXPECT_EQ(ansi.FromText(u""), "");
    if (GetACP() != 1252) GTEST_SKIP() << "the rest is for code page 1252";
    EXPECT_EQ(ansi.FromText(u"ü€"), "\xFC\x80");
    EXPECT_EQ(Shown(ansi.ToText("\xFC\x80")), "<U+00FC><U+20AC>");
}

TEST(SystemClock, ConvertsWithTheBiasInForceNow) {
    const Clock clock;
    TIME_ZONE_INFORMATION zone{};
    const DWORD season = GetTimeZoneInformation(&zone);
    const LONG bias = zone.Bias + (season == TIME_ZONE_ID_DAYLIGHT ? zone.DaylightBias : zone.StandardBias);
    EXPECT_EQ(clock.AheadOfUtc(), -60 * bias);
    EXPECT_EQ(clock.AheadOfUtc(), -60 * bias) << "the second answer is the first one, remembered";
}

}  // namespace
}  // namespace vintrel::win32
