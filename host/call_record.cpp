#include "host/call_record.h"

#include <algorithm>

namespace vintrel::host {
namespace {

using Operation = HRESULT (STDMETHODCALLTYPE _ComGdvFilter::*)(short*);
struct Accessors {
    Operation start;
    Operation length;  ///< the server calls it "Stop", and means how many
};

// In the order of CallField.
constexpr Accessors kAccessors[kCallFieldCount] = {
    {&_ComGdvFilter::GetGdvLineLenStart, &_ComGdvFilter::GetGdvLineLenStop},
    {&_ComGdvFilter::GetGdvUserLenStart, &_ComGdvFilter::GetGdvUserLenStop},
    {&_ComGdvFilter::GetGdvNumberLenStart, &_ComGdvFilter::GetGdvNumberLenStop},
    {&_ComGdvFilter::GetGdvUserCodeLenStart, &_ComGdvFilter::GetGdvUserCodeLenStop},
    {&_ComGdvFilter::GetGdvInfoLenStart, &_ComGdvFilter::GetGdvInfoLenStop},
    {&_ComGdvFilter::GetGdvTypeLenStart, &_ComGdvFilter::GetGdvTypeLenStop},
    {&_ComGdvFilter::GetGdvUnityLenStart, &_ComGdvFilter::GetGdvUnityLenStop},
    {&_ComGdvFilter::GetGdvDurationSLenStart, &_ComGdvFilter::GetGdvDurationSLenStop},
    {&_ComGdvFilter::GetGdvDateDLenStart, &_ComGdvFilter::GetGdvDateDLenStop},
    {&_ComGdvFilter::GetGdvDateMLenStart, &_ComGdvFilter::GetGdvDateMLenStop},
    {&_ComGdvFilter::GetGdvDateYLenStart, &_ComGdvFilter::GetGdvDateYLenStop},
    {&_ComGdvFilter::GetGdvTimeHLenStart, &_ComGdvFilter::GetGdvTimeHLenStop},
    {&_ComGdvFilter::GetGdvTimeMLenStart, &_ComGdvFilter::GetGdvTimeMLenStop},
    {&_ComGdvFilter::GetGdvPTYNumberLenStart, &_ComGdvFilter::GetGdvPTYNumberLenStop},
    {&_ComGdvFilter::GetGdvMacAddressLenStart, &_ComGdvFilter::GetGdvMacAddressLenStop},
};

std::size_t Ask(const Server& server, Operation operation) {
    return static_cast<std::size_t>(server.Value<short>(server.gdv, operation));
}

/// Three fields with a mark between them, without a heap allocation.
void WriteJoined(std::u16string_view first, std::u16string_view second, std::u16string_view third, char16_t mark,
                 RecordWriter& writer) {
    std::array<char16_t, 16> text{};
    char16_t* end = text.data();
    const auto add = [&](std::u16string_view part) {
        end = std::copy_n(part.data(), std::min<std::size_t>(part.size(), 4), end);
    };
    add(first);
    *end++ = mark;
    add(second);
    if (!third.empty()) {
        *end++ = mark;
        add(third);
    }
    writer.Cell(std::u16string_view(text.data(), static_cast<std::size_t>(end - text.data())));
}

}  // namespace

CallLayout::CallLayout(const Server& server) : body_length_(Ask(server, &_ComGdvFilter::GetGdvRealStringLenStop)) {
    for (std::size_t i = 0; i < kCallFieldCount; ++i)
        places_[i] = {Ask(server, kAccessors[i].start), Ask(server, kAccessors[i].length)};
}

std::vector<Column> CallLayout::Columns() const {
    constexpr std::size_t kKind = 6;
    constexpr std::size_t kDate = 8;
    constexpr std::size_t kTime = 5;
    return {{"Date", kDate},
            {"Time", kTime},
            {"Call", kKind},
            {"Type", Length(CallField::Type)},
            {"User", Length(CallField::User)},
            {"Line", Length(CallField::Line)},
            {"Number", Length(CallField::Number)},
            {"Duration", Length(CallField::Duration)},
            {"Unity", Length(CallField::Unity)},
            {"UserCode", Length(CallField::UserCode)},
            {"Info", Length(CallField::Info)},
            {"PTYNumber", Length(CallField::PtyNumber)},
            {"MacAddress", Length(CallField::MacAddress)}};
}

std::string_view CallKind(std::u16string_view type) {
    if (type == u"1") return "out";
    if (type == u"0") return "in";
    if (type == u"7") return "missed";
    if (type == u"3") return "out+";
    if (type == u"2") return "in+";
    return "other";
}

void WriteCall(const CallLayout& layout, std::u16string_view record, RecordWriter& writer) {
    const auto cut = [&](CallField field) { return layout.Cut(record, field); };
    WriteJoined(cut(CallField::Day), cut(CallField::Month), cut(CallField::Year), u'.', writer);
    WriteJoined(cut(CallField::Hour), cut(CallField::Minute), {}, u':', writer);
    writer.Cell(CallKind(cut(CallField::Type)));
    for (const CallField field :
         {CallField::Type, CallField::User, CallField::Line, CallField::Number, CallField::Duration, CallField::Unity,
          CallField::UserCode, CallField::Info, CallField::PtyNumber, CallField::MacAddress})
        writer.Cell(cut(field));
}

}  // namespace vintrel::host
