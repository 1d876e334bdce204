#include "text/autodate_pattern.h"

#include <algorithm>
#include <limits>

namespace ovaline {

bool beginsSurrogatePair(std::u16string_view text, std::size_t at) {
    return at + 1 < text.size() && (text[at] & 0xFC00) == 0xD800 && (text[at + 1] & 0xFC00) == 0xDC00;
}

bool PatternReader::next(PatternPart& part) {
    if (at_ == pattern_.size()) return false;
    part = {};
    const std::size_t begin = at_;
    if (pattern_[at_] == u'%') {
        part.kind = readSpecifier(part);
    } else {
        at_ = std::min(pattern_.find(u'%', at_), pattern_.size());
    }
    part.source = pattern_.substr(begin, at_ - begin);
    return true;
}

PatternPart::Kind PatternReader::readSpecifier(PatternPart& part) {
    for (++at_; at_ < pattern_.size();) {
        const char16_t unit = pattern_[at_++];
        if (unit == u'#' && !part.isAlternative) {
            part.isAlternative = true;
        } else if (unit == u'+' && !part.yearsAdded) {
            // What follows a '+' without digits is no part of the specifier and keeps its own meaning.
            if (!readYears(part)) return PatternPart::Kind::Unfinished;
        } else {
            part.letter = unit;
            // An unknown letter is left out whole: half a surrogate pair would be no character.
            if (beginsSurrogatePair(pattern_, at_ - 1)) ++at_;
            return PatternPart::Kind::Specifier;
        }
    }
    return PatternPart::Kind::Unfinished;
}

bool PatternReader::readYears(PatternPart& part) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    std::int64_t years = 0;
    for (; at_ < pattern_.size() && pattern_[at_] >= u'0' && pattern_[at_] <= u'9'; ++at_) {
        years = std::min(years * 10 + (pattern_[at_] - u'0'), kMost);
        part.yearsAdded = static_cast<std::int32_t>(years);
    }
    return part.yearsAdded.has_value();
}

}  // namespace ovaline
