// The server's own configuration file "Vintrel.ini" in the documents folder.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/settings.h"

namespace vintrel::platform {

std::u16string IniPath(const Settings& settings);

/// The value without blanks around it and without anything from the first NUL on; "" when it is missing.
std::u16string ReadIniValue(IniStore& ini, std::u16string_view path, std::u16string_view section,
                            std::u16string_view key);
void WriteIniValue(IniStore& ini, std::u16string_view path, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value);

/// Hotel functions are on unless they are switched off explicitly: an empty or missing value is "on".
bool ReadHotelEnabled(IniStore& ini, std::u16string_view path, std::u16string_view section);

/// How a text is kept.
std::u16string AsWritten(std::u16string_view text);
std::u16string UpperCase(std::u16string_view text);
std::u16string LowerCase(std::u16string_view text);

/// A value of the file, and where a family keeps it. One without a setting is read by the family itself.
template <typename Own>
struct IniRow {
    std::u16string_view section;
    std::u16string_view key;
    std::u16string_view default_value;
    std::u16string Own::*setting = nullptr;
    std::u16string (*form)(std::u16string_view) = AsWritten;
};

/// Writes the file with the defaults when the whole file is missing; an existing file is not completed. Then reads it.
template <typename Own, std::size_t Count>
void PrepareIni(const IniRow<Own> (&rows)[Count], Own& own, const Settings& settings, const Files& files,
                IniStore& ini) {
    const std::u16string path = IniPath(settings);
    if (!files.Exists(path))
        for (const IniRow<Own>& row : rows) WriteIniValue(ini, path, row.section, row.key, row.default_value);
    for (const IniRow<Own>& row : rows)
        if (row.setting != nullptr) own.*row.setting = row.form(ReadIniValue(ini, path, row.section, row.key));
}

}  // namespace vintrel::platform
