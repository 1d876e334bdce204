// JSON as text: reading it strictly, and writing the answers of a run.
//
// A BSTR may hold a surrogate without its partner, and JSON can spell one ("\ud800"), but UTF-8 cannot. Such a code
// unit therefore travels through the parsed value as U+FDD0, which is no character, and its four hexadecimal digits;
// U+FDD0 itself travels the same way. parseJson and jsonOf put it in, textOf takes it out, so every text survives
// unchanged.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <span>
#include <string>
#include <string_view>

namespace ovaline::host {

/// Members keep the order in which they were written: settings are put in that order.
using Json = nlohmann::ordered_json;

/// The value that is all of `text`. Throws Failure where it is not JSON or names a member of an object twice.
Json parseJson(std::string_view text);

/// The JSON string of a text that was not read from JSON. Throws Failure where `utf8` is not UTF-8.
Json jsonOf(std::string_view utf8);

/// The text of a JSON string.
std::u16string textOf(const Json& string);

/// Appends a JSON string: quoted, escaped, UTF-8; a surrogate without its partner as its escape.
void appendJsonText(std::string& out, std::u16string_view text);
/// Appends a list of them.
void appendJsonTexts(std::string& out, std::span<const std::u16string> texts);

/// One answer: a JSON object on one line, its members in the order in which they are added.
class AnswerLine {
public:
    /// Begins the next member; its value is to be appended to the returned text.
    std::string& member(std::string_view name);
    void status(std::int32_t hr);
    void text(std::string_view name, std::string_view utf8);
    std::string finish() &&;

private:
    std::string text_ = "{";
};

}  // namespace ovaline::host
