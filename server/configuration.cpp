#include "server/configuration.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "server/control_characters.h"
#include "server/operation_error.h"
#include "server/text.h"
#include "server/word.h"

namespace vintrel::server {
namespace {

// "Quindara.cfg"

constexpr std::size_t kRecordBytes = 624;
constexpr std::size_t kLengthBytes = 2;
constexpr std::size_t kPortBytes = 4;
constexpr int kHostRecord = 156;
constexpr int kPortRecord = 157;
constexpr int kUserRecord = 158;
constexpr int kPasswordRecord = 159;

std::u16string CfgPath(const Settings& settings) { return settings.DocumentsDir + u"\\Quindara.cfg"; }

/// The four records, as far as the file goes: the last one may be written only up to the end of its text.
class PbxRecords {
 public:
    PbxRecords(std::u16string path, const Files& files, const AnsiText& ansi) : path_(std::move(path)), ansi_(ansi) {
        constexpr std::size_t kFirst = (kHostRecord - 1) * kRecordBytes;
        constexpr std::size_t kCount = (kPasswordRecord - kHostRecord + 1) * kRecordBytes;
        std::optional<std::vector<std::byte>> bytes = files.Read(path_, kFirst, kCount);
        if (!bytes)
            throw OperationError(kPathOrFileAccess,
                                 u"The configuration file cannot be read; another program may hold "
                                 u"it locked: " +
                                     path_);
        bytes_ = std::move(*bytes);
    }

    std::u16string Text(int record) const {
        const std::size_t length = Number(Bytes(record, 0, kLengthBytes));
        if (length > kRecordBytes - kLengthBytes)
            throw OperationError(kBadRecordLength,
                                 Place(record) + u" is malformed: its text is longer than the record.");
        const std::span<const std::byte> text = Bytes(record, kLengthBytes, length);
        std::string characters(length, '\0');
        std::transform(text.begin(), text.end(), characters.begin(), [](std::byte b) { return static_cast<char>(b); });
        return ansi_.ToText(characters);
    }

    std::int32_t Integer(int record) const { return static_cast<std::int32_t>(Number(Bytes(record, 0, kPortBytes))); }

 private:
    std::span<const std::byte> Bytes(int record, std::size_t offset, std::size_t count) const {
        const std::size_t from = static_cast<std::size_t>(record - kHostRecord) * kRecordBytes + offset;
        if (from + count > bytes_.size())
            throw OperationError(kInputPastEnd, Place(record) + u" is incomplete: the file ends before it does.");
        return std::span(bytes_).subspan(from, count);
    }

    static std::uint32_t Number(std::span<const std::byte> little_endian) {
        std::uint32_t value = 0;
        for (std::size_t i = little_endian.size(); i-- > 0;)
            value = value << 8U | std::to_integer<std::uint32_t>(little_endian[i]);
        return value;
    }

    std::u16string Place(int record) const { return u"Record " + DecimalText(record) + u" of " + path_; }

    std::u16string path_;
    const AnsiText& ansi_;
    std::vector<std::byte> bytes_;
};

// "Vintrel.ini"

std::u16string IniPath(const Settings& settings) { return settings.DocumentsDir + u"\\Vintrel.ini"; }

std::u16string AsWritten(std::u16string_view text) { return std::u16string(text); }
std::u16string UpperCase(std::u16string_view text) { return Upper(text); }
std::u16string LowerCase(std::u16string_view text) { return Lower(text); }

struct IniRow {
    Model model;
    std::u16string_view section;
    std::u16string_view key;
    std::u16string_view default_value;
    std::u16string Settings::*setting = nullptr;  ///< of a text; numbers and flags are read below
    std::u16string (*form)(std::u16string_view) = nullptr;
};

// clang-format off
constexpr std::array kIniRows{
    IniRow{Model::Type10012, u"CALL_INCOMING",                u"src_if",        u"",          &Settings::CallIncomingSrcIf,              UpperCase},
    IniRow{Model::Type10012, u"CALL_INCOMING",                u"dst_if",        u"",          &Settings::CallIncomingDstIf,              UpperCase},
    IniRow{Model::Type10012, u"CALL_OUTGOING",                u"src_if",        u"",          &Settings::CallOutgoingSrcIf,              UpperCase},
    IniRow{Model::Type10012, u"CALL_OUTGOING",                u"dst_if",        u"",          &Settings::CallOutgoingDstIf,              UpperCase},
    IniRow{Model::Type10012, u"ROOMSTATUS_CLEAN",             u"dst_cdpn",      u"",          &Settings::RoomStatusCleanCdpn,            UpperCase},
    IniRow{Model::Type10012, u"ROOMSTATUS_CLEAN_OCCUPIED",    u"dst_cdpn",      u"",          &Settings::RoomStatusCleanOccupiedCdpn,    UpperCase},
    IniRow{Model::Type10012, u"ROOMSTATUS_NOTCLEAN",          u"dst_cdpn",      u"",          &Settings::RoomStatusNotCleanCdpn,         UpperCase},
    IniRow{Model::Type10012, u"ROOMSTATUS_NOTCLEAN_OCCUPIED", u"dst_cdpn",      u"",          &Settings::RoomStatusNotCleanOccupiedCdpn, UpperCase},
    IniRow{Model::Type10012, u"ROOMSTATUS_ALARM",             u"dst_cdpn",      u"",          &Settings::RoomStatusAlarmCdpn,            UpperCase},
    IniRow{Model::Type10012, u"ROOMSTATUS_INSPECTED_OCCUPIED",u"dst_cdpn",      u"",          &Settings::RoomStatusInspectedOccupiedCdpn,UpperCase},
    IniRow{Model::Type10012, u"WAKEUP_RESPONSE",              u"h323",          u"Hotel",     &Settings::WakeupResponseH323,             AsWritten},
    IniRow{Model::Type10012, u"WAKEUP_RESPONSE",              u"Fallback",      u"",          &Settings::WakeupResponseFallback,         AsWritten},
    IniRow{Model::Type10017, u"IP_OFFICE",                    u"host",          u"localhost", &Settings::IpOfficeHost,                   LowerCase},
    IniRow{Model::Type10017, u"IP_OFFICE",                    u"port",          u"8085"},
    IniRow{Model::Type10017, u"IP_OFFICE",                    u"hotel_enabled", u"true"},
    IniRow{Model::Type10017, u"USERS",                        u"319",           u"5b9e20c4f17a3d8e6c02b9f4a18d7e53"},
    IniRow{Model::Type10019, u"PANASONIC",                    u"hotel_enabled", u"true"},
};
// clang-format on

/// Hotel functions are on unless they are switched off explicitly: an empty or missing value is "on".
bool ReadHotelEnabled(IniStore& ini, const std::u16string& path, std::u16string_view section) {
    return !UpperEquals<u"FALSE">(ReadIniValue(ini, path, section, u"hotel_enabled"));
}

std::int32_t ReadIpOfficePort(IniStore& ini, const std::u16string& path) {
    const std::u16string text = ReadIniValue(ini, path, u"IP_OFFICE", u"port");
    const std::optional<std::int32_t> port = RoundToInt32(NumberValue(text));
    if (!port) throw OperationError(kOverflow, u"The port in section IP_OFFICE of " + path + u" is too large: " + text);
    return *port;
}

}  // namespace

std::optional<PbxAccess> ReadPbxAccess(const Settings& settings, const Files& files, const AnsiText& ansi) {
    std::u16string path = CfgPath(settings);
    if (!files.Exists(path)) return std::nullopt;
    const PbxRecords records(std::move(path), files, ansi);
    return PbxAccess{.host = records.Text(kHostRecord),
                     .port = records.Integer(kPortRecord),
                     .user = records.Text(kUserRecord),
                     .password = records.Text(kPasswordRecord)};
}

void WriteIniDefaults(Model model, const Settings& settings, const Files& files, IniStore& ini) {
    const std::u16string path = IniPath(settings);
    if (files.Exists(path)) return;
    for (const IniRow& row : kIniRows)
        if (row.model == model) WriteIniValue(ini, path, row.section, row.key, row.default_value);
}

void ReadIniSettings(Model model, Settings& settings, IniStore& ini) {
    const std::u16string path = IniPath(settings);
    for (const IniRow& row : kIniRows)
        if (row.model == model && row.setting != nullptr)
            settings.*row.setting = row.form(ReadIniValue(ini, path, row.section, row.key));
    if (model == Model::Type10017) {
        settings.IpOfficePort = ReadIpOfficePort(ini, path);
        settings.HotelEnabled = ReadHotelEnabled(ini, path, u"IP_OFFICE");
    }
    if (model == Model::Type10019) settings.HotelEnabled = ReadHotelEnabled(ini, path, u"PANASONIC");
}

std::u16string ReadIniValue(IniStore& ini, std::u16string_view path, std::u16string_view section,
                            std::u16string_view key) {
    const std::u16string value = ini.Read(path, section, key);
    const std::u16string_view trimmed = Trim(value);
    return std::u16string(Trim(trimmed.substr(0, trimmed.find(kNul))));
}

void WriteIniValue(IniStore& ini, std::u16string_view path, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) {
    ini.Write(path, section, key, value);
}

std::u16string GetIniUser(std::int32_t number, const Settings& settings, IniStore& ini) {
    if (number == 0) return {};
    return ReadIniValue(ini, IniPath(settings), u"USERS", DecimalText(number));
}

}  // namespace vintrel::server
