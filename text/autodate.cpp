#include "text/autodate.h"

#include <array>
#include <string_view>

#include "platform/resources.h"
#include "text/autodate_pattern.h"
#include "text/calendar.h"
#include "text/enumerations.h"

namespace ovaline {

namespace {

using platform::CalendarTime;

// The names of the "C" locale.
constexpr std::array<std::string_view, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                       "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> kMonths = {"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};
constexpr std::size_t kShortName = 3;

constexpr std::int32_t kSunday = 0;
constexpr std::int32_t kMonday = 1;

// Without I, which reads as 1.
constexpr std::string_view kMonthLetters = "ABCDEFGHJKLM";
constexpr std::array<std::string_view, 12> kMonthCodes = {"JA", "FE", "MR", "AL", "MA", "JN",
                                                          "JL", "AU", "SE", "OC", "NO", "DE"};

/// A text of at most kMaxDateLength code units that grows in place.
class DateText {
public:
    void add(char16_t unit) {
        if (length_ < units_.size()) units_[length_++] = unit;
    }
    void add(std::u16string_view text) {
        for (const char16_t unit : text) add(unit);
    }
    void add(std::string_view ascii) {
        for (const char character : ascii) add(static_cast<char16_t>(character));
    }
    /// `number` is not negative.
    void add(std::int64_t number, std::size_t leastDigits) {
        std::array<char16_t, 20> digits{};
        std::size_t first = digits.size();
        for (; number > 0 || digits.size() - first < leastDigits; number /= 10)
            digits[--first] = static_cast<char16_t>(u'0' + number % 10);
        add(std::u16string_view(digits.data() + first, digits.size() - first));
    }

    std::u16string text() const {
        std::size_t length = length_;
        if (length > kMaxDateLength) {
            length = kMaxDateLength;
            if (beginsSurrogatePair({units_.data(), length_}, length - 1)) --length;
        }
        return {units_.data(), length};
    }

private:
    // One more than there may be, to see whether the cut splits a pair.
    std::array<char16_t, kMaxDateLength + 1> units_;
    std::size_t length_ = 0;
};

/// Writes the parts of a pattern. Patterns are defined by two stages: the first writes literal text and the system's
/// own specifiers and leaves the standard ones to the second, standard time formatting in the "C" locale. No percent
/// sign leaves the first stage but as part of a standard specifier, so each part can be written out at once.
class DateWriter {
public:
    DateWriter(const CalendarTime& time, const platform::Clock& clock) : time_(time), clock_(clock) {}

    void write(const PatternPart& part) {
        if (part.kind == PatternPart::Kind::Literal) out_.add(part.source);
        if (part.kind == PatternPart::Kind::Specifier) writeSpecifier(part);
    }
    std::u16string text() const { return out_.text(); }

private:
    void writeSpecifier(const PatternPart& part) {
        const std::int64_t year = std::int64_t{time_.year} + part.yearsAdded.value_or(0);
        switch (part.letter) {
            case u'L':
                return out_.add(kMonthLetters.substr(month(), 1));
            case u'l':
                return out_.add(static_cast<char16_t>(u'A' + month()));
            case u'C':
                return out_.add(kMonthCodes[month()]);
            case u'T':
                return out_.add(static_cast<char16_t>(u'A' + time_.hour / 4));
            case u'Y':
                return out_.add(year, part.isAlternative ? 1 : 4);
            case u'y':
                return out_.add(year % 100, part.isAlternative ? 1 : 2);
            case u'e':
                return out_.add(year % 10, 1);
            case u'V':
                return out_.add(isoWeek(time_), 2);
            case u'x':
                return writeDate(year, part.isAlternative);
            case u'c':
                writeDate(year, part.isAlternative);
                out_.add(part.isAlternative ? std::string_view(", ") : " ");
                return writeTimeOfDay();
            default:
                return writeStandard(part.letter);
        }
    }

    void writeStandard(char16_t letter) {
        switch (letter) {
            case u'a':
                return out_.add(weekdayName().substr(0, kShortName));
            case u'A':
                return out_.add(weekdayName());
            case u'b':
                return out_.add(kMonths[month()].substr(0, kShortName));
            case u'B':
                return out_.add(kMonths[month()]);
            case u'd':
                return out_.add(time_.day, 2);
            case u'H':
                return out_.add(time_.hour, 2);
            case u'I':
                return out_.add((time_.hour + 11) % 12 + 1, 2);
            case u'j':
                return out_.add(dayOfYear(time_), 3);
            case u'm':
                return out_.add(time_.month, 2);
            case u'M':
                return out_.add(time_.minute, 2);
            case u'p':
                return out_.add(time_.hour < 12 ? std::string_view("AM") : "PM");
            case u'S':
                return out_.add(time_.second, 2);
            case u'U':
                return out_.add(weekOfYear(time_, kSunday), 2);
            case u'w':
                return out_.add(weekday(time_), 1);
            case u'W':
                return out_.add(weekOfYear(time_, kMonday), 2);
            case u'X':
                return writeTimeOfDay();
            case u'z':
            case u'Z':
                return out_.add(clock_.zoneName(time_));
            default:
                return out_.add(u'%');
        }
    }

    void writeDate(std::int64_t year, bool isLong) {
        if (isLong) {
            out_.add(weekdayName());
            out_.add(", ");
            out_.add(kMonths[month()]);
            out_.add(" ");
            out_.add(time_.day, 1);
            out_.add(", ");
            out_.add(year, 4);
        } else {
            out_.add(time_.month, 2);
            out_.add("/");
            out_.add(time_.day, 2);
            out_.add("/");
            out_.add(year % 100, 2);
        }
    }

    void writeTimeOfDay() {
        out_.add(time_.hour, 2);
        out_.add(":");
        out_.add(time_.minute, 2);
        out_.add(":");
        out_.add(time_.second, 2);
    }

    std::size_t month() const { return static_cast<std::size_t>(time_.month - 1); }
    std::string_view weekdayName() const { return kWeekdays[static_cast<std::size_t>(weekday(time_))]; }

    const CalendarTime& time_;
    const platform::Clock& clock_;
    DateText out_;
};

}  // namespace

std::u16string ResolveAutoDatePattern(std::int32_t format, std::u16string_view customText) {
    if (format == Custom) return std::u16string(customText);
    return platform::loadString(static_cast<std::uint32_t>(format)).value_or(std::u16string());
}

std::u16string FormatAutoDate(const CalendarTime& time, std::u16string_view pattern, const platform::Clock& clock) {
    if (time.year < kFirstDateYear || time.year > kLastDateYear) return u"Invalid DateTime";
    if (pattern.empty()) return clock.defaultText(time);
    DateWriter writer(time, clock);
    PatternReader reader(pattern);
    for (PatternPart part; reader.next(part);) writer.write(part);
    return writer.text();
}

}  // namespace ovaline
