// JSON values and the exactly typed VARIANTs that the control's operations take and give.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "control/interface/type_library.h"
#include "host/json_text.h"

namespace ovaline::host {

/// The arguments of one call, in the order of the declaration. Owns the texts in them.
class Arguments {
public:
    explicit Arguments(std::size_t count) : values_(count) {}
    Arguments(Arguments&& other) noexcept : values_(std::move(other.values_)) {}
    Arguments& operator=(Arguments&& other) noexcept {
        values_.swap(other.values_);
        return *this;
    }
    ~Arguments();

    VARIANT& operator[](std::size_t i) { return values_[i]; }
    const VARIANT& operator[](std::size_t i) const { return values_[i]; }
    std::span<VARIANT> all() { return values_; }

private:
    std::vector<VARIANT> values_;
};

/// What a value of that type is called in listings: BSTR, R4, BOOL, I4, UI2, UI4 or the enumeration's name.
std::string_view typeName(const ValueType& type);

/// Converts `value` to exactly `type` and stores it in `target`, which holds nothing yet.
///
/// A BOOL takes true (-1), false (0) or a 16-bit number; an enumeration the name of a value or any 32-bit number, as
/// the control stores numbers outside its list too; an R4 a number, infinite where single precision cannot hold it, or
/// the text "NaN", "Infinity" or "-Infinity". Throws Failure, naming the value as `what`, for anything else.
void store(const Json& value, const ValueType& type, std::string_view what, VARIANT& target);

/// As `store`, for a value written in plain text, as on a command line.
void storeText(std::string_view utf8, const ValueType& type, std::string_view what, VARIANT& target);

/// Appends a value as JSON: a BOOL as -1 or 0 (or the 16-bit number that it is), a single as `appendSingle` does.
void appendValue(std::string& out, const VARIANT& value);

/// The whole number that `value` is, within the bounds. Throws Failure, naming it as `what`, for anything else.
std::int64_t wholeNumber(const Json& value, std::int64_t least, std::int64_t most, std::string_view what);

}  // namespace ovaline::host
