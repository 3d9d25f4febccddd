// Initialisation on real files, in a folder whose name no code page of one byte can hold.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "client.h"
#include "exchanges/catalogue.h"
#include "message_box_watcher.h"

namespace vintrel::testing {
namespace {

class Initialisation : public ::testing::Test {
 protected:
    Initialisation() {
        std::filesystem::create_directories(folder);
        Call(options.Get(), L"SetAllUserCommonDocumentsDirA", {Variant(folder.c_str())});
    }
    ~Initialisation() override { std::filesystem::remove_all(folder); }

    /// A "Quindara.cfg" with the access texts in records 156, 158 and 159, and the port in record 157.
    void WriteCfg(std::uint32_t port) const {
        std::string file(160 * 624, '\xEE');
        for (const std::size_t record : {156U, 158U, 159U}) file.replace((record - 1) * 624, 7, "\x5\0admin", 7);
        file.replace(156 * 624, sizeof port, reinterpret_cast<const char*>(&port), sizeof port);
        std::ofstream(cfg, std::ios::binary) << file;
    }
    Outcome Initialize(const wchar_t* code, const wchar_t* operation = L"InitializeServer") const {
        return Call(options.Get(), operation, {Variant(code)});
    }
    /// Whether a call from room 101 to this number tells that the room is clean.
    bool MeansClean(const std::wstring& number) const {
        const std::wstring frame = L"event=A:Rel&src_cgpn=101&dst_cdpn=" + number + L"&";
        const Outcome is = Call(events.Get(), L"GetComIsRoomState", {Variant(L"TYPE10012"), Variant(frame.c_str())});
        return is.answer.iVal == 1;
    }

    std::filesystem::path folder = std::filesystem::temp_directory_path() / L"Vintrel \u00E8 \u6587\u66F8";
    std::filesystem::path cfg = folder / L"Quindara.cfg", ini = folder / L"Vintrel.ini";
    Ref<IDispatch> options = Create(L"Vintrel.SetServerOptions");
    Ref<IDispatch> events = Create(L"Vintrel.ComEventsRX");
    MessageBoxWatcher boxes;
};

TEST_F(Initialisation, SucceedsForEveryModelAndWritesTheDefaultsOfThoseWithSections) {
    for (const exchanges::Model* model : exchanges::Models()) {
        const std::wstring number(model->code.begin() + 4, model->code.end());
        std::filesystem::remove(ini);
        WriteCfg(8089);
        for (const wchar_t* operation : {L"InitializeServer", L"InitializeServerSec", L"UnInitializeServer"}) {
            const Outcome outcome = Initialize((L"type" + number).c_str(), operation);
            EXPECT_EQ(outcome.result, S_OK) << number.c_str();
            EXPECT_EQ(outcome.answer.iVal, 0) << number.c_str();
        }
        EXPECT_EQ(std::filesystem::exists(ini), model->link.ini != 0) << number.c_str();
    }
    EXPECT_TRUE(boxes.Take().empty());
}

TEST_F(Initialisation, TheFileGovernsAndAFaultyOneIsAFailedCallThatChangesNothing) {
    std::ofstream(ini) << "[ROOMSTATUS_CLEAN]\ndst_cdpn = 761 \n";
    EXPECT_EQ(Initialize(L"TYPE10012").result, S_OK);
    EXPECT_TRUE(MeansClean(L"761"));
    EXPECT_FALSE(MeansClean(L"999"));

    std::ofstream(ini) << "[ROOMSTATUS_CLEAN]\ndst_cdpn=999\n";
    const auto expect_failure = [this](unsigned number, const wchar_t* words) {
        const Outcome outcome = Initialize(L"TYPE10012");
        EXPECT_EQ(outcome.failure, static_cast<HRESULT>(0x800A0000 + number)) << words;
        EXPECT_NE(outcome.description.find(words), std::wstring::npos) << outcome.description;
        EXPECT_TRUE(MeansClean(L"761"));
    };
    WriteCfg(65536);
    expect_failure(6, L"outside 0 to 65535");
    WriteCfg(80);
    HANDLE locked = CreateFileW(cfg.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(locked, INVALID_HANDLE_VALUE);
    expect_failure(75, cfg.c_str());
    CloseHandle(locked);
    EXPECT_EQ(Initialize(L"TYPE10012").result, S_OK);
    EXPECT_TRUE(MeansClean(L"999"));
    EXPECT_TRUE(boxes.Take().empty());
}

}  // namespace
}  // namespace vintrel::testing
