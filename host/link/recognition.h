// What a received frame is: the host asks the server's classifiers before it takes a frame for a call record.
#pragma once

#include <cstdint>

#include "host/server.h"

namespace vintrel::host {

enum class FrameKind : std::uint8_t {
    CallRecord,
    RoomState,
    RoomAlarm,
    WakeUpResult,
    WakeUpSetting,
    LinkRecord,   ///< of the link to a property-management system: its start, end, signs of life and descriptions
    GuestRecord,  ///< on the same link: a guest arrives, leaves or changes
    Other
};

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
