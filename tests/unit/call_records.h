// A link of one exchange for tests of converters, and its call records as a person reads them.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "printing.h"
#include "server/call_records.h"
#include "server/gdv_filter.h"
#include "test_server.h"

namespace vintrel::testing {

/// "line user number code spare/info/type unity duration d.m.y h:m pty" of a record, and its MAC address where it
/// has one; blanks trimmed and empty columns as "-"; "rejected" for the marker; a record of another length as it
/// stands.
inline std::string Fields(std::u16string_view record) {
    using namespace server;  // NOLINT(google-build-using-namespace): the 34 accessors
    if (record == u"\x10") return "rejected";
    if (record.size() != static_cast<std::size_t>(GetGdvRealStringLen())) return "short: " + Shown(record);
    const auto body = text::Mid(record, GetGdvRealStringLenStart(), GetGdvRealStringLenStop());
    const auto field = [&](std::int16_t start, std::int16_t length) {
        const std::string text = Shown(text::Trim(text::Mid(body, start, length)));
        return text.empty() ? "-" : text;
    };
    const std::string mac = field(GetGdvMacAddressLenStart(), GetGdvMacAddressLenStop());
    return field(GetGdvLineLenStart(), GetGdvLineLenStop()) + " " + field(GetGdvUserLenStart(), GetGdvUserLenStop()) +
           " " + field(GetGdvNumberLenStart(), GetGdvNumberLenStop()) + " " +
           field(GetGdvUserCodeLenStart(), GetGdvUserCodeLenStop()) + " " + field(31, 1) + "/" +
           field(GetGdvInfoLenStart(), GetGdvInfoLenStop()) + "/" + field(GetGdvTypeLenStart(), GetGdvTypeLenStop()) +
           " " + field(GetGdvUnityLenStart(), GetGdvUnityLenStop()) + " " +
           field(GetGdvDurationSLenStart(), GetGdvDurationSLenStop()) + " " +
           field(GetGdvDateDLenStart(), GetGdvDateDLenStop()) + "." +
           field(GetGdvDateMLenStart(), GetGdvDateMLenStop()) + "." +
           field(GetGdvDateYLenStart(), GetGdvDateYLenStop()) + " " +
           field(GetGdvTimeHLenStart(), GetGdvTimeHLenStop()) + ":" +
           field(GetGdvTimeMLenStart(), GetGdvTimeMLenStop()) + " " +
           field(GetGdvPTYNumberLenStart(), GetGdvPTYNumberLenStop()) + (mac == "-" ? "" : " " + mac);
}

/// One model's link: what conversions remember stays from record to record.
class Link : public TestServer {
 public:
    explicit Link(std::u16string_view type) : type_(type) {}

    std::u16string Raw(std::u16string_view text) {
        text::InOutText record(text);
        const records::GdvRecord converted = server::GetComConvertStringRX(type_, record, exchanges, message);
        caller_text = record.Front();
        caller_text += record.View();
        return std::u16string(converted.View());
    }
    std::string Convert(std::u16string_view text) { return Fields(Raw(text)); }

    std::u16string caller_text;  ///< the caller's variable after the last conversion

 private:
    std::u16string type_;
};

using Texts = std::initializer_list<std::pair<std::size_t, std::u16string_view>>;

/// A record with other texts at some positions, counted from 1.
inline std::u16string With(std::u16string record, Texts texts) {
    for (const auto& [position, text] : texts) {
        if (record.size() < position - 1 + text.size()) record.resize(position - 1 + text.size(), u' ');
        record.replace(position - 1, text.size(), text);
    }
    return record;
}

/// A call that differs by some texts, and the fields that it is read as; one row per case.
inline void ExpectFields(std::u16string_view type, const std::u16string& call,
                         std::initializer_list<std::pair<Texts, const char*>> rows) {
    for (const auto& [texts, fields] : rows)
        EXPECT_EQ(Link(type).Convert(With(call, texts)), fields) << Shown(With(call, texts));
}

}  // namespace vintrel::testing
