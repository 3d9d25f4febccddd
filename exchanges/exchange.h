// What an exchange answers: the facts of a model, one row of its family's table, and what a family does. What a row or
// a family leaves out has the answer of an exchange that has no such thing, so that a family writes down only what is
// so.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "exchanges/orders.h"
#include "exchanges/surroundings.h"
#include "records/gdv_record.h"
#include "text/control_characters.h"
#include "text/inline_text.h"
#include "text/text.h"

namespace vintrel::exchanges {

// Two answers that are no text of the link: the model has no character-level message of that kind, ...
inline constexpr std::u16string_view kNoMessage = u"@";
// ... and the server itself drives it, over HTTP or SOAP.
inline constexpr std::u16string_view kDriven = u"\u00A3";

/// The hotel services that the host may offer: 1 = offered. `date` is the wake-up date level, 0 to 2.
struct Services {
    std::int16_t room_state = 0, clock = 0, central = 0, call_list = 0;
    std::int16_t check_in_out = 0, name = 0, clock_date = 0, room_alarm = 0;
};

/// How the host runs the link, in the host's own codes; without a word, a serial line of text lines.
struct Link {
    std::int16_t port_ready = 1, dtr_time = 1;
    std::int16_t end_read = 2;  ///< how the end of a frame is recognised
    std::int16_t multi_duration = 0, read_buffer = 0;
    std::int16_t connection = 0;  ///< 0 serial, 1 lines of CSV, 2 network
    std::int16_t winsock = 0;     ///< 2 = the server itself drives the exchange over HTTP or SOAP
    std::int16_t direction = 0;   ///< who connects
    std::int16_t connect = 0;     ///< the way of connecting
    std::int32_t reconnect = 0;
    std::int32_t check_in = 0;
    std::int32_t ini = 0;  ///< sections of its own in "Vintrel.ini"
};

/// How the link is opened. The exchange's texts are matched by the host, the host's are sent as they stand.
struct Login {
    std::u16string_view request = kNoMessage, confirm{};  ///< of the exchange
    std::u16string_view host_request{}, host_confirm{};   ///< of the host
    std::u16string_view id_request{}, id_confirm{};       ///< the dialogue: what the exchange asks ...
    std::u16string_view pw_request{}, pw_confirm{};       ///< ... and what the host answers
    std::u16string_view id_request2{}, id_confirm2{};     ///< and once more
    std::u16string_view pw_request2{}, pw_confirm2{};
    std::u16string_view download{};
};

/// How the host cuts what arrives into frames, and what it answers to one.
struct Framing {
    std::int32_t length = 0;  ///< 0 = frames end at the end string only
    std::u16string_view end = text::kCrLf, end2{};
    std::u16string_view acknowledge = kNoMessage;
    std::int16_t repeat_error = 1;
    std::int16_t columns = 0, space = 0, comma = 0;  ///< of a separated record
    std::u16string_view confirm_record{}, reject_record{};
};

/// How the host sends commands: whether it waits for a confirmation, the pauses meanwhile and otherwise, in its own
/// unit, and what stands before and behind a command.
struct Pacing {
    std::int16_t wait_confirm = 0;
    std::int32_t interval_with_wait = 1, interval = 0;
    std::int16_t dtr_rts = 0;
    std::u16string_view before{}, after{};
};

/// How the two records of a transferred call are paired.
struct TransferRule {
    std::int32_t milliseconds = 5000;  ///< how long a leg waits for its other half
    int minutes = 1;                   ///< how far the times may differ
    std::int64_t duration = 2;         ///< how far the durations may differ, in the units of the records
};

class Exchange;

/// An exchange model: a row of its family's table.
struct Model {
    std::u16string_view code;  ///< the PABX type code, nine characters
    std::u16string_view name;
    std::unique_ptr<Exchange> (*make)(const Model&, const Surroundings&);
    Services services{};
    Link link{};
    Login login{};
    Framing framing{};
    Pacing pacing{};
    TransferRule transfer{};
    std::int16_t raw_length = 0;  ///< which the host applies to raw records; 9999: records of any length
};

/// A room state in a received frame.
struct RoomState {
    enum Kind : std::uint8_t { None, Clean, NotClean } kind = None;
    std::u16string_view room{};  ///< as the frame has it
};

/// A room alarm in a received frame.
struct RoomAlarm {
    enum Kind : std::uint8_t { No = 0, Yes = 1, OtherFrame = 2 } kind = No;
    std::u16string_view room{};
};

/// The result of a wake-up call in a received frame.
struct WakeUpResult {
    enum Kind : std::uint8_t { No = 0, Yes = 1, SecondKind = 2 } kind = No;
    enum Status : char16_t { Nothing = 0, Started = u'0', Answered = u'1', NotAnswered = u'2' } status = Nothing;
    std::u16string_view room{};
};

/// A wake-up call that a guest has set or cleared on the telephone: fields of the host's string, joined in this order.
struct SetClock {
    text::InlineText<7> command;  ///< with the extension
    text::InlineText<1> mode;
    text::InlineText<4> time;
    text::InlineText<4> date;
};

/// One model of a server, with all that it remembers.
class Exchange {
 public:
    Exchange(const Model& model, const Surroundings& surroundings) : model_(model), server_(surroundings) {}
    virtual ~Exchange() = default;
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    const Model& Facts() const { return model_; }

    // Preparation. Serial and plain TCP links need none.

    /// Reads the configuration and prepares what the server itself drives.
    /// @throws OperationError  and then every setting is as it was.
    virtual void Initialize() {}
    /// The second stage.
    virtual void InitializeSec() { Initialize(); }
    virtual void UnInitialize() {}
    /// Whether the system may still call into the server although no object is left.
    virtual bool InUse() const { return false; }

    // Orders. The answer is the command for the host to send, or the verdict of an exchange that the server drives; ""
    // for an order that the exchange does not know.

    virtual std::u16string WakeUp(const WakeUpOrder&) { return {}; }
    virtual std::u16string CheckIn(const CheckInOrder&) { return {}; }
    virtual std::u16string CheckOut(const CheckOutOrder&) { return {}; }
    virtual std::u16string UserName(std::int32_t /*room*/, text::InOutText& /*name*/) { return {}; }

    // Received frames, with their framing characters.

    virtual RoomState RoomStateOf(std::u16string_view /*frame*/) const { return {}; }
    virtual RoomAlarm RoomAlarmOf(std::u16string_view /*frame*/) const { return {}; }
    virtual WakeUpResult WakeUpResultOf(std::u16string_view /*frame*/) const { return {}; }
    virtual bool IsSetClock(std::u16string_view /*frame*/) const { return false; }
    /// Of any frame, whether or not it is one.
    virtual std::optional<SetClock> SetClockOf(std::u16string_view /*frame*/) const { return std::nullopt; }
    /// Whether these frames stand in the host's form already.
    virtual bool SpeaksTheHostsForm() const { return false; }

    // Call records.

    /// @param record  some exchanges cut the text of the call out of it.
    virtual records::Outcome ConvertCallRecord(text::InOutText& record, records::GdvRecord& gdv) = 0;

 protected:
    /// What the server gives to its exchanges.
    const Surroundings& Server() const { return server_; }

 private:
    const Model& model_;
    const Surroundings& server_;
};

/// For the rows: makes the exchange of a family, of the kind that the traits say.
template <typename Family, auto... Traits>
std::unique_ptr<Exchange> Make(const Model& model, const Surroundings& surroundings) {
    return std::make_unique<Family>(model, surroundings, Traits...);
}

}  // namespace vintrel::exchanges
