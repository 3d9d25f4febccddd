#include "platform/vintrel_ini.h"

#include "text/control_characters.h"
#include "text/text.h"
#include "text/word.h"

namespace vintrel::platform {

std::u16string IniPath(const Settings& settings) { return settings.DocumentsDir + u"\\Vintrel.ini"; }

std::u16string ReadIniValue(IniStore& ini, std::u16string_view path, std::u16string_view section,
                            std::u16string_view key) {
    const std::u16string value = ini.Read(path, section, key);
    const std::u16string_view trimmed = text::Trim(value);
    return std::u16string(text::Trim(trimmed.substr(0, trimmed.find(text::kNul))));
}

void WriteIniValue(IniStore& ini, std::u16string_view path, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) {
    ini.Write(path, section, key, value);
}

bool ReadHotelEnabled(IniStore& ini, std::u16string_view path, std::u16string_view section) {
    return !text::UpperEquals<u"FALSE">(ReadIniValue(ini, path, section, u"hotel_enabled"));
}

std::u16string AsWritten(std::u16string_view text) { return std::u16string(text); }
std::u16string UpperCase(std::u16string_view text) { return text::Upper(text); }
std::u16string LowerCase(std::u16string_view text) { return text::Lower(text); }

}  // namespace vintrel::platform
