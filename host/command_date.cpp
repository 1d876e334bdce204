#include <algorithm>
#include <array>
#include <charconv>

#include "host/commands.h"
#include "host/failure.h"
#include "host/members.h"
#include "host/output_file.h"
#include "host/text_encoding.h"
#include "platform/clock.h"
#include "text/autodate.h"
#include "text/autodate_pattern.h"
#include "text/calendar.h"

namespace ovaline::host {

namespace {

using platform::CalendarTime;

struct Meaning {
    char16_t letter;
    std::string_view usual;
    std::string_view alternative = {};  ///< with the flag '#'; empty where the letter ignores it
};

constexpr Meaning kMeanings[] = {
    {u'a', "weekday, short"},
    {u'A', "weekday"},
    {u'b', "month, short"},
    {u'B', "month"},
    {u'c', "date and time of day", "long date and time of day"},
    {u'C', "month as two letters"},
    {u'd', "day"},
    {u'e', "last digit of the year"},
    {u'H', "hour"},
    {u'I', "hour of twelve"},
    {u'j', "day of the year"},
    {u'l', "month as a letter A to L"},
    {u'L', "month as a letter A to M, no I"},
    {u'm', "month as a number"},
    {u'M', "minute"},
    {u'p', "AM or PM"},
    {u'S', "second"},
    {u'T', "four hours of the day as a letter A to F"},
    {u'U', "week of the year, from Sunday"},
    {u'V', "ISO week"},
    {u'w', "weekday as a number, Sunday 0"},
    {u'W', "week of the year, from Monday"},
    {u'x', "date", "long date"},
    {u'X', "time of day"},
    {u'y', "year of the century", "year of the century without leading zero"},
    {u'Y', "year", "year without leading zeros"},
    {u'z', "name of the time zone"},
    {u'Z', "name of the time zone"},
    {u'%', "percent sign"},
};

/// The letters whose year '+N' moves.
constexpr std::u16string_view kYearLetters = u"Yyexc";

std::string explain(const PatternPart& specifier) {
    if (specifier.kind == PatternPart::Kind::Unfinished) return "no letter follows: left out";
    const auto* const meaning = std::ranges::find(kMeanings, specifier.letter, &Meaning::letter);
    if (meaning == std::end(kMeanings)) return "unknown: a percent sign";
    const bool isAlternative = specifier.isAlternative && !meaning->alternative.empty();
    const bool movesYear = kYearLetters.find(meaning->letter) != std::u16string_view::npos;
    std::string text(isAlternative ? meaning->alternative : meaning->usual);
    if (specifier.yearsAdded && movesYear)
        text += ", " + std::to_string(*specifier.yearsAdded) + (*specifier.yearsAdded == 1 ? " year on" : " years on");
    if (specifier.isAlternative && !isAlternative) text += ", # ignored";
    if (specifier.yearsAdded && !movesYear) text += ", + ignored";
    return text;
}

std::u16string utf16Of(const std::string& argument) {
    if (auto text = toUtf16(argument)) return *text;
    throw Failure("the pattern is not UTF-8");
}

/// Exactly `2026-11-17` or `2026-11-17T19:33:24`.
CalendarTime timeOf(const std::string& text) {
    constexpr std::string_view kForm = "0000-00-00T00:00:00";
    constexpr std::size_t kDateLength = 10;
    const bool isComplete = text.size() == kForm.size() || text.size() == kDateLength;
    bool isTime = isComplete;
    std::array<std::int32_t, 6> fields{};
    for (std::size_t i = 0, field = 0; isTime && i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (kForm[i] == '0') {
            isTime = isDigit;
            fields[field] = fields[field] * 10 + (text[i] - '0');
        } else {
            isTime = text[i] == kForm[i];
            ++field;
        }
    }
    const CalendarTime time = {fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]};
    // A day that the calendar does not have moves to one that it has.
    isTime = isTime && addDays(time, 0) == time && time.hour < 24 && time.minute < 60 && time.second < 60;
    if (!isTime) throw Failure("--at takes a time like 2026-11-17T19:33:24 or a date like 2026-11-17, not " + text);
    return time;
}

std::string listFormats(const CalendarTime& time, const platform::Clock& clock) {
    std::string lines;
    for (const EnumValue& format : findProperty("AutoDateFormat").type.enumeration->values) {
        if (format.value == Custom) continue;
        const std::u16string pattern = ResolveAutoDatePattern(format.value, {});
        (((lines += std::to_string(format.value)) += '\t') += format.name) += '\t';
        ((lines += toUtf8(pattern)) += '\t') += toUtf8(FormatAutoDate(time, pattern, clock));
        lines += '\n';
    }
    return lines;
}

/// The text of the pattern, then a line for each of its specifiers.
std::string explainPattern(std::u16string_view pattern, const CalendarTime& time, const platform::Clock& clock) {
    std::string lines = toUtf8(FormatAutoDate(time, pattern, clock)) + "\n";
    PatternReader reader(pattern);
    for (PatternPart part; reader.next(part);) {
        if (part.kind == PatternPart::Kind::Literal) continue;
        ((lines += toUtf8(part.source)) += '\t') += toUtf8(FormatAutoDate(time, part.source, clock));
        ((lines += '\t') += explain(part)) += '\n';
    }
    return lines;
}

}  // namespace

int dateCommand(const DateOptions& options) {
    if (options.pattern.has_value() == options.list) throw Failure("date takes either a PATTERN or --list");
    const platform::Clock& clock = platform::systemClock();
    const CalendarTime time = addDays(options.at ? timeOf(*options.at) : clock.now(), options.offset);
    StandardOutput out;
    out.append(options.list ? listFormats(time, clock) : explainPattern(utf16Of(*options.pattern), time, clock));
    out.flush();
    return 0;
}

}  // namespace ovaline::host
