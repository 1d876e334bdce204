#include "platform/posix/dialog_templates.h"

#include <array>
#include <cstddef>

#include "platform/posix/resource_languages.h"

namespace ovaline::platform {

namespace {

// Dialog units, as the table has them.
struct Extent {
    int width, height;
};
struct Box {
    int x, y, width, height;
};

enum Flags : unsigned { Plain = 0, Hidden = 1, Digits = 2, ReadOnly = 4, Sorted = 8, First = 16 };

enum class LineKind { Dialog, Control, End };

struct Line {
    LineKind line;
    std::uint32_t id;
    Extent english, others;
    ControlKind kind;
    unsigned flags;
    std::array<const char16_t*, kResourceLanguages.size()> texts;
};

constexpr Extent extentOf(const Box& box) {
    return {box.width, box.height};
}

constexpr Line kLines[] = {
#define UNITS(...) \
    { __VA_ARGS__ }
#define DIALOG(id, english, others) {LineKind::Dialog, id, UNITS english, UNITS others, ControlKind::Label, Plain, {}},
#define CONTROL(kind, id, flags, english, others, g, e, j, p, r, c) \
    {LineKind::Control,                                             \
     id,                                                            \
     extentOf(UNITS english),                                       \
     extentOf(UNITS others),                                        \
     ControlKind::kind,                                             \
     flags,                                                         \
     {u"" g, u"" e, u"" j, u"" p, u"" r, u"" c}},
#define END_DIALOG {LineKind::End, 0, {}, {}, ControlKind::Label, Plain, {}},
#include "platform/dialog_templates.inc"
#undef UNITS
#undef DIALOG
#undef CONTROL
#undef END_DIALOG
};

// A dialog unit is a quarter of the average width and an eighth of the height of the dialogs' font, which are those of
// its usual substitute.
constexpr int kFontWidth = 6;
constexpr int kFontHeight = 13;

/// The product divided by `divisor`, to the nearest whole number. None is negative.
constexpr LONG mulDiv(int number, int factor, int divisor) {
    return (number * factor + divisor / 2) / divisor;
}

constexpr SIZE inPixels(const Extent& units) {
    return {mulDiv(units.width, kFontWidth, 4), mulDiv(units.height, kFontHeight, 8)};
}

}  // namespace

std::optional<DialogTemplate> findDialogTemplate(std::uint32_t id, std::uint16_t languageId) {
    const auto language = placeOfLanguage(languageId);
    if (!language) return std::nullopt;
    const bool english = languageId == 1033;
    std::optional<DialogTemplate> found;
    for (const Line& line : kLines) {
        const SIZE size = inPixels(english ? line.english : line.others);
        if (line.line == LineKind::Dialog && line.id == id) {
            found = DialogTemplate{size, {}};
        } else if (found && line.line == LineKind::Control) {
            const auto has = [&](unsigned flag) { return (line.flags & flag) != 0; };
            found->controls.push_back({line.kind, static_cast<int>(line.id), has(Hidden), has(Digits), has(ReadOnly),
                                       has(Sorted), has(First), size, line.texts[*language]});
        } else if (found) {
            break;
        }
    }
    return found;
}

}  // namespace ovaline::platform
