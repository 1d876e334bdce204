#include "host/copy_list.h"

#include <string_view>

#include "host/control_host.h"
#include "host/control_reader.h"
#include "host/text_encoding.h"

namespace ovaline::host {

namespace {

using Table = INorvel_OvalineCtrlTable;

template <typename Value>
Value read(Table& control, HRESULT (STDMETHODCALLTYPE INorvel_OvalineCtrl::*get)(Value*), const char* name) {
    Value value{};
    require((control.*get)(&value), std::string("getting ") + name);
    return value;
}

}  // namespace

CopyTexts copyTextsOf(Table& control) {
    using Get = INorvel_OvalineCtrl;
    CopyTexts texts;
    texts.prefix = readText(control, &Get::get_SerialNumPrefix, "SerialNumPrefix");
    texts.serialStart = readText(control, &Get::get_SerNumStart, "SerNumStart");
    texts.suffix = readText(control, &Get::get_SerNumSuffix, "SerNumSuffix");
    texts.digitCount = read(control, &Get::get_SerNumDecimalPlaces, "SerNumDecimalPlaces");
    texts.serialType = read(control, &Get::get_SerialNumberType, "SerialNumberType");
    texts.increment = read(control, &Get::get_SerNumIncrement, "SerNumIncrement");
    texts.serialOn = read(control, &Get::get_SerialNumEnable, "SerialNumEnable") != 0;
    texts.dateOn = read(control, &Get::get_AutoDateEnable, "AutoDateEnable") != 0;
    texts.dateFormat = read(control, &Get::get_AutoDateFormat, "AutoDateFormat");
    texts.customDate = readText(control, &Get::get_CustomAutoText, "CustomAutoText");
    texts.datePosition = read(control, &Get::get_AutoDatePosition, "AutoDatePosition");
    texts.dateOffset = read(control, &Get::get_AutoDateOffset, "AutoDateOffset");
    texts.columns = read(control, &Get::get_ArrayXDimension, "ArrayXDimension");
    texts.rows = read(control, &Get::get_ArrayYDimension, "ArrayYDimension");
    texts.direction = read(control, &Get::get_SerialDirection, "SerialDirection");
    return texts;
}

std::string copyList(Table& control) {
    std::string list;
    const auto add = [&list](std::int32_t column, std::int32_t row, const std::u16string& text) {
        list += std::to_string(column + 1) + '\t' + std::to_string(row + 1) + '\t' + toUtf8(text) + '\n';
        return true;
    };
    const CopyTexts texts = copyTextsOf(control);
    if (!isStaticText(control)) {
        texts.forEach(platform::systemClock(), add);
        return list;
    }
    const std::u16string text = readText(control, &INorvel_OvalineCtrl::get_TextData, "TextData");
    for (std::int32_t row = 0; row < texts.rows; ++row)
        for (std::int32_t column = 0; column < texts.columns; ++column) add(column, row, text);
    return list;
}

std::string refusal(Table& control) {
    if (isStaticText(control)) return {};
    const ResultSize size = readResultSize(control);
    if (size.width != 0 || size.height != 0) return {};
    const CopyTexts texts = copyTextsOf(control);
    std::u16string first;
    texts.forEach(platform::systemClock(), [&](std::int32_t, std::int32_t, const std::u16string& text) {
        first = text;
        return false;
    });
    if (first.empty()) return {};
    return "the control cannot hold " + std::to_string(texts.columns) + " x " + std::to_string(texts.rows) +
           " copies of " + std::to_string(first.size()) +
           " characters, lower ArrayXDimension or ArrayYDimension, or raise Flatness";
}

}  // namespace ovaline::host
