#include "platform/clock.h"

#include "platform/com.h"
#include "platform/windows/text.h"

namespace ovaline::platform {

namespace {

constexpr std::int32_t kFirstSystemYear = 1601;  // where the platform's calendar begins
constexpr std::int32_t kCalendarCycle = 400;     // years after which dates fall on the same days of the week
constexpr std::int32_t kUsualCycle = 2000;

SYSTEMTIME systemTimeOf(const CalendarTime& time, std::int32_t year) {
    SYSTEMTIME fields{};
    fields.wYear = static_cast<WORD>(year);
    fields.wMonth = static_cast<WORD>(time.month);
    fields.wDay = static_cast<WORD>(time.day);
    fields.wHour = static_cast<WORD>(time.hour);
    fields.wMinute = static_cast<WORD>(time.minute);
    fields.wSecond = static_cast<WORD>(time.second);
    return fields;
}

/// Minutes from `from` to `to`.
std::int64_t minutesBetween(const SYSTEMTIME& from, const SYSTEMTIME& to) {
    const auto ticks = [](const SYSTEMTIME& time) {
        FILETIME file{};
        SystemTimeToFileTime(&time, &file);
        return static_cast<std::int64_t>(std::uint64_t{file.dwHighDateTime} << 32 | file.dwLowDateTime);
    };
    constexpr std::int64_t kTicksOfMinute = 600'000'000;
    return (ticks(to) - ticks(from)) / kTicksOfMinute;
}

struct FreeText {
    BSTR text = nullptr;
    FreeText() = default;
    ~FreeText() { SysFreeString(text); }
    FreeText(const FreeText&) = delete;
    FreeText& operator=(const FreeText&) = delete;
};

class SystemClock final : public Clock {
public:
    CalendarTime now() const override {
        SYSTEMTIME local{};
        GetLocalTime(&local);
        return {.year = local.wYear,
                .month = local.wMonth,
                .day = local.wDay,
                .hour = local.wHour,
                .minute = local.wMinute,
                .second = local.wSecond};
    }

    std::u16string zoneName(const CalendarTime& local) const override {
        const std::int32_t year =
            local.year >= kFirstSystemYear ? local.year : kUsualCycle + local.year % kCalendarCycle;
        TIME_ZONE_INFORMATION zone{};
        if (!GetTimeZoneInformationForYear(static_cast<USHORT>(year), nullptr, &zone)) return {};
        const SYSTEMTIME shown = systemTimeOf(local, year);
        SYSTEMTIME universal{};
        if (!TzSpecificLocalTimeToSystemTime(&zone, &shown, &universal)) return {};
        const bool isDaylight =
            zone.DaylightBias != zone.StandardBias && minutesBetween(shown, universal) == zone.Bias + zone.DaylightBias;
        return std::u16string(viewOf(isDaylight ? zone.DaylightName : zone.StandardName));
    }

    std::u16string defaultText(const CalendarTime& local) const override {
        const SYSTEMTIME fields = systemTimeOf(local, local.year);
        DATE date = 0;
        if (!SystemTimeToVariantTime(const_cast<SYSTEMTIME*>(&fields), &date)) return {};
        FreeText made;
        if (FAILED(VarBstrFromDate(date, LOCALE_USER_DEFAULT, 0, &made.text))) return {};
        return textOf(made.text).substr(0, kLongestText);
    }

private:
    static constexpr std::size_t kLongestText = 255;
};

}  // namespace

const Clock& systemClock() {
    static const SystemClock clock;
    return clock;
}

}  // namespace ovaline::platform
