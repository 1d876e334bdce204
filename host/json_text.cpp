#include "host/json_text.h"

#include <charconv>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

#include "host/failure.h"
#include "host/text_encoding.h"

namespace ovaline::host {

namespace {

constexpr char32_t kMark = 0xFDD0;
constexpr std::string_view kMarkUtf8 = "\xEF\xB7\x90";
constexpr std::size_t kHexDigits = 4;

void appendHex(std::string& out, char32_t unit) {
    for (int shift = 12; shift >= 0; shift -= 4) out.push_back("0123456789abcdef"[unit >> shift & 0xF]);
}

void appendMarked(std::string& out, char32_t unit) {
    out += kMarkUtf8;
    appendHex(out, unit);
}

/// The code unit that the four hexadecimal digits at `at` spell; 0, which needs no mark, where there are none.
char32_t hexAt(std::string_view text, std::size_t at) {
    std::uint16_t unit = 0;
    if (at > text.size() || text.size() - at < kHexDigits) return 0;
    const char* begin = text.data() + at;
    const auto [end, error] = std::from_chars(begin, begin + kHexDigits, unit, 16);
    return error == std::errc() && end == begin + kHexDigits ? unit : char32_t{0};
}

/// JSON text whose strings spell lone surrogates and U+FDD0 in the form that json_text.h describes.
std::string marked(std::string_view text, bool escapes) {
    constexpr std::size_t kEscape = 6;  // \uXXXX
    std::string out;
    out.reserve(text.size() + 64);
    for (std::size_t at = 0; at < text.size();) {
        if (text.substr(at).starts_with(kMarkUtf8)) {
            appendMarked(out, kMark);
            at += kMarkUtf8.size();
        } else if (!escapes || text[at] != '\\') {
            out.push_back(text[at++]);
        } else if (!text.substr(at).starts_with("\\u")) {
            out += text.substr(at, 2);
            at += 2;
        } else {
            const char32_t unit = hexAt(text, at + 2);
            const bool pair = isHighSurrogate(unit) && text.substr(at).substr(0, kEscape + 2).ends_with("\\u") &&
                              isLowSurrogate(hexAt(text, at + kEscape + 2));
            const std::size_t length = pair ? 2 * kEscape : kEscape;
            if (!pair && (isSurrogate(unit) || unit == kMark))
                appendMarked(out, unit);
            else
                out += text.substr(at, length);
            at += length;
        }
    }
    return out;
}

/// Refuses a member that an object names twice: which of the two was meant cannot be known.
class UniqueMembers {
public:
    bool operator()(int, Json::parse_event_t event, const Json& parsed) {
        if (event == Json::parse_event_t::object_start) names_.emplace_back();
        if (event == Json::parse_event_t::object_end) names_.pop_back();
        if (event == Json::parse_event_t::key) {
            const auto& name = parsed.get_ref<const std::string&>();
            if (!names_.back().insert(name).second) throw Failure("\"" + name + "\" is given twice");
        }
        return true;
    }

private:
    std::vector<std::set<std::string>> names_;
};

}  // namespace

Json parseJson(std::string_view text) {
    const bool needsMarks =
        text.find("\\u") != std::string_view::npos || text.find(kMarkUtf8) != std::string_view::npos;
    const std::string prepared = needsMarks ? marked(text, true) : std::string();
    const std::string_view source = needsMarks ? prepared : text;
    try {
        return Json::parse(source.begin(), source.end(), UniqueMembers());
    } catch (const Json::parse_error& error) {
        throw Failure("not JSON: syntax error at byte " + std::to_string(error.byte));
    } catch (const Json::out_of_range&) {
        throw Failure("not JSON: a number is beyond double precision");
    }
}

Json jsonOf(std::string_view utf8) {
    if (!toUtf16(utf8)) throw Failure("a text is not UTF-8");
    return marked(utf8, false);
}

std::u16string textOf(const Json& string) {
    const auto& utf8 = string.get_ref<const std::string&>();
    std::u16string text = toUtf16Replacing(utf8);
    if (utf8.find(kMarkUtf8) == std::string::npos) return text;
    std::u16string taken;
    taken.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != kMark) {
            taken.push_back(text[at]);
            continue;
        }
        const std::string digits(text.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                                 text.begin() + static_cast<std::ptrdiff_t>(at + 1 + kHexDigits));
        taken.push_back(static_cast<char16_t>(hexAt(digits, 0)));
        at += kHexDigits;
    }
    return taken;
}

void appendJsonText(std::string& out, std::u16string_view text) {
    out.push_back('"');
    for (std::size_t at = 0; at < text.size();) {
        const char32_t codePoint = nextCodePoint(text, at);
        if (codePoint == '"' || codePoint == '\\') {
            out.push_back('\\');
            out.push_back(static_cast<char>(codePoint));
        } else if (codePoint < 0x20 || isSurrogate(codePoint)) {
            out += "\\u";
            appendHex(out, codePoint);
        } else {
            appendUtf8(out, codePoint);
        }
    }
    out.push_back('"');
}

void appendJsonTexts(std::string& out, std::span<const std::u16string> texts) {
    const char* separator = "[";
    for (const std::u16string& text : texts) {
        out += separator;
        separator = ", ";
        appendJsonText(out, text);
    }
    out += texts.empty() ? "[]" : "]";
}

std::string& AnswerLine::member(std::string_view name) {
    if (text_.size() > 1) text_ += ", ";
    text_.push_back('"');
    text_ += name;
    text_ += "\": ";
    return text_;
}

void AnswerLine::status(std::int32_t hr) {
    member("hr") += std::to_string(hr);
}

void AnswerLine::text(std::string_view name, std::string_view utf8) {
    appendJsonText(member(name), toUtf16Replacing(utf8));
}

std::string AnswerLine::finish() && {
    text_.push_back('}');
    return std::move(text_);
}

}  // namespace ovaline::host
