// What the C library makes of the fields of a wall clock.
#pragma once

#include <ctime>

#include "platform/clock.h"

namespace ovaline::platform {

/// Seconds since the epoch of a local time, in the process's zone.
inline std::time_t secondsOf(const CalendarTime& local) {
    std::tm fields{};
    fields.tm_year = local.year - 1900;
    fields.tm_mon = local.month - 1;
    fields.tm_mday = local.day;
    fields.tm_hour = local.hour;
    fields.tm_min = local.minute;
    fields.tm_sec = local.second;
    fields.tm_isdst = -1;
    return std::mktime(&fields);
}

}  // namespace ovaline::platform
