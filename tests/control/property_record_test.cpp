#include "control/property_record.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "control_fixture.h"
#include "output/units.h"

namespace ovaline {
namespace {

using Record = std::array<std::byte, kPropertyRecordSize>;

template <typename Value>
Value at(const Record& record, std::size_t offset) {
    Value value{};
    std::memcpy(&value, &record[offset], sizeof value);
    return value;
}

template <typename Value>
void put(Record& record, std::size_t offset, Value value) {
    std::memcpy(&record[offset], &value, sizeof value);
}

/// The fields that hold any bits, with their sizes; the four lengths in the host's unit are not among them.
struct Plain {
    std::size_t offset;
    std::size_t size = 4;
};
constexpr Plain kPlain[] = {{0x00},    {0x04}, {0x08}, {0x0C},  {0x10},  {0x14}, {0x18}, {0x1C}, {0x20},
                            {0x24},    {0x28}, {0x2C}, {0x30},  {0x40},  {0x44}, {0x58}, {0x5C}, {0x60},
                            {0x64},    {0x68}, {0x70}, {0x74},  {0x78},  {0x7C}, {0x84}, {0x88}, {0x8C},
                            {0x80, 2}, {0x90}, {0xF0}, {0x104}, {0x108}, {0x10C}};
constexpr std::size_t kLengths[] = {0x48, 0x4C, 0x50, 0x54};

class PropertyRecordTest : public ControlTest {
protected:
    static VARIANT carrier(void* address) {
        VARIANT variant{};
        variant.vt = VT_EMPTY;  // the tag is not examined
        variant.byref = address;
        return variant;
    }
    Record record() {
        Record bytes;
        bytes.fill(std::byte{0xA5});
        EXPECT_EQ(control->GetProperty(carrier(bytes.data())), S_OK);
        return bytes;
    }
    void set(Record bytes) { EXPECT_EQ(control->SetProperty(carrier(bytes.data())), S_OK); }
};

TEST_F(PropertyRecordTest, OfANewControl) {
    Record expected{};
    put(expected, 0x00, 1);
    put(expected, 0x08, 1);
    put(expected, 0x0C, 30.0f);
    put(expected, 0x10, 40.0f);
    put(expected, 0x14, 45.0f);
    put(expected, 0x18, 90.0f);
    put(expected, 0x1C, 1);
    put(expected, 0x20, 30.0f);
    put(expected, 0x30, 40.0f);
    put(expected, 0x5C, 10.0f);
    put(expected, 0x60, 1);
    put(expected, 0x64, 1.0f);
    put(expected, 0x68, 15882.62f);
    put(expected, 0x70, 625.3f);
    put(expected, 0x74, 625.3f * 96 / 15882.62f);
    put(expected, 0x78, 20000.0f);
    put(expected, 0x7C, 20000.0f);
    put(expected, 0x80, std::uint16_t{3});
    put(expected, 0x88, 0x00BEBEBEu);
    put(expected, 0x8C, 0x007878FFu);
    put(expected, 0x104, 1.0f);
    put(expected, 0x108, 1.0f);
    EXPECT_EQ(record(), expected);
}

// Every bit of every field but the lengths survives, NaNs and numbers outside of enumerations too, and the rest of the
// record has no effect and comes back as zeros.
TEST_F(PropertyRecordTest, ComesBackAsItWasSet) {
    std::mt19937 random(7);
    control->SetUpdateFlag(0);
    for (int round = 0; round < 200; ++round) {
        Record given;
        for (std::byte& byte : given) byte = static_cast<std::byte>(random());
        Record expected{};
        for (const Plain field : kPlain) std::memcpy(&expected[field.offset], &given[field.offset], field.size);
        for (const std::size_t offset : kLengths) {
            const auto micrometres = static_cast<std::int32_t>(random() % 2000001) - 1000000;
            put(given, offset, static_cast<float>(micrometres) / 1000);
            const float whole = static_cast<float>(toInternalUnits(at<float>(given, offset), 0));
            put(expected, offset, toUserUnits(static_cast<std::int32_t>(whole), 0));
        }
        set(given);
        ASSERT_EQ(record(), expected) << "round " << round;
    }
}

TEST_F(PropertyRecordTest, EachFieldIsItsOwnSetting) {
    control->SetUpdateFlag(0);
    for (const Plain field : kPlain) {
        const Record before = record();
        Record changed = before;
        changed[field.offset] ^= std::byte{1};
        set(changed);
        EXPECT_EQ(record(), changed) << "offset " << field.offset;
        set(before);
        EXPECT_EQ(record(), before) << "offset " << field.offset;
    }
    // Those whose start-up values are told apart from their neighbours' by nothing.
    Record named = record();
    put(named, 0x00, 3);
    put(named, 0x2C, 2);
    put(named, 0x40, 120.0f);
    put(named, 0x58, -1);
    put(named, 0x84, 77.0f);
    put(named, 0x90, 0x123456);
    put(named, 0xF0, 1);
    put(named, 0x108, 2.5f);
    put(named, 0x10C, -1);
    put(named, 0x5C, 0.0f);  // nothing is limited
    set(named);
    const TextSettings& s = settings();
    EXPECT_EQ((std::array{s.PathType, s.ShowAxes, s.SpareFlag, s.SpareColor, s.TextDirection, s.Invert}),
              (std::array<std::int32_t, 6>{Ascender, NoAxesFull, -1, 0x123456, CounterClockwise, -1}));
    EXPECT_EQ((std::array{s.CharSpace, s.CharWidth, s.SpareScaleY, s.Flatness}),
              (std::array{120.0f, 77.0f, 2.5f, 0.0f}));
}

TEST_F(PropertyRecordTest, RebuildsOnlyWhilePutsDo) {
    control->SetDefaultSize(0);
    const GraphicsPath text = paths().TextPath;
    Record mirrored = record();
    put(mirrored, 0x24, -1);
    RecordingContainer container;
    control->SetAdvise(DVASPECT_CONTENT, 0, &container);
    for (const LONG updates : {0, 1}) {
        control->SetUpdateFlag(updates);
        container.events.clear();
        set(mirrored);
        EXPECT_EQ(settings().MirrorHorizontal, -1);
        EXPECT_EQ(std::ranges::equal(paths().TextPath.points(), text.points()), !updates);
        EXPECT_EQ(container.events.size(), updates ? 1u : 0u);
    }
    control->SetAdvise(0, 0, nullptr);
}

TEST_F(PropertyRecordTest, AddressesOfTheHost) {
    EXPECT_EQ(control->GetProperty(carrier(nullptr)), E_POINTER);
    EXPECT_EQ(control->SetProperty(carrier(nullptr)), E_POINTER);
    std::array<std::byte, kPropertyRecordSize + 32> bytes;
    bytes.fill(std::byte{0x5A});
    EXPECT_EQ(control->GetProperty(carrier(&bytes[3])), S_OK) << "at any alignment";
    for (const std::size_t outside : {std::size_t{2}, kPropertyRecordSize + 3, kPropertyRecordSize + 31})
        EXPECT_EQ(bytes[outside], std::byte{0x5A});
}

TEST_F(PropertyRecordTest, LengthsAreInTheUnitOfTheMoment) {
    control->SetUpdateFlag(0);
    control->SetActualSize(-1500, 12345, 25400, 3);
    const Record millimetres = record();
    EXPECT_EQ(at<float>(millimetres, 0x48), -1.499f) << "a negative length rounds toward zero";
    EXPECT_EQ(at<float>(millimetres, 0x4C), 12.345f);
    EXPECT_EQ(at<float>(millimetres, 0x54), 0.003f);
    control->SetMeasurement(1);
    const Record inches = record();
    EXPECT_EQ(at<float>(inches, 0x50), 1.0f);
    EXPECT_EQ(at<float>(inches, 0x4C), 0.486f);
    set(inches);
    EXPECT_EQ(settings().Width, 25400);
    control->SetMeasurement(0);
    set(inches);
    EXPECT_EQ(settings().Width, 1000);
    EXPECT_EQ(settings().Height, 0);
}

TEST_F(PropertyRecordTest, AnyRecordCanBeRebuiltFrom) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    control->SetDefaultSize(0);
    const Record sane = record();
    for (const Plain field : kPlain) {
        for (const float value : {kNan, kInfinity, -kInfinity, 0.0f, -1.0f, 1e-30f, 3e38f}) {
            Record odd = sane;
            std::memcpy(&odd[field.offset], &value, field.size);
            set(odd);
            EXPECT_EQ(std::memcmp(&record()[field.offset], &value, field.size), 0);
        }
    }
    for (const std::size_t offset : kLengths) {
        for (const float value : {kNan, kInfinity, -kInfinity, 3e38f}) {
            Record odd = sane;
            put(odd, offset, value);
            set(odd);
            EXPECT_TRUE(std::isfinite(at<float>(record(), offset)));
        }
    }
    std::mt19937 random(11);
    for (int round = 0; round < 100; ++round) {
        Record noise;
        for (std::byte& byte : noise) byte = static_cast<std::byte>(random());
        set(noise);
    }
    set(sane);
    EXPECT_EQ(record(), sane);
}

}  // namespace
}  // namespace ovaline
