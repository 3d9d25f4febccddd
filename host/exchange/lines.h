// The lines and frames that exchanges write, in their own columns and fields; exchange_records says which belongs to
// which model.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/exchange/records.h"

namespace vintrel::host {

/// @param order  of Y (four digits), y, m and d
std::string Date(const CivilTime& time, std::string_view order, std::string_view mark);

std::string IntegralCall(const SampleCall& call, const CivilTime& time);
std::string Integral2Call(const SampleCall& call, const CivilTime& time);
std::string MitelCall(const SampleCall& call, const CivilTime& time, unsigned serial);
std::string AlcatelCall(const SampleCall& call, const CivilTime& time);
std::string AlgoralCall(const SampleCall& call, const CivilTime& time);
std::string InnovaphoneCall(const SampleCall& call, const CivilTime& time, unsigned serial);
std::string WildixCall(const SampleCall& call, const CivilTime& time, unsigned serial);
/// @param account  the code dialled before the number, which also tells the state of a room
std::string IpOfficeLine(const SampleCall& call, const CivilTime& time, std::string_view account, unsigned serial);
/// @param text  of the number column, which holds whatever the line is about
/// @param call  null for a hotel event
std::string PanasonicLine(unsigned room, std::string_view text, const CivilTime& time, const SampleCall* call);

struct GrandstreamCall {
    std::string from = {};
    std::string to = {};
    std::string context = {};
    std::string name = {};
    std::string channel = {};
    std::string to_channel = {};
    std::string application = {};
    std::string data = {};
    std::string answered_by = {};
    std::string disposition = {};
    std::string direction = {};
    unsigned seconds = 0;
};
std::string GrandstreamLine(const GrandstreamCall& call, const CivilTime& time, unsigned serial);
std::string GrandstreamRecord(const SampleCall& call, const CivilTime& time, unsigned serial);

/// The date and time fields.
std::string FiasTime(const CivilTime& time);
/// Between start and end character.
std::string Framed(const std::string& text);

}  // namespace vintrel::host
