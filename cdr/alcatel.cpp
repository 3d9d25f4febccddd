#include "cdr/alcatel.h"

namespace vintrel::cdr {

using server::Mid;
using server::Trim;

Outcome ConvertAlcatel(std::u16string_view record, GdvRecord& gdv) {
    const bool incoming = Trim(Mid(record, 14, 3)) == u"<--";

    AssignUnreported(gdv);
    AssignZeroPadded<kLine>(gdv, Mid(record, 19, 3));
    AssignZeroPadded<kUser>(gdv, Mid(record, 9, 5));
    AssignReplaced<kNumber>(gdv, Mid(record, 61, 16), u'.', u' ');
    const std::u16string_view user_code = Trim(Mid(record, 107, 16), u'.');
    AssignZeroPadded<kUserCode>(gdv, user_code);
    if (!user_code.empty()) gdv.Replace<kUserCode>(kUserCode.Width(), u'.', u' ');
    AssignNumberValue<kUnity>(gdv, Mid(record, 46, 5));
    AssignDuration(gdv, Mid(record, 37, 2), Mid(record, 40, 2), Mid(record, 43, 2));
    Assign<kType>(gdv, !incoming                               ? kTypeOutgoing
                       : gdv.Slot<kDurationS>() == kNoDuration ? kTypeNotAnswered
                                                               : kTypeIncoming);
    Assign<kDateD>(gdv, Mid(record, 22, 2));
    Assign<kDateM>(gdv, Mid(record, 25, 2));
    Assign<kDateY>(gdv, Mid(record, 28, 2));
    Assign<kTimeH>(gdv, Mid(record, 31, 2));
    Assign<kTimeM>(gdv, Mid(record, 34, 2));
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
