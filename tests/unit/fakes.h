// Fakes of the platform for unit tests: a clock that stands still and a message loop on virtual time.
#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "platform/ansi_text.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/message_loop.h"

namespace vintrel::testing {

struct FakeMessage : platform::CriticalMessage {
    void Show(std::u16string_view text, std::u16string_view title) override {
        texts.emplace_back(text);
        titles.emplace_back(title);
    }
    std::vector<std::u16string> texts;
    std::vector<std::u16string> titles;
};

struct FakeClock : platform::Clock {
    text::DateTime LocalNow() const override { return now; }
    std::int32_t AheadOfUtc() const override { return ahead_of_utc; }
    std::uint64_t Milliseconds() const override { return milliseconds; }

    text::DateTime now{.year = 2026, .month = 11, .day = 15, .hour = 6, .minute = 0, .second = 0};
    std::int32_t ahead_of_utc = 7200;
    std::uint64_t milliseconds = 1000;
};

/// Waits pass in no time: the clock jumps to the next timer tick or scheduled event.
struct FakeLoop : platform::MessageLoop {
    explicit FakeLoop(FakeClock& clock) : clock_(clock) {}

    /// Something that happens outside, `milliseconds` from now, while messages are processed.
    void Schedule(std::int32_t milliseconds, std::function<void()> event) {
        events_.emplace(clock_.milliseconds + static_cast<std::uint64_t>(milliseconds), std::move(event));
    }

    void ProcessPending() override {
        ++processed;
        RunUntil(clock_.milliseconds);
    }
    void WaitAndProcess(std::int32_t milliseconds) override {
        ++processed;
        std::uint64_t until = clock_.milliseconds + static_cast<std::uint64_t>(milliseconds);
        for (const TimerState& timer : timers_)
            if (timer.running) until = std::min(until, timer.due);
        if (!events_.empty()) until = std::min(until, events_.begin()->first);
        clock_.milliseconds = std::max(clock_.milliseconds, until);
        RunUntil(clock_.milliseconds);
    }
    void StartTimer(platform::Timer timer, std::int32_t milliseconds, std::function<void()> on_tick) override {
        State(timer) = {true, clock_.milliseconds + static_cast<std::uint64_t>(milliseconds), milliseconds,
                        std::move(on_tick)};
    }
    void StopTimer(platform::Timer timer) override { State(timer).running = false; }
    bool TimerRunning(platform::Timer timer) const override { return timers_[static_cast<std::size_t>(timer)].running; }
    std::int32_t Interval(platform::Timer timer) const { return timers_[static_cast<std::size_t>(timer)].interval; }

    int processed = 0;

 private:
    struct TimerState {
        bool running = false;
        std::uint64_t due = 0;
        std::int32_t interval = 0;
        std::function<void()> on_tick;
    };

    TimerState& State(platform::Timer timer) { return timers_[static_cast<std::size_t>(timer)]; }

    void RunUntil(std::uint64_t now) {
        for (TimerState& timer : timers_) {
            if (!timer.running || timer.due > now) continue;
            timer.running = false;
            if (timer.on_tick) timer.on_tick();
        }
        while (!events_.empty() && events_.begin()->first <= now) {
            const std::function<void()> event = std::move(events_.begin()->second);
            events_.erase(events_.begin());
            event();
        }
    }

    FakeClock& clock_;
    std::array<TimerState, platform::kTimerCount> timers_;
    std::multimap<std::uint64_t, std::function<void()>> events_;
};

struct FakeIni : platform::IniStore {
    std::u16string Read(std::u16string_view path, std::u16string_view section, std::u16string_view key) override {
        const auto found = values.find({std::u16string(path), std::u16string(section), std::u16string(key)});
        return found == values.end() ? std::u16string() : found->second;
    }
    void Write(std::u16string_view path, std::u16string_view section, std::u16string_view key,
               std::u16string_view value) override {
        values[{std::u16string(path), std::u16string(section), std::u16string(key)}] = value;
        written.push_back(std::u16string(section) + u"/" + std::u16string(key));
    }
    std::map<std::tuple<std::u16string, std::u16string, std::u16string>, std::u16string> values;
    std::vector<std::u16string> written;
};

struct FakeFiles : platform::Files {
    bool Exists(std::u16string_view path) const override { return contents.contains(std::u16string(path)); }
    std::optional<std::vector<std::byte>> Read(std::u16string_view path, std::uint64_t offset,
                                               std::size_t count) const override {
        const auto found = contents.find(std::u16string(path));
        if (locked || found == contents.end()) return std::nullopt;
        const std::vector<std::byte>& bytes = found->second;
        const std::size_t from = std::min(static_cast<std::size_t>(offset), bytes.size());
        const std::size_t to = std::min(from + count, bytes.size());
        return std::vector(bytes.begin() + static_cast<std::ptrdiff_t>(from),
                           bytes.begin() + static_cast<std::ptrdiff_t>(to));
    }
    std::map<std::u16string, std::vector<std::byte>> contents;
    bool locked = false;
};

/// A code page of 256 characters with the same numbers.
struct FakeAnsi : platform::AnsiText {
    std::string FromText(std::u16string_view text) const override {
        std::string bytes;
        for (const char16_t c : text) bytes += c < 256 ? static_cast<char>(c) : '?';
        return bytes;
    }
    std::u16string ToText(std::string_view bytes) const override {
        std::u16string text;
        for (const char c : bytes) text += static_cast<char16_t>(static_cast<unsigned char>(c));
        return text;
    }
};

}  // namespace vintrel::testing
