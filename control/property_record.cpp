#include "control/property_record.h"

#include <algorithm>
#include <variant>

#include "output/units.h"
#include "platform/little_endian.h"
#include "platform/numbers.h"

namespace ovaline {

namespace {

/// Micrometres in the settings, the host's unit in the record.
struct HostLength {
    float TextSettings::*micrometres;
};

struct Field {
    std::size_t offset;
    std::variant<std::int32_t TextSettings::*, std::uint32_t TextSettings::*, std::uint16_t TextSettings::*,
                 float TextSettings::*, HostLength>
        member;
};

// Both directions read this table. What lies between its fields is reserved.
constexpr Field kFields[] = {
    {0x00, &TextSettings::PathType},
    {0x04, &TextSettings::StartAngle},
    {0x08, &TextSettings::FillStyle},
    {0x0C, &TextSettings::FillLineWidth},
    {0x10, &TextSettings::FillDistance},
    {0x14, &TextSettings::FillLineAngle},
    {0x18, &TextSettings::FillCrossAngle},
    {0x1C, &TextSettings::OutlineType},
    {0x20, &TextSettings::TextOutline},
    {0x24, &TextSettings::MirrorHorizontal},
    {0x28, &TextSettings::MirrorVertical},
    {0x2C, &TextSettings::ShowAxes},
    {0x30, &TextSettings::StepSize},
    {0x40, &TextSettings::CharSpace},
    {0x44, &TextSettings::Angle},
    {0x48, HostLength{&TextSettings::ActualLeft}},
    {0x4C, HostLength{&TextSettings::ActualTop}},
    {0x50, HostLength{&TextSettings::Width}},
    {0x54, HostLength{&TextSettings::Height}},
    {0x58, &TextSettings::SpareFlag},
    {0x5C, &TextSettings::Flatness},
    {0x60, &TextSettings::SpareInt},
    {0x64, &TextSettings::ZoomFactor},
    {0x68, &TextSettings::ResolutionInDPI},
    {0x70, &TextSettings::DotsPerUnit},
    {0x74, &TextSettings::UnitFactor},
    {0x78, &TextSettings::LeftInDACUnits},
    {0x7C, &TextSettings::TopInDACUnits},
    {0x80, &TextSettings::UnitsPrecision},
    {0x84, &TextSettings::CharWidth},
    {0x88, &TextSettings::FrameColor},
    {0x8C, &TextSettings::GuideColor},
    {0x90, &TextSettings::SpareColor},
    {0xF0, &TextSettings::TextDirection},
    {0x104, &TextSettings::SpareScaleX},
    {0x108, &TextSettings::SpareScaleY},
    {0x10C, &TextSettings::Invert},
};

/// Moves one field into the record.
struct Encoder {
    const TextSettings& settings;
    std::byte* to;

    template <typename Value>
    void operator()(Value TextSettings::*member) const {
        storeLittleEndian(to, settings.*member);
    }
    void operator()(HostLength length) const {
        const std::int32_t whole = truncateToInt32(settings.*length.micrometres);
        storeLittleEndian(to, toUserUnits(whole, settings.Measurement));
    }
};

/// Moves one field out of the record.
struct Decoder {
    const std::byte* from;
    TextSettings& settings;

    template <typename Value>
    void operator()(Value TextSettings::*member) const {
        loadLittleEndian(from, settings.*member);
    }
    void operator()(HostLength length) const {
        float held = 0;
        loadLittleEndian(from, held);
        settings.*length.micrometres = static_cast<float>(toInternalUnits(held, settings.Measurement));
    }
};

}  // namespace

void encodePropertyRecord(const TextSettings& settings, std::span<std::byte, kPropertyRecordSize> record) {
    std::ranges::fill(record, std::byte{});
    for (const Field& field : kFields) std::visit(Encoder{settings, record.data() + field.offset}, field.member);
}

void decodePropertyRecord(std::span<const std::byte, kPropertyRecordSize> record, TextSettings& settings) {
    for (const Field& field : kFields) std::visit(Decoder{record.data() + field.offset, settings}, field.member);
}

}  // namespace ovaline
