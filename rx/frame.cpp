#include "rx/frame.h"

#include "server/control_characters.h"
#include "server/text.h"

namespace vintrel::rx {
namespace {

using namespace server;

constexpr std::u16string_view kMitelTrailer = u"\x0C\x0B\x03\x0D\x0A";

// Which field of a Mitel hotel frame holds the room is not public: the first of these that looks like one is taken.
// The frame's own number stands in front, so that field comes last.
constexpr std::int16_t kMitelRoomFields[] = {2, 3, 4, 5, 6, 1};

constexpr std::size_t kExtensionWidth = 5;

void AppendExtension(std::u16string& frame, std::u16string_view room) {
    room = Trim(room);
    if (!IsDigits(room)) room = {};
    room = Right(room, kExtensionWidth);
    frame.append(kExtensionWidth - room.size(), u'0').append(room);
}

}  // namespace

bool HasMitelTrailer(std::u16string_view frame) { return frame.ends_with(kMitelTrailer); }

std::u16string_view MitelField(std::u16string_view frame, std::int16_t index) {
    return GetSeparatedField(frame, kFf, index);
}

std::u16string_view MitelRoom(std::u16string_view frame) {
    for (const std::int16_t index : kMitelRoomFields) {
        const std::u16string_view field = Trim(MitelField(frame, index));
        if (IsDigits(field) && field.size() <= kExtensionWidth) return field;
    }
    return {};
}

std::u16string_view QueryValue(std::u16string_view frame, std::u16string_view key) {
    if (!Contains(frame, key)) return {};
    return Trim(GetTextBetween(frame, key, u"&"));
}

std::u16string_view QuotedField(std::u16string_view frame, std::int16_t index) {
    return GetTextBetween(GetCommaField(frame, index), u"'", u"'");
}

std::u16string_view PanasonicExtension(std::u16string_view frame) { return Mid(frame, 18, 5); }

bool IsFramed(std::u16string_view frame, std::u16string_view type) {
    return frame.starts_with(kStx) && frame.substr(1).starts_with(type) && frame.ends_with(kEtx);
}

std::u16string_view FiasValue(std::u16string_view frame, std::u16string_view key) {
    return GetPipeValue(frame, key).value_or(std::u16string_view{});
}

std::u16string RoomFrame(std::u16string_view room, std::u16string_view code) {
    std::u16string frame;
    frame.reserve(14);
    frame.append({kStx, u'0', u'8'});
    AppendExtension(frame, room);
    return frame.append(code).append({u'1', kEtx});
}

std::u16string ConfirmationFrame(std::u16string_view room, char16_t status) {
    std::u16string frame;
    frame.reserve(10);
    frame.append({kStx, u'0', u'7'});
    AppendExtension(frame, room);
    return frame.append({status, kEtx});
}

}  // namespace vintrel::rx
