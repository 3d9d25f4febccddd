// What a frame says: the server recognises and converts it, and what it converts is judged.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/calls/call_layout.h"
#include "host/link/recognition.h"
#include "host/server.h"

namespace vintrel::host {

enum class Meaning : std::uint8_t {
    Call,       ///< `form` is its record, `kind` CallRecord
    Event,      ///< of the hotel: `form` is its normalised form, `kind` says which
    Record,     ///< about the link or a guest, on the link of a property-management system; no form
    Rejected,   ///< the server knows it, and it is no call to be charged
    Malformed,  ///< a call record of another layout, or cut on the line: `why` says what is wrong
    Other,      ///< nothing that the model knows
};

struct Reading {
    Meaning meaning = Meaning::Other;
    FrameKind kind = FrameKind::Other;
    std::u16string_view form = {};  ///< valid until the next frame is read
    std::string_view why = {};
};

class Interpreter {
 public:
    /// @param layout  must outlive the interpreter
    Interpreter(const Server& server, const Model& model, const CallLayout& layout);

    /// @param bytes  of a frame with its framing characters
    Reading Read(std::string_view bytes);
    /// The frame that was read last.
    Bstr& Frame() { return frame_; }

 private:
    Reading ReadCall();
    std::u16string_view Converted(HRESULT (STDMETHODCALLTYPE _ComEventsRX::*conversion)(BSTR*, BSTR*, BSTR*));

    const Server& server_;
    const CallLayout& layout_;
    Recognition recognition_;
    std::u16string rejected_;
    Bstr type_;
    Bstr frame_;
    Bstr form_;
};

}  // namespace vintrel::host
