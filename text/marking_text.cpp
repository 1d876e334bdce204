#include "text/marking_text.h"

#include <array>

#include "text/autodate.h"
#include "text/calendar.h"
#include "text/enumerations.h"
#include "text/serial_number.h"

namespace ovaline {

namespace {

std::u16string join(const std::array<std::u16string_view, 4>& pieces) {
    std::size_t length = 0;
    for (const std::u16string_view piece : pieces) length += piece.size();
    std::u16string text;
    text.reserve(length);
    for (const std::u16string_view piece : pieces) text += piece;
    return text;
}

}  // namespace

std::u16string ComposeMarkingText(std::u16string_view prefix, std::u16string_view serialText,
                                  std::u16string_view suffix, std::int32_t digitCount, std::u16string_view pattern,
                                  std::int32_t position, std::int32_t serialType, bool serialOn, bool dateOn,
                                  std::int32_t dateOffset, const platform::Clock& clock) {
    std::u16string date;
    if (dateOn) date = FormatAutoDate(addDays(clock.now(), dateOffset), pattern, clock);
    std::u16string serial;
    if (serialOn) {
        serial = serialDisplayForm(serialText, serialType, digitCount);
    } else {
        prefix = suffix = {};
    }
    switch (position) {
        case BeforePrefix:
            return join({date, prefix, serial, suffix});
        case After_Prefix:
            return join({prefix, date, serial, suffix});
        case BeforeSuffix:
            return join({prefix, serial, date, suffix});
        case After_Suffix:
            return join({prefix, serial, suffix, date});
        default:
            return {};
    }
}

}  // namespace ovaline
