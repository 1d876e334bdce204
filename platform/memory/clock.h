// A clock in memory, for tests of what takes the time.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"

namespace ovaline::platform {

/// Shows the times that it was given: each reading the next of them, and the last one ever after.
class MemoryClock final : public Clock {
public:
    /// `times` has at least one element.
    MemoryClock(std::initializer_list<CalendarTime> times) { set(times); }

    void set(std::initializer_list<CalendarTime> times) {
        times_ = times;
        readings_ = 0;
    }
    void setZoneName(std::u16string name) { zoneName_ = std::move(name); }
    void setDefaultText(std::u16string text) { defaultText_ = std::move(text); }

    /// How often the clock was read since the times were set.
    std::size_t readings() const { return readings_; }

    CalendarTime now() const override {
        const std::size_t reading = readings_++;
        return reading < times_.size() ? times_[reading] : times_.back();
    }
    std::u16string zoneName(const CalendarTime&) const override { return zoneName_; }
    std::u16string defaultText(const CalendarTime&) const override { return defaultText_; }

private:
    std::vector<CalendarTime> times_;
    mutable std::size_t readings_ = 0;  // reading a clock does not change it, but for the tests that count it
    std::u16string zoneName_;
    std::u16string defaultText_ = u"default";
};

}  // namespace ovaline::platform
