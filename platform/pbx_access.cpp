#include "platform/pbx_access.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "platform/operation_error.h"
#include "text/numbers.h"
#include "text/text.h"

namespace vintrel::platform {
namespace {

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

    std::u16string Place(int record) const { return u"Record " + text::DecimalText(record) + u" of " + path_; }

    std::u16string path_;
    const AnsiText& ansi_;
    std::vector<std::byte> bytes_;
};

}  // namespace

void PbxAccess::TakeOver(Settings& settings) && {
    settings.PbxHost = std::move(host);
    settings.PbxPort = port;
    settings.PbxUser = std::move(user);
    settings.PbxPassword = std::move(password);
}

std::optional<PbxAccess> ReadPbxAccess(const Settings& settings, const Files& files, const AnsiText& ansi) {
    std::u16string path = CfgPath(settings);
    if (!files.Exists(path)) return std::nullopt;
    const PbxRecords records(std::move(path), files, ansi);
    return PbxAccess{.host = records.Text(kHostRecord),
                     .port = records.Integer(kPortRecord),
                     .user = records.Text(kUserRecord),
                     .password = records.Text(kPasswordRecord)};
}

}  // namespace vintrel::platform
