#include "pages/text_numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace ovaline {

namespace {

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// A decimal number at the start of a text, as far as it goes.
class DecimalScanner {
public:
    explicit DecimalScanner(std::u16string_view text) : rest_(text) {}

    double read() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(u" \t\n\v\f\r"), rest_.size()));
        const bool negative = rest_.starts_with(u'-');
        if (negative || rest_.starts_with(u'+')) rest_.remove_prefix(1);
        takeDigits(true);
        if (rest_.starts_with(u'.')) {
            take();
            takeDigits(false);
        }
        if (!hasDigits_) return 0;
        takeExponent();
        double value = 0;
        const auto status = std::from_chars(number_.data(), number_.data() + number_.size(), value).ec;
        // The library leaves the value alone and doesn't say which end of the range was passed.
        if (status == std::errc::result_out_of_range)
            value = leadingExponent_ > 0 ? std::numeric_limits<double>::max() : 0.0;
        return negative ? -value : value;
    }

private:
    void take() {
        number_.push_back(static_cast<char>(rest_.front()));
        rest_.remove_prefix(1);
    }

    /// Keeps count of the power of ten of the first digit that isn't 0.
    void takeDigits(bool beforePoint) {
        for (; !rest_.empty() && isDigit(rest_.front()); take()) {
            hasDigits_ = true;
            significant_ = significant_ || rest_.front() != u'0';
            if (beforePoint && significant_) ++leadingExponent_;
            if (!beforePoint && !significant_) --leadingExponent_;
        }
    }

    /// An exponent without digits is none.
    void takeExponent() {
        if (!rest_.starts_with(u'e') && !rest_.starts_with(u'E')) return;
        const bool isSigned = rest_.size() > 1 && (rest_[1] == u'-' || rest_[1] == u'+');
        const std::size_t digits = isSigned ? 2 : 1;
        if (rest_.size() <= digits || !isDigit(rest_[digits])) return;
        const bool negative = rest_[1] == u'-';
        for (std::size_t i = 0; i < digits; ++i) take();
        constexpr std::int64_t kFarBeyond = 1'000'000'000'000;
        std::int64_t exponent = 0;
        for (; !rest_.empty() && isDigit(rest_.front()); take())
            exponent = std::min(exponent * 10 + (rest_.front() - u'0'), kFarBeyond);
        leadingExponent_ += negative ? -exponent : exponent;
    }

    std::u16string_view rest_;
    std::string number_;
    bool hasDigits_ = false;
    bool significant_ = false;
    std::int64_t leadingExponent_ = 0;
};

/// Room for the sign, the 309 digits of the largest double, a point and the decimals.
using Digits = std::array<char, 312 + kMostDecimals>;

std::u16string widened(const Digits& digits, const char* end) {
    return {digits.data(), end};
}

}  // namespace

double leadingNumber(std::u16string_view text) {
    return DecimalScanner(text).read();
}

float nearestSingle(double number) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(number, -kLargest, kLargest));
}

std::u16string fixedText(double number, int decimals) {
    Digits digits;
    const auto format = std::chars_format::fixed;
    // The sign of what is no number says nothing.
    if (std::isnan(number)) number = std::numeric_limits<double>::quiet_NaN();
    return widened(digits, std::to_chars(digits.data(), digits.data() + digits.size(), number, format, decimals).ptr);
}

std::u16string generalText(double number) {
    constexpr int kDigits = 6;
    Digits digits;
    const auto format = std::chars_format::general;
    return widened(digits, std::to_chars(digits.data(), digits.data() + digits.size(), number, format, kDigits).ptr);
}

}  // namespace ovaline
