#include "host/link/recognition.h"

#include <optional>
#include <string_view>

namespace vintrel::host {
namespace {

constexpr std::u16string_view kFiasRoomState = u"\2RE|RN1|RS1|\3";
/// The length that the server reports for models whose records and events do not differ by length.
constexpr std::size_t kAnyLength = 9999;

std::optional<FrameKind> FiasKind(std::u16string_view frame) {
    struct Row {
        std::u16string_view type;
        FrameKind kind;
    };
    static constexpr Row kRows[] = {
        {u"PS", FrameKind::CallRecord},  {u"LS", FrameKind::LinkRecord},  {u"LA", FrameKind::LinkRecord},
        {u"LE", FrameKind::LinkRecord},  {u"LD", FrameKind::LinkRecord},  {u"LR", FrameKind::LinkRecord},
        {u"DR", FrameKind::LinkRecord},  {u"DS", FrameKind::LinkRecord},  {u"DE", FrameKind::LinkRecord},
        {u"GI", FrameKind::GuestRecord}, {u"GO", FrameKind::GuestRecord}, {u"GC", FrameKind::GuestRecord},
    };
    if (frame.size() < 4) return std::nullopt;
    const std::u16string_view type = frame.substr(1, 2);  // behind the start character
    const bool whole = frame[3] == u'|' || frame[3] == u'\3';
    for (const Row& row : kRows)
        if (whole && row.type == type) return row.kind;
    return std::nullopt;
}

}  // namespace

bool SpeaksFias(const Server& server, const Model& model) {
    Bstr type(model.Code());
    Bstr frame(kFiasRoomState);
    return server.Value<short>(server.rx, &_ComEventsRX::GetComIsRoomState, type.InOut(), frame.InOut()) != 0;
}

Recognition::Recognition(const Server& server, const Model& model)
    : server_(server),
      type_(model.Code()),
      fias_(SpeaksFias(server, model)),
      event_length_(static_cast<std::size_t>(model.Value(server.gdv, &_ComGdvFilter::GetGdvRealClockLen))) {}

short Recognition::Class(HRESULT (STDMETHODCALLTYPE _ComEventsRX::*classifier)(BSTR*, BSTR*, short*), Bstr& frame) {
    short answer = 0;
    CheckCall((server_.rx.Get()->*classifier)(type_.InOut(), frame.InOut(), &answer));
    return answer;
}

FrameKind Recognition::Of(Bstr& frame) {
    if (fias_) {
        // Records of this link tell themselves apart by their type, and only postings are calls.
        if (const std::optional<FrameKind> kind = FiasKind(frame.View())) return *kind;
    } else if (frame.View().size() > event_length_) {
        return FrameKind::CallRecord;
    }
    // The alarm classifier's 2 is a hotel frame of another kind.
    if (Class(&_ComEventsRX::GetComIsRoomAlarm, frame) == 1) return FrameKind::RoomAlarm;
    if (Class(&_ComEventsRX::GetComIsRoomState, frame) != 0) return FrameKind::RoomState;
    if (Class(&_ComEventsRX::GetComIsConfirmClock, frame) != 0) return FrameKind::WakeUpResult;
    if (Class(&_ComEventsRX::GetComIsSetClock, frame) != 0) return FrameKind::WakeUpSetting;
    return event_length_ == kAnyLength ? FrameKind::CallRecord : FrameKind::Other;
}

}  // namespace vintrel::host
