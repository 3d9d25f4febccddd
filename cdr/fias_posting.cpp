#include "cdr/fias_posting.h"

#include <optional>

#include "server/scan.h"

namespace vintrel::cdr {
namespace {

using server::BlankPad;
using server::Left;
using server::Mid;
using server::Right;

/// "" for a field that is missing; nothing, a fault, for one that no "|" follows.
using Value = std::optional<std::u16string_view>;

/// The fields of a posting as server::GetPipeValue finds them, in one pass over the record.
struct Posting {
    explicit Posting(std::u16string_view record);

    bool describes_link = false;  ///< "LD|" or "LR|" anywhere
    Value room{u""};
    Value dialled{u""};
    Value pulses{u""};
    Value duration{u""};
    Value date{u""};
    Value time{u""};
};

Posting::Posting(std::u16string_view record) {
    struct Field {
        char16_t key[2];
        Value* value;  ///< null when the field has been found: of equal keys the first counts
    };
    Field fields[] = {{{u'R', u'N'}, &room},     {{u'D', u'D'}, &dialled}, {{u'M', u'P'}, &pulses},
                      {{u'D', u'U'}, &duration}, {{u'D', u'A'}, &date},    {{u'T', u'I'}, &time}};
    const char16_t* const end = record.data() + record.size();
    for (const char16_t* bar = server::FindCharacter(record.data(), end, u'|'); bar != end;) {
        if (bar - record.data() >= 2 && bar[-2] == u'L' && (bar[-1] == u'D' || bar[-1] == u'R')) describes_link = true;
        const char16_t* const next = server::FindCharacter(bar + 1, end, u'|');
        for (Field& field : fields) {
            if (next - bar < 3 || bar[1] != field.key[0] || bar[2] != field.key[1] || !field.value) continue;
            *field.value = next == end ? Value() : std::u16string_view(bar + 3, next);
            field.value = nullptr;
        }
        bar = next;
    }
}

}  // namespace

Outcome ConvertFiasPosting(std::u16string_view record, GdvRecord& gdv) {
    const Posting posting(record);
    if (posting.describes_link) return Outcome::Rejected;

    AssignUnreported(gdv);
    Assign<kLine>(gdv, u"00001");
    // A field that no "|" follows fails, and its slots stay empty.
    if (posting.room) AssignNumberValue<kUser>(gdv, *posting.room);
    if (posting.dialled) Assign<kNumber>(gdv, BlankPad(*posting.dialled, 16));
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

}  // namespace vintrel::cdr
