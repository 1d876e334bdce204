// What every driver of dialogs shares: kinds of controls, characters, and the words in which an action is refused.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace ovaline::platform {

enum class ControlKind { Label, Group, Edit, Spin, Check, Radio, DropList, ListBox, Picture };

/// The id of a control that nobody refers to.
constexpr int kAnonymousControl = 65535;

/// How many code units can be typed into an edit that has no limit of its own.
constexpr int kUsualLimit = 32767;

/// The most clicks that a spin button takes in one action.
constexpr int kMostClicks = 10'000;

constexpr bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}
constexpr bool isControlCharacter(char16_t unit) {
    return unit < u' ' || unit == 0x7F;
}

/// The first character of a text: a code unit or a surrogate pair.
constexpr std::u16string_view firstCharacter(std::u16string_view text) {
    const bool pair = text.size() > 1 && isHighSurrogate(text[0]) && isLowSurrogate(text[1]);
    return text.substr(0, pair ? 2 : 1);
}

/// How many code units the character before `caret` has; 0 at the start.
constexpr std::size_t lengthBefore(std::u16string_view text, std::size_t caret) {
    if (caret == 0) return 0;
    return caret > 1 && isLowSurrogate(text[caret - 1]) && isHighSurrogate(text[caret - 2]) ? 2 : 1;
}

namespace refusal {

inline std::string controlName(int id) {
    return "control " + std::to_string(id);
}

constexpr const char* nameOf(ControlKind kind) {
    switch (kind) {
        case ControlKind::Label:
            return "a label";
        case ControlKind::Group:
            return "a group box";
        case ControlKind::Edit:
            return "an edit box";
        case ControlKind::Spin:
            return "a spin button";
        case ControlKind::Check:
            return "a check box";
        case ControlKind::Radio:
            return "a radio button";
        case ControlKind::DropList:
            return "a drop-down list";
        case ControlKind::ListBox:
            return "a list box";
        case ControlKind::Picture:
            break;
    }
    return "a picture";
}

inline constexpr const char* kNoDialog = "there is no dialog";
inline std::string noControl(int id) {
    return "there is no " + controlName(id);
}
inline std::string wrongKind(int id, ControlKind kind, std::initializer_list<ControlKind> kinds) {
    std::string wanted;
    for (const ControlKind one : kinds) wanted += (wanted.empty() ? "" : " or ") + std::string(nameOf(one));
    return controlName(id) + " is " + nameOf(kind) + ", not " + wanted;
}
inline std::string hidden(int id) {
    return controlName(id) + " is hidden";
}
inline std::string readOnly(int id) {
    return controlName(id) + " is read-only";
}
inline std::string noItem(int id, int item, std::size_t count) {
    return controlName(id) + " has no item " + std::to_string(item) +
           (count == 0 ? ", it is empty" : ", the last one is " + std::to_string(count - 1));
}
/// No value where that many clicks are not too many.
inline std::optional<std::string> tooManyClicks(int clicks) {
    if (clicks >= -kMostClicks && clicks <= kMostClicks) return std::nullopt;
    return "a spin button takes at most " + std::to_string(kMostClicks) + " clicks";
}

}  // namespace refusal

}  // namespace ovaline::platform
