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

// Both directions read this table.
constexpr Field kFields[] = {
    {record_offset::PathType, &TextSettings::PathType},
    {record_offset::StartAngle, &TextSettings::StartAngle},
    {record_offset::FillStyle, &TextSettings::FillStyle},
    {record_offset::FillLineWidth, &TextSettings::FillLineWidth},
    {record_offset::FillDistance, &TextSettings::FillDistance},
    {record_offset::FillLineAngle, &TextSettings::FillLineAngle},
    {record_offset::FillCrossAngle, &TextSettings::FillCrossAngle},
    {record_offset::OutlineType, &TextSettings::OutlineType},
    {record_offset::TextOutline, &TextSettings::TextOutline},
    {record_offset::MirrorHorizontal, &TextSettings::MirrorHorizontal},
    {record_offset::MirrorVertical, &TextSettings::MirrorVertical},
    {record_offset::ShowAxes, &TextSettings::ShowAxes},
    {record_offset::StepSize, &TextSettings::StepSize},
    {record_offset::CharSpace, &TextSettings::CharSpace},
    {record_offset::Angle, &TextSettings::Angle},
    {record_offset::ActualLeft, HostLength{&TextSettings::ActualLeft}},
    {record_offset::ActualTop, HostLength{&TextSettings::ActualTop}},
    {record_offset::Width, HostLength{&TextSettings::Width}},
    {record_offset::Height, HostLength{&TextSettings::Height}},
    {record_offset::SpareFlag, &TextSettings::SpareFlag},
    {record_offset::Flatness, &TextSettings::Flatness},
    {record_offset::SpareInt, &TextSettings::SpareInt},
    {record_offset::ZoomFactor, &TextSettings::ZoomFactor},
    {record_offset::ResolutionInDPI, &TextSettings::ResolutionInDPI},
    {record_offset::DotsPerUnit, &TextSettings::DotsPerUnit},
    {record_offset::UnitFactor, &TextSettings::UnitFactor},
    {record_offset::LeftInDACUnits, &TextSettings::LeftInDACUnits},
    {record_offset::TopInDACUnits, &TextSettings::TopInDACUnits},
    {record_offset::UnitsPrecision, &TextSettings::UnitsPrecision},
    {record_offset::CharWidth, &TextSettings::CharWidth},
    {record_offset::FrameColor, &TextSettings::FrameColor},
    {record_offset::GuideColor, &TextSettings::GuideColor},
    {record_offset::SpareColor, &TextSettings::SpareColor},
    {record_offset::TextDirection, &TextSettings::TextDirection},
    {record_offset::SpareScaleX, &TextSettings::SpareScaleX},
    {record_offset::SpareScaleY, &TextSettings::SpareScaleY},
    {record_offset::Invert, &TextSettings::Invert},
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
