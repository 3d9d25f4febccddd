#include "exchanges/fias/fias.h"

#include <optional>

#include "records/steps.h"
#include "text/scan.h"

namespace vintrel::exchanges::fias {

using namespace records;
using namespace text;

namespace {

/// Nothing, a fault, for a field that no "|" follows.
using Value = std::optional<std::u16string_view>;
constexpr std::u16string_view kMissing;

/// The fields of a posting as GetPipeValue finds them, in one pass over the record.
struct Posting {
    explicit Posting(std::u16string_view record);
    Value* Field(char16_t first, char16_t second);

    bool describes_link = false;  ///< "LD|" or "LR|" anywhere
    Value room{kMissing};
    Value dialled{kMissing};
    Value pulses{kMissing};
    Value duration{kMissing};
    Value date{kMissing};
    Value time{kMissing};
};

/// Null for a field that makes no call record.
Value* Posting::Field(char16_t first, char16_t second) {
    switch (Pair(first, second)) {
        case Pair(u'R', u'N'): return &room;
        case Pair(u'D', u'D'): return &dialled;
        case Pair(u'M', u'P'): return &pulses;
        case Pair(u'D', u'U'): return &duration;
        case Pair(u'D', u'A'): return &date;
        case Pair(u'T', u'I'): return &time;
        default: return nullptr;
    }
}

Posting::Posting(std::u16string_view record) {
    const char16_t* const end = record.data() + record.size();
    const char16_t* bar = nullptr;  // in front of the field
    const auto close_at = [&](const char16_t* at) {
        Value* const field = bar != nullptr && at - bar > 2 ? Field(bar[1], bar[2]) : nullptr;
        const bool first = field != nullptr && *field && (*field)->data() == kMissing.data();
        if (first) *field = at == end ? Value() : std::u16string_view(bar + 3, at);
    };
    FindEach(record.data(), end, scan::Is(u'|'), [&](const char16_t* at) {
        if (at - record.data() >= 2 && at[-2] == u'L' && (at[-1] == u'D' || at[-1] == u'R')) describes_link = true;
        close_at(at);
        bar = at;
        return true;
    });
    close_at(end);
}

}  // namespace

Outcome Fias::ConvertCallRecord(InOutText& record, GdvRecord& gdv) {
    const Posting posting(record.View());
    if (posting.describes_link) return Outcome::Rejected;

    AssignUnreported(gdv);
    Assign<kLine>(gdv, u"00001");
    // A field that no "|" follows fails, and its slots stay empty.
    if (posting.room) AssignNumberValue<kUser>(gdv, *posting.room);
    if (posting.dialled) AssignBlankPadded<kNumber>(gdv, *posting.dialled);
    Assign<kUserCode>(gdv, kNoUserCode);
    Assign<kType>(gdv, kTypeOutgoing);
    if (posting.pulses) AssignNumberValue<kUnity>(gdv, *posting.pulses);
    if (posting.duration) AssignNumberValue<kDurationS>(gdv, *posting.duration);
    if (posting.date) {  // year, month, day
        Assign<kDateD>(gdv, Right(*posting.date, 2));
        Assign<kDateM>(gdv, Mid(*posting.date, 3, 2));
        Assign<kDateY>(gdv, Left(*posting.date, 2));
    }
    if (posting.time) {
        Assign<kTimeH>(gdv, Left(*posting.time, 2));
        Assign<kTimeM>(gdv, Mid(*posting.time, 3, 2));
    }
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace vintrel::exchanges::fias
