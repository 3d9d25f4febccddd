// What the rules of received frames share: the parts of a frame, and the two short frames that the host gets. Every
// text here is a view into the frame; nothing allocates but the two frames for the host.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vintrel::rx {

/// A Mitel hotel frame: fields separated by FF, FF VT ETX CR LF at the end.
bool HasMitelTrailer(std::u16string_view frame);
/// FF-separated field, counted from 1.
std::u16string_view MitelField(std::u16string_view frame, std::int16_t index);
/// The room of a Mitel hotel frame, "" when no field can be one.
std::u16string_view MitelRoom(std::u16string_view frame);

/// innovaphone "key=value&": the trimmed value, "" when the key is missing or no "&" follows it.
/// @param key  with its "=".
std::u16string_view QueryValue(std::u16string_view frame, std::u16string_view key);

/// Grandstream: what stands between the first two single quotes of a comma-separated field.
std::u16string_view QuotedField(std::u16string_view frame, std::int16_t index);

/// Panasonic: the extension in columns 18 to 22.
std::u16string_view PanasonicExtension(std::u16string_view frame);

/// Whether the frame is STX, the record type ("07" of the Avaya Integral family, "RE|" of FIAS), anything, ETX.
bool IsFramed(std::u16string_view frame, std::u16string_view type);
/// A field of a FIAS record by its key ("|RN"), "" when it is missing or no "|" follows it.
std::u16string_view FiasValue(std::u16string_view frame, std::u16string_view key);

/// STX "08" extension code "1" ETX: the room-state and room-alarm frame of the Avaya Integral family.
/// @param room  blanks around it do not count. More than five digits: the last five; not only digits: "00000".
/// @param code  four characters
std::u16string RoomFrame(std::u16string_view room, std::u16string_view code);
/// STX "07" extension status ETX: the wake-up confirmation frame of the same family.
std::u16string ConfirmationFrame(std::u16string_view room, char16_t status);

}  // namespace vintrel::rx
