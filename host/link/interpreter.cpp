#include "host/link/interpreter.h"

#include "host/calls/call_judge.h"

namespace vintrel::host {

Interpreter::Interpreter(const Server& server, const Model& model, const CallLayout& layout)
    : server_(server),
      layout_(layout),
      recognition_(server, model),
      rejected_(server.Text(server.link, &_ComProgramSet::GetComDLERx)),
      type_(model.Code()) {}

Reading Interpreter::Read(std::string_view bytes) {
    frame_.AssignBytes(bytes);
    const FrameKind kind = recognition_.Of(frame_);
    const auto event = [&](auto conversion) {
        const std::u16string_view form = Converted(conversion);
        return Reading{.meaning = form.empty() ? Meaning::Other : Meaning::Event, .kind = kind, .form = form};
    };
    switch (kind) {
        case FrameKind::CallRecord: return ReadCall();
        case FrameKind::RoomState: return event(&_ComEventsRX::GetComConvertRoomStateRX);
        case FrameKind::RoomAlarm: return event(&_ComEventsRX::GetComConvertRoomAlarmRX);
        case FrameKind::WakeUpResult: return event(&_ComEventsRX::GetComConvertConfirmClockRX);
        case FrameKind::WakeUpSetting: return event(&_ComEventsRX::GetComConvertSetClockRX);
        case FrameKind::LinkRecord:
        case FrameKind::GuestRecord: return {.meaning = Meaning::Record, .kind = kind};
        case FrameKind::Other: break;
    }
    return {};
}

Reading Interpreter::ReadCall() {
    const std::u16string_view record = Converted(&_ComEventsRX::GetComConvertStringRX);
    if (record == rejected_) return {.meaning = Meaning::Rejected, .kind = FrameKind::CallRecord};
    const std::string_view why = WhyNoCall(layout_, record);
    return {.meaning = why.empty() ? Meaning::Call : Meaning::Malformed,
            .kind = FrameKind::CallRecord,
            .form = record,
            .why = why};
}

std::u16string_view Interpreter::Converted(HRESULT (STDMETHODCALLTYPE _ComEventsRX::*conversion)(BSTR*, BSTR*, BSTR*)) {
    CheckCall((server_.rx.Get()->*conversion)(type_.InOut(), frame_.InOut(), form_.Out()));
    return form_.View();
}

}  // namespace vintrel::host
