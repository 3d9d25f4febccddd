// The values of an innovaphone gateway record, "event=A:Rel&time=876&...", read once per record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vintrel::exchanges::innovaphone {

/// The keys that call records are made of, on the wire "src_if=" and so on.
enum class RecordKey : std::uint8_t {
    Ref,
    Date,
    Event,
    SrcIf,
    DstIf,
    SrvId,
    SrcCgpn,
    SrcDgpn,
    SrcCdpn,
    DstCgpn,
    DstCdpn,
    DiscTime,
    ConnectTime,
};

class RecordKeys {
 public:
    /// A key stands at the start of the record, after "&" or after a blank (a syslog header may come first); the first
    /// of equal keys counts. A value ends at "&", a blank or the line's end.
    explicit RecordKeys(std::u16string_view record);

    /// Without the blanks around it, which the exchange writes as "+"; inside the value "+" is left. "" for a key that
    /// the record does not have.
    std::u16string_view operator[](RecordKey key) const { return values_[static_cast<std::size_t>(key)]; }
    /// Whether "</cdr>" stands anywhere: the record is of another kind.
    bool OfTheLogStream() const { return of_the_log_stream_; }

 private:
    static constexpr std::size_t kCount = 13;

    std::array<std::u16string_view, kCount> values_;
    bool of_the_log_stream_ = false;
};

}  // namespace vintrel::exchanges::innovaphone
