// The clock service: what time it is here, and how the platform names it.
#pragma once

#include <cstdint>
#include <string>

namespace ovaline::platform {

/// A date of the proleptic Gregorian calendar and the time of day on the wall clock. Without a zone: the same fields
/// are the same text, whatever daylight saving does.
struct CalendarTime {
    std::int32_t year = 0;  ///< may lie outside 100 to 9999, where no text is made of it
    std::int32_t month = 1;
    std::int32_t day = 1;
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;  ///< 0 to 59; 60 in a leap second where the platform counts it

    bool operator==(const CalendarTime&) const = default;
};

/// A backend answers from any thread and changes nothing of the process, its locale least of all.
class Clock {
public:
    Clock() = default;
    virtual ~Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    /// The current local time in whole seconds, from a 64-bit count, read anew at each call. A time
    /// that the platform cannot convert has the largest year, which no offset in days brings back.
    virtual CalendarTime now() const = 0;

    /// Name of the local zone as it is in effect at `local`, standard or daylight-saving; empty when unknown.
    virtual std::u16string zoneName(const CalendarTime& local) const = 0;

    /// `local` as the user's own locale writes date and time by default. The locale is the user's, not the one that the
    /// process has set. At most 255 code units; empty where the platform fails.
    virtual std::u16string defaultText(const CalendarTime& local) const = 0;
};

/// The clock of the platform that this module was built for; one for the whole process.
const Clock& systemClock();

}  // namespace ovaline::platform
