#include "host/capture/evidence.h"

#include <algorithm>

namespace vintrel::host {
namespace {

double Share(std::uint64_t part, std::uint64_t whole) {
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

}  // namespace

bool IsRecent(unsigned day, unsigned month, unsigned year, const CivilTime& now) {
    constexpr unsigned kCentury = 2000;
    constexpr unsigned kYears = 10;
    // Days counted as in months of 31: good enough to tell yesterday from tomorrow.
    const auto days = [](unsigned y, unsigned m, unsigned d) { return (y * 12 + m) * 31 + d; };
    const unsigned call = days(kCentury + year, month, day);
    const unsigned today = days(now.year, now.month, now.day);
    return call <= today + 1 && call + kYears * 12 * 31 >= today;
}

unsigned Fit(const Evidence& evidence) {
    if (evidence.Good() == 0) return 0;
    const double of_bytes = Share(evidence.used, evidence.bytes);
    const double of_frames = Share(evidence.Good(), evidence.Good() + evidence.Bad());
    const double dated = 1 - Share(evidence.old_dates, 2 * evidence.Good());
    const double fit = 100 * of_bytes * of_frames * dated;
    return fit < 1 ? 1 : static_cast<unsigned>(fit);
}

bool Convinces(const Evidence& evidence) {
    return evidence.Good() > evidence.Bad() && (evidence.Good() >= 2 || Fit(evidence) > 50);
}

void Rank(std::vector<Evidence>& models) {
    std::sort(models.begin(), models.end(), [](const Evidence& a, const Evidence& b) {
        if (Convinces(a) != Convinces(b)) return Convinces(a);
        return Fit(a) == Fit(b) ? a.code < b.code : Fit(a) > Fit(b);
    });
}

std::string Reasons(const Evidence& evidence) {
    std::string text;
    const auto say = [&](std::string_view words) { text.append(text.empty() ? "" : "; ").append(words); };
    const auto count = [](std::uint64_t number, std::string_view what) {
        return std::to_string(number).append(" ").append(what).append(number == 1 ? "" : "s");
    };
    if (evidence.calls > 0) {
        say(count(evidence.calls, "call"));
        text += evidence.longest == evidence.shortest
                    ? " of " + count(evidence.longest, "byte")
                    : " of " + std::to_string(evidence.shortest) + " to " + count(evidence.longest, "byte");
        if (evidence.old_dates == 0)
            text += ", dates of the last years";
        else
            text += ", " + std::to_string(evidence.old_dates) + " with a date long ago or to come";
    }
    if (evidence.events > 0) say(count(evidence.events, "hotel event and link record"));
    if (evidence.rejected > 0) say(count(evidence.rejected, "frame") + " known as no call");
    if (evidence.malformed > 0) say(std::to_string(evidence.malformed) + " malformed: " + evidence.first_why);
    if (evidence.other > 0) say(count(evidence.other, "frame") + " unknown");
    if (evidence.used < evidence.bytes)
        say(std::to_string(static_cast<unsigned>(100 * Share(evidence.used, evidence.bytes))) + " % of the bytes used");
    return text;
}

}  // namespace vintrel::host
