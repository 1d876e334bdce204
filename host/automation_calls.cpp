#include "host/automation_calls.h"

#include <algorithm>
#include <array>
#include <limits>
#include <nlohmann/json.hpp>

#include "host/base64.h"
#include "host/buffers.h"
#include "host/failure.h"
#include "host/json_values.h"
#include "host/request.h"

namespace ovaline::host {

namespace {

/// Size of the settings record of GetProperty and SetProperty.
constexpr std::size_t kRecordSize = 272;

/// The outline has no size query of its own, and the vector data's size need not cover it.
constexpr std::size_t kLeastOutlineSize = std::size_t{16} << 20;

std::size_t countOf(const Member& method, VARTYPE vt) {
    return static_cast<std::size_t>(std::ranges::count(method.parameters, vt, &ValueType::vt));
}

void appendResults(AnswerLine& answer, std::span<const VARIANT> results) {
    if (results.empty()) return;
    if (results.size() == 1) return appendValue(answer.member("value"), results.front());
    std::string& out = answer.member("values");
    for (std::size_t i = 0; i < results.size(); ++i) {
        out += i == 0 ? "[" : ", ";
        appendValue(out, results[i]);
    }
    out += "]";
}

/// The line's arguments; an absent list is an empty one.
const Json& argumentsOf(const Json& request) {
    static const Json kNone = Json::array();
    const auto given = request.find("args");
    if (given == request.end()) return kNone;
    if (!given->is_array()) throw Failure("\"args\" takes a list");
    return *given;
}

void requireCount(const Member& method, const Json& given, std::size_t count) {
    if (given.size() == count) return;
    throw Failure(std::string(method.name) + " takes " + std::to_string(count) + " arguments, not " +
                  std::to_string(given.size()));
}

void callPlain(const Member& method, const Json& request, const ControlAccess& control, AnswerLine& answer) {
    allowOnly(request, "call", {"args"});
    const Json& given = argumentsOf(request);
    const auto isIn = [](const ValueType& type) { return !type.out; };
    requireCount(method, given, static_cast<std::size_t>(std::ranges::count_if(method.parameters, isIn)));
    // Published operations take what goes in before what comes out.
    Arguments arguments(method.parameters.size());
    for (std::size_t i = 0; i < given.size(); ++i) {
        const std::string what = std::string(method.parameterNames[i]) + " of " + std::string(method.name);
        store(given[i], method.parameters[i], what, arguments[i]);
    }
    const HRESULT hr = method.call(control(), arguments.all());
    answer.status(hr);
    if (SUCCEEDED(hr)) appendResults(answer, arguments.all().subspan(given.size()));
}

/// Places for 32-bit integers, each behind a reference to a reference.
void callWithReferences(const Member& method, const Json& request, const ControlAccess& control, AnswerLine& answer) {
    allowOnly(request, "call", {"args"});
    requireCount(method, argumentsOf(request), 0);
    constexpr std::size_t kCount = 4;
    std::array<LONG, kCount> places{};
    const std::array<NestedReference, kCount> references = {
        NestedReference(&places[0], VT_I4), NestedReference(&places[1], VT_I4), NestedReference(&places[2], VT_I4),
        NestedReference(&places[3], VT_I4)};
    Arguments arguments(kCount);
    for (std::size_t i = 0; i < kCount; ++i) arguments[i] = references[i].outer();
    const HRESULT hr = method.call(control(), arguments.all());
    answer.status(hr);
    if (FAILED(hr)) return;
    Arguments results(kCount);
    for (std::size_t i = 0; i < kCount; ++i) {
        results[i].vt = VT_I4;
        results[i].lVal = places[i];
    }
    appendResults(answer, results.all());
}

/// The size of the buffer where the line names none: what the control asks for; nothing where it cannot say.
std::size_t askedSize(const Member& method, INorvel_OvalineCtrlTable& control) {
    if (method.name == "GetRasterData") {
        LONG size = 0;
        return SUCCEEDED(control.GetRasterDataSize(&size)) ? static_cast<std::size_t>(std::max<LONG>(size, 0)) : 0;
    }
    ULONG size = 0;
    if (FAILED(control.GetVectorDataSize(&size))) size = 0;
    return method.name == "GetOutlineData" ? std::max<std::size_t>(size, kLeastOutlineSize) : size;
}

void callWithBuffer(const Member& method, const Json& request, const ControlAccess& control, AnswerLine& answer) {
    allowOnly(request, "call", {"size", "args"});
    requireCount(method, argumentsOf(request), 0);
    const bool isSigned = method.parameters[1].vt == VT_I4;
    const std::int64_t most = isSigned ? std::numeric_limits<LONG>::max() : std::numeric_limits<ULONG>::max();
    const auto given = request.find("size");
    std::optional<std::size_t> size;
    if (given != request.end()) size = static_cast<std::size_t>(wholeNumber(*given, 0, most, "\"size\""));

    INorvel_OvalineCtrlTable& table = control();
    if (!size) size = askedSize(method, table);
    GuardedBuffer buffer(*size);
    const NestedReference reference(buffer.data(), VT_UI1);
    Arguments arguments(2);
    arguments[0] = reference.outer();
    arguments[1].vt = method.parameters[1].vt;
    arguments[1].ulVal = static_cast<ULONG>(*size);
    answer.status(method.call(table, arguments.all()));
    answer.member("size") += std::to_string(*size);
    const std::size_t length =
        method.name == "GetRasterData" ? rasterLength(buffer.bytes()) : vectorStreamLength(buffer.bytes());
    std::string& data = answer.member("data");
    data.push_back('"');
    appendBase64(data, buffer.bytes().first(length));
    data.push_back('"');
    answer.member("overrun") += buffer.overrun() ? "true" : "false";
}

/// The record's address is the data field of the argument itself, not behind a second VARIANT.
void callWithRecord(const Member& method, const Json& request, const ControlAccess& control, AnswerLine& answer) {
    const bool isPut = method.name == "SetProperty";
    if (isPut)
        allowOnly(request, "call", {"data"});
    else
        allowOnly(request, "call", {"args"});
    requireCount(method, argumentsOf(request), 0);
    GuardedBuffer record(kRecordSize);
    if (isPut) {
        const auto bytes = decodeBase64(textMember(request, "data"));
        if (!bytes || bytes->size() != kRecordSize)
            throw Failure("\"data\" of SetProperty takes " + std::to_string(kRecordSize) + " bytes in base64");
        std::ranges::copy(*bytes, record.data());
    }
    Arguments arguments(1);
    arguments[0].vt = VT_BYREF | VT_UI1;
    arguments[0].byref = record.data();
    const HRESULT hr = method.call(control(), arguments.all());
    answer.status(hr);
    if (isPut || FAILED(hr)) return;
    std::string& data = answer.member("data");
    data.push_back('"');
    appendBase64(data, record.bytes());
    data.push_back('"');
}

}  // namespace

void performCall(const Member& method, const Json& request, const ControlAccess& control, AnswerLine& answer) {
    switch (countOf(method, VT_VARIANT)) {
        case 0:
            return callPlain(method, request, control, answer);
        case 1:
            return method.parameters.size() == 1 ? callWithRecord(method, request, control, answer)
                                                 : callWithBuffer(method, request, control, answer);
        default:
            return callWithReferences(method, request, control, answer);
    }
}

}  // namespace ovaline::host
