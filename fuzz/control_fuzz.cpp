// Random operations on one control: whatever a host puts, each ends, nothing is written past a buffer, and the stream
// is well-formed.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "control/interface/type_library.h"
#include "control/norvel_ovaline_ctrl.h"
#include "output/vector_record.h"
#include "platform/clock.h"
#include "platform/fonts.h"

namespace ovaline {
namespace {

/// Takes numbers from the fuzzer's input, zeros behind its end.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    bool empty() const { return at_ >= size_; }
    template <typename Number>
    Number number() {
        Number value{};
        const std::size_t count = std::min(sizeof value, size_ - std::min(at_, size_));
        if (count > 0) std::memcpy(&value, data_ + at_, count);
        at_ += sizeof value;
        return value;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t at_ = 0;
};

/// A value of the given type, often one that a host would put.
VARIANT argument(Input& input, VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    const auto kind = input.number<std::uint8_t>();
    if (type == VT_R4) {
        const auto bits = input.number<std::uint32_t>();
        std::memcpy(&value.fltVal, &bits, sizeof bits);
        if (kind % 4 != 0) value.fltVal = static_cast<float>(bits % 60000) / 1000;
    } else if (type == VT_BSTR) {
        std::u16string text(kind % 32, u' ');
        for (char16_t& unit : text) {
            unit = input.number<std::uint16_t>();
            if (kind % 3 != 0) unit = static_cast<char16_t>(u' ' + unit % 95);
        }
        value.bstrVal = platform::makeBstr(text);
    } else {
        value.lVal = input.number<std::int32_t>();
        if (kind % 4 != 0) value.lVal %= 8;
    }
    return value;
}

void require(bool condition) {
    if (!condition) std::abort();
}

void checkStream(CNorvel_OvalineCtrl& control, Input& input) {
    constexpr std::size_t kGuard = 32;
    ULONG size = 0;
    control.GetVectorDataSize(&size);
    size = input.number<std::uint8_t>() % 2 ? std::min<ULONG>(size, 1u << 22) : input.number<std::uint16_t>();
    std::vector<std::byte> buffer(size + kGuard, std::byte{0xA5});
    VARIANT inner{}, outer{};
    inner.byref = buffer.data();
    outer.byref = &inner;
    const HRESULT hr = control.GetVectorData(outer, size);
    require(hr == S_OK || hr == DISP_E_BUFFERTOOSMALL);
    for (std::size_t i = size; i < buffer.size(); ++i) require(buffer[i] == std::byte{0xA5});
    for (std::size_t at = 0; at + kVectorRecordSize <= size; at += kVectorRecordSize) {
        const char code = decode(&buffer[at]).code;
        require(std::strchr("udxUDE", code) && code != 0);
        if (code == 'E') return;
    }
    require(size < kVectorRecordSize);
}

void run(Input input) {
    const auto control = platform::ComPtr<CNorvel_OvalineCtrl>::adopt(
        CNorvel_OvalineCtrl::create(platform::systemFonts(), platform::systemClock(), 96));
    control->SetDefaultSize(0);
    for (int step = 0; step < 24 && !input.empty(); ++step) {
        const Member& member = members()[input.number<std::uint8_t>() % members().size()];
        if (member.kind != MemberKind::Method) {
            VARIANT value = argument(input, member.type.vt);
            member.put(*control.get(), {&value, 1});
            VariantClear(&value);
            member.get(*control.get(), {&value, 1});
            VariantClear(&value);
            continue;
        }
        std::vector<VARIANT> values;
        bool callable = true;
        for (const ValueType& type : member.parameters) {
            callable = callable && type.vt != VT_VARIANT;
            values.push_back(type.out ? VARIANT{} : argument(input, type.vt));
        }
        if (callable) member.call(*control.get(), values);
        for (VARIANT& value : values) VariantClear(&value);
    }
    control->SetUpdateFlag(1);
    checkStream(*control.get(), input);
}

}  // namespace
}  // namespace ovaline

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ovaline::run({data, size});
    return 0;
}
