// The module's strings and dialogs as their tables have them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ovaline::resource_tables {

inline constexpr std::array<std::uint16_t, 6> kLanguages = {1031, 1033, 1041, 1045, 1049, 2052};
inline constexpr std::size_t kEnglish = 1;
inline constexpr int kAnonymous = 65535;

using Texts = std::array<std::u16string_view, kLanguages.size()>;

struct String {
    std::uint32_t id;
    Texts texts;
};

enum class Kind { Label, Group, Edit, Spin, Check, Radio, DropList, ListBox, Picture };
enum class Flag { Plain, Hidden, Digits, ReadOnly, Sorted, First };

struct Size {
    int width, height;
};

struct Box {
    int x, y, width, height;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    bool meets(const Box& b) const { return x < b.right() && b.x < right() && y < b.bottom() && b.y < bottom(); }
    bool holds(const Box& b) const { return x <= b.x && y <= b.y && b.right() <= right() && b.bottom() <= bottom(); }
};

struct Control {
    Kind kind;
    int id;
    Flag flag;
    Box english, others;
    Texts texts;

    /// The place in a language; of a drop-down list while it is closed.
    Box box(std::size_t language) const {
        constexpr int kClosedList = 13;
        Box box = language == kEnglish ? english : others;
        if (kind == Kind::DropList) box.height = kClosedList;
        return box;
    }
    bool isLabelled() const {
        return kind == Kind::Label || kind == Kind::Group || kind == Kind::Check || kind == Kind::Radio;
    }
};

struct Dialog {
    int id;
    Size english, others;
    std::vector<Control> controls;

    Box box(std::size_t language) const {
        const Size size = language == kEnglish ? english : others;
        return {0, 0, size.width, size.height};
    }
};

inline const std::vector<String>& strings() {
    static const std::vector<String> all = {
#define STRING(id, g, e, j, p, r, c) {id, {u##g, u##e, u##j, u##p, u##r, u##c}},
#include "platform/resource_strings.inc"
#undef STRING
    };
    return all;
}

inline const std::vector<Dialog>& dialogs() {
    static const std::vector<Dialog> all = {
#define UNITS(...) \
    { __VA_ARGS__ }
#define DIALOG(id, english, others) \
    {                               \
        id, UNITS english, UNITS others, {
#define CONTROL(kind, id, flag, english, others, g, e, j, p, r, c) \
    {Kind::kind, id, Flag::flag, UNITS english, UNITS others, {u##g, u##e, u##j, u##p, u##r, u##c}},
#define END_DIALOG \
    }              \
    }              \
    ,
#include "platform/dialog_templates.inc"
#undef UNITS
#undef DIALOG
#undef CONTROL
#undef END_DIALOG
    };
    return all;
}

}  // namespace ovaline::resource_tables
