// Initialisation on real files, in a folder whose name no code page of one byte can hold.
#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <fstream>

#include "client.h"
#include "message_box_watcher.h"

namespace vintrel::testing {
namespace {

constexpr std::size_t kRecord = 624;

HRESULT Number(unsigned classic) { return static_cast<HRESULT>(0x800A0000 + classic); }

class Initialisation : public ::testing::Test {
 protected:
    Initialisation() {
        Empty();
        Call(options.Get(), L"SetAllUserCommonDocumentsDirA", {Variant(folder.c_str())});
    }
    ~Initialisation() override { std::filesystem::remove_all(folder); }

    void Empty() const {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }

    /// A "Quindara.cfg" with these four values; the access texts lie in records 156, 158 and 159, the port in 157.
    void WriteCfg(std::string_view host, std::uint32_t port) const {
        std::string file(160 * kRecord, '\xEE');
        const auto put = [&file](std::size_t record, std::size_t offset, std::string_view bytes) {
            file.replace((record - 1) * kRecord + offset, bytes.size(), bytes);
        };
        const auto put_text = [&](std::size_t record, std::string_view text) {
            put(record, 0, std::string{static_cast<char>(text.size()), '\0'});
            put(record, 2, text);
        };
        put_text(156, host);
        for (unsigned i = 0; i < 4; ++i) put(157, i, std::string(1, static_cast<char>(port >> 8 * i)));
        put_text(158, "admin");
        put_text(159, "pw");
        std::ofstream(Cfg(), std::ios::binary) << file;
    }
    std::filesystem::path Cfg() const { return folder / L"Quindara.cfg"; }
    std::filesystem::path Ini() const { return folder / L"Vintrel.ini"; }
    std::wstring IniValue(const wchar_t* section, const wchar_t* key) const {
        wchar_t value[256] = {};
        GetPrivateProfileStringW(section, key, L"(missing)", value, 256, Ini().c_str());
        return value;
    }

    Outcome Initialize(const wchar_t* code, const wchar_t* operation = L"InitializeServer") const {
        return Call(options.Get(), operation, {Variant(code)});
    }
    /// Whether a call from room 101 to this number tells that the room is clean.
    bool MeansClean(const std::wstring& number) const {
        const std::wstring frame = L"event=A:Rel&src_cgpn=101&dst_cdpn=" + number + L"&";
        return Call(events.Get(), L"GetComIsRoomState", {Variant(L"TYPE10012"), Variant(frame.c_str())}).answer.iVal ==
               1;
    }

    std::filesystem::path folder = std::filesystem::temp_directory_path() / L"Vintrel \u00E8 \u6587\u66F8";
    Ref<IDispatch> options = Create(L"Vintrel.SetServerOptions");
    Ref<IDispatch> events = Create(L"Vintrel.ComEventsRX");
    MessageBoxWatcher boxes;
};

TEST_F(Initialisation, SucceedsForEveryModelAndWritesOnlyTheDefaultsOfThree) {
    const Ref<IDispatch> info = Create(L"Vintrel.ServerInfo");
    int known = 0;
    for (int number = 10001; number <= 12000; number += number == 10020 ? 1980 : 1) {
        const std::wstring code = L"type" + std::to_wstring(number);
        known += Call(info.Get(), L"GetPabxActiveType", {Variant(code.c_str())}).answer.iVal;
        Empty();
        WriteCfg("127.0.0.1", 8089);
        for (const wchar_t* operation : {L"InitializeServer", L"InitializeServerSec", L"UnInitializeServer"}) {
            const Outcome outcome = Initialize(code.c_str(), operation);
            EXPECT_EQ(outcome.result, S_OK) << number;
            EXPECT_EQ(outcome.answer.vt, VT_I2) << number;
            EXPECT_EQ(outcome.answer.iVal, 0) << number;
        }
        const bool has_file = number == 10012 || number == 10017 || number == 10019;
        EXPECT_EQ(std::filesystem::exists(Ini()), has_file) << number;
    }
    EXPECT_EQ(known, 21);
    EXPECT_TRUE(boxes.Take().empty());
}

TEST_F(Initialisation, DefaultsAreThereForAnAdministratorToEdit) {
    Initialize(L"TYPE10017");
    EXPECT_EQ(IniValue(L"IP_OFFICE", L"host"), L"localhost");
    EXPECT_EQ(IniValue(L"IP_OFFICE", L"port"), L"8085");
    EXPECT_EQ(IniValue(L"IP_OFFICE", L"hotel_enabled"), L"true");
    EXPECT_EQ(IniValue(L"USERS", L"319"), L"5b9e20c4f17a3d8e6c02b9f4a18d7e53");
    EXPECT_EQ(IniValue(L"WAKEUP_RESPONSE", L"h323"), L"(missing)");
    Empty();
    Initialize(L"TYPE10012");
    EXPECT_EQ(IniValue(L"WAKEUP_RESPONSE", L"h323"), L"Hotel");
    EXPECT_EQ(IniValue(L"ROOMSTATUS_INSPECTED_OCCUPIED", L"dst_cdpn"), L"");
}

TEST_F(Initialisation, WhatTheFileSaysGoverns) {
    std::ofstream(Ini()) << "[ROOMSTATUS_CLEAN]\ndst_cdpn = 761 \n";
    EXPECT_EQ(Initialize(L"TYPE10012").result, S_OK);
    EXPECT_TRUE(MeansClean(L"761"));
    EXPECT_FALSE(MeansClean(L"762"));

    // Hotel functions of the Panasonic are on, but no telephony has been started; then they are off.
    const Ref<IDispatch> orders = Create(L"Vintrel.ComEventsTX");
    const auto wake_up = [&] {
        return Call(orders.Get(), L"ComEventClockTX",
                    {Variant(L"TYPE10019"), Variant(101L), Variant(L"0700"), Variant(L"2411"), Variant(short{0}),
                     Variant(short{1})})
            .answer.Str();
    };
    Initialize(L"TYPE10019");
    EXPECT_EQ(wake_up(), L"<ERROR>");
    WritePrivateProfileStringW(L"PANASONIC", L"hotel_enabled", L"False ", Ini().c_str());
    Initialize(L"TYPE10019");
    EXPECT_EQ(wake_up(), L"<OK>");
}

TEST_F(Initialisation, AFaultyFileIsAFailedCallThatSaysWhatIsWrongAndChangesNothing) {
    std::ofstream(Ini()) << "[ROOMSTATUS_CLEAN]\ndst_cdpn=761\n";
    Initialize(L"TYPE10012");
    std::ofstream(Ini()) << "[ROOMSTATUS_CLEAN]\ndst_cdpn=999\n";
    const auto expect_failure = [this](unsigned number, const wchar_t* words) {
        const Outcome outcome = Initialize(L"TYPE10012");
        EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
        EXPECT_EQ(outcome.failure, Number(number)) << words;
        EXPECT_EQ(outcome.source, L"Vintrel.SetServerOptions");
        EXPECT_NE(outcome.description.find(words), std::wstring::npos) << outcome.description;
        EXPECT_TRUE(MeansClean(L"761"));
    };
    WriteCfg("127.0.0.1", 65536);
    expect_failure(6, L"outside 0 to 65535");
    std::filesystem::resize_file(Cfg(), 158 * kRecord);
    expect_failure(62, L"Record 159");
    std::ofstream(Cfg(), std::ios::binary) << std::string(160 * kRecord, '\xEE');
    expect_failure(59, L"Record 156");
    WriteCfg("127.0.0.1", 80);
    {
        HANDLE locked = CreateFileW(Cfg().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(locked, INVALID_HANDLE_VALUE);
        expect_failure(75, Cfg().c_str());
        CloseHandle(locked);
    }
    EXPECT_EQ(Initialize(L"TYPE10012").result, S_OK);
    EXPECT_TRUE(MeansClean(L"999"));
    EXPECT_TRUE(boxes.Take().empty());
}

TEST_F(Initialisation, AnUnknownCodeShowsTheErrorReport) {
    const Outcome outcome = Initialize(L"TYPE99999");
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_EQ(outcome.answer.iVal, 0);
    const std::vector<SeenMessage> seen = boxes.Take();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].title, L"QUINDARA PABX COM SERVER   0");
    EXPECT_EQ(seen[0].text, L"InitializeServer: FATAL ERROR !");
    EXPECT_TRUE(seen[0].critical_icon);
    EXPECT_EQ(seen[0].buttons, 1);
}

}  // namespace
}  // namespace vintrel::testing
