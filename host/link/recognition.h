// What a received frame is: the host asks the server's classifiers before it takes a frame for a call record.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/server.h"

namespace vintrel::host {

enum class FrameKind : std::uint8_t { CallRecord, RoomState, RoomAlarm, WakeUpResult, WakeUpSetting, Other };

/// Whether the link carries the records of a property-management system: the server then recognises their room states.
bool SpeaksFias(const Server& server, const Model& model);

class Recognition {
 public:
    Recognition(const Server& server, const Model& model);

    /// @param frame  with its framing characters; it is left as it is
    FrameKind Of(Bstr& frame);

 private:
    short Class(HRESULT (STDMETHODCALLTYPE _ComEventsRX::*classifier)(BSTR*, BSTR*, short*), Bstr& frame);

    const Server& server_;
    Bstr type_;
    bool fias_;
    std::size_t event_length_;
};

}  // namespace vintrel::host
