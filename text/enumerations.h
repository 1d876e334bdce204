// Enumerations of the interface that give the text composition its meaning.
#pragma once

#include <cstdint>

namespace ovaline {

/// Order in which an array's copies take their serial numbers.
enum _serialdirection : std::int32_t { Across = 0, Down = 1 };

/// Number of digits of a displayed serial number.
enum _sernumdigits : std::int32_t {
    None = 0,
    One = 1,
    Two = 2,
    Three = 3,
    Four = 4,
    Five = 5,
    Six = 6,
    Seven = 7,
    Eight = 8,
    Nine = 9,
    Ten = 10,
    Eleven = 11,
    Twelve = 12,
    Thirteen = 13,
    Fourteen = 14,
    Fifteen = 15
};

enum _sernumtypes : std::int32_t { Numerical = 0, Alphanumeric = 1 };

enum _autodatepos : std::int32_t { BeforePrefix = 258, After_Prefix = 259, BeforeSuffix = 260, After_Suffix = 261 };

/// String ids of the date patterns in the module's string table.
enum _autodateformat : std::int32_t {
    Format00 = 20000,
    Format01 = 20001,
    Format02 = 20002,
    Format03 = 20003,
    Format04 = 20004,
    Format05 = 20005,
    Format06 = 20006,
    Format07 = 20007,
    Format08 = 20008,
    Format09 = 20009,
    Format10 = 20010,
    Format11 = 20011,
    Format12 = 20012,
    Format13 = 20013,
    Format14 = 20014,
    Format15 = 20015,
    Custom = 20016
};

}  // namespace ovaline
