#include "platform/clock.h"

#include <locale.h>

#include <array>
#include <ctime>
#include <cwchar>
#include <limits>
#include <memory>
#include <string_view>
#include <type_traits>

namespace ovaline::platform {

namespace {

constexpr int kTmYear = 1900;  // where tm counts years from

/// `local` with the day of the week and of the year, and the zone in effect. The fields themselves stay as they are,
/// also where the wall clock never showed that time.
std::tm toTm(const CalendarTime& local) {
    std::tm fields{};
    fields.tm_year = local.year - kTmYear;
    fields.tm_mon = local.month - 1;
    fields.tm_mday = local.day;
    fields.tm_hour = local.hour;
    fields.tm_min = local.minute;
    fields.tm_sec = local.second;
    std::tm normalised = fields;
    timegm(&normalised);
    fields.tm_wday = normalised.tm_wday;
    fields.tm_yday = normalised.tm_yday;
    std::tm zoned = fields;
    zoned.tm_isdst = -1;
    std::mktime(&zoned);
    fields.tm_isdst = zoned.tm_isdst;
    fields.tm_gmtoff = zoned.tm_gmtoff;
    fields.tm_zone = zoned.tm_zone;
    return fields;
}

std::u16string toUtf16(std::wstring_view text) {
    std::u16string utf16;
    for (const wchar_t unit : text) {
        const auto code = static_cast<char32_t>(unit);
        if (code < 0x10000) {
            utf16 += static_cast<char16_t>(code);
        } else {
            utf16 += static_cast<char16_t>(0xD7C0 + (code >> 10));
            utf16 += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
        }
    }
    return utf16;
}

struct FreeLocale {
    void operator()(locale_t locale) const { freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

/// The locale that the user's environment names; the "C" locale where it is not installed.
Locale userLocale() {
    constexpr int kCategories = LC_TIME_MASK | LC_CTYPE_MASK;
    Locale locale(newlocale(kCategories, "", nullptr));
    if (!locale) locale.reset(newlocale(kCategories, "C", nullptr));
    return locale;
}

class SystemClock final : public Clock {
public:
    // localtime_r need not read the zone by itself.
    SystemClock() { tzset(); }

    CalendarTime now() const override {
        const std::time_t seconds = std::time(nullptr);
        static_assert(sizeof(seconds) == 8);
        std::tm local{};
        if (!localtime_r(&seconds, &local)) return {.year = std::numeric_limits<std::int32_t>::max()};
        return {.year = local.tm_year + kTmYear,
                .month = local.tm_mon + 1,
                .day = local.tm_mday,
                .hour = local.tm_hour,
                .minute = local.tm_min,
                .second = local.tm_sec};
    }

    std::u16string zoneName(const CalendarTime& local) const override {
        const std::tm fields = toTm(local);
        if (!fields.tm_zone) return {};
        const std::string_view ascii = fields.tm_zone;
        return {ascii.begin(), ascii.end()};
    }

    std::u16string defaultText(const CalendarTime& local) const override {
        const Locale locale = userLocale();
        if (!locale) return {};
        const std::tm fields = toTm(local);
        std::array<wchar_t, 256> text;
        const std::size_t length = wcsftime_l(text.data(), text.size(), L"%x %X", &fields, locale.get());
        return toUtf16({text.data(), length});
    }

private:
    // Keeps the locale's data in memory: asking for the locale again then reads no files, and each copy of an array may
    // ask for it.
    const Locale loaded_ = userLocale();
};

}  // namespace

const Clock& systemClock() {
    static const SystemClock clock;
    return clock;
}

}  // namespace ovaline::platform
