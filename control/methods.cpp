// The methods of the interface.
#include <algorithm>
#include <cstring>

#include "control/property_record.h"
#include "control/settings_slices.h"
#include "control/store.h"
#include "platform/numbers.h"

namespace ovaline {

namespace {

/// The data field of the VARIANT that `argument` refers to. The tags are not examined; null where nothing is referred
/// to.
void* referredAddress(const VARIANT& argument) {
    const auto* inner = static_cast<const VARIANT*>(argument.byref);
    return inner ? inner->byref : nullptr;
}

void writeInteger(const VARIANT& argument, float value) {
    if (void* address = referredAddress(argument)) {
        const std::int32_t whole = truncateToInt32(value);
        std::memcpy(address, &whole, sizeof whole);
    }
}

void setActualSize(TextSettings& settings, LONG left, LONG top, LONG width, LONG height) {
    settings.ActualLeft = static_cast<float>(left);
    settings.ActualTop = static_cast<float>(top);
    settings.Width = static_cast<float>(width);
    settings.Height = static_cast<float>(height);
}

/// A size scaled so that a result of `current` becomes one of `wanted` µm; unchanged where there is no result.
float scaledSize(float size, LONG wanted, float current) {
    if (current == 0) return size;
    const float ratio = static_cast<float>(wanted) / current;
    return static_cast<float>(truncateToInt32(static_cast<double>(ratio) * truncateToInt32(size)));
}

}  // namespace

HRESULT CNorvel_OvalineCtrl::RotateByQuadrant() {
    return storeAndUpdate([](TextSettings& settings) {
        settings.Angle = static_cast<float>(settings.Angle + 90.0);
        if (settings.Angle >= 360) settings.Angle = static_cast<float>(settings.Angle - 360.0);
    });
}

HRESULT CNorvel_OvalineCtrl::SetZoomFactor(FLOAT ZoomFactor) {
    return storeAndUpdate([&](TextSettings& settings) { settings.ZoomFactor = ZoomFactor; });
}

HRESULT CNorvel_OvalineCtrl::SetResolutionInDPI(FLOAT resDPI) {
    return storeOnly([&](TextSettings& settings) { setResolutionInDPI(settings, resDPI); });
}

HRESULT CNorvel_OvalineCtrl::SetLeftTopinDACUnits(USHORT Left, USHORT Top) {
    return storeOnly([&](TextSettings& settings) {
        settings.LeftInDACUnits = Left;
        settings.TopInDACUnits = Top;
    });
}

HRESULT CNorvel_OvalineCtrl::SetDotsPerUnit(FLOAT DotsPerUnit) {
    return storeOnly([&](TextSettings& settings) { setDotsPerUnit(settings, DotsPerUnit); });
}

HRESULT CNorvel_OvalineCtrl::SetUnitsPrecision(INT Precision) {
    return storeOnly([&](TextSettings& settings) { settings.UnitsPrecision = static_cast<std::uint16_t>(Precision); });
}

HRESULT CNorvel_OvalineCtrl::GetUnitsPrecision(INT* Precision) {
    *Precision = settings_.UnitsPrecision;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetUnitFactor(FLOAT* UnitFactor) {
    *UnitFactor = settings_.UnitFactor;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::InvertColor() {
    return storeAndUpdate([](TextSettings& settings) { settings.Invert = ~settings.Invert; });
}

HRESULT CNorvel_OvalineCtrl::FlipH() {
    return storeAndUpdate([](TextSettings& settings) { settings.MirrorHorizontal = ~settings.MirrorHorizontal; });
}

HRESULT CNorvel_OvalineCtrl::FlipV() {
    return storeAndUpdate([](TextSettings& settings) { settings.MirrorVertical = ~settings.MirrorVertical; });
}

HRESULT CNorvel_OvalineCtrl::SetMeasurement(INT mMeasurement) {
    return storeOnly([&](TextSettings& settings) { settings.Measurement = mMeasurement; });
}

HRESULT CNorvel_OvalineCtrl::GetMeasurement(INT* mMeasurement) {
    *mMeasurement = settings_.Measurement;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::SetDefaultSize(LONG) {
    return storeAndUpdate(
        [](TextSettings& settings) { settings.Width = settings.Height = settings.Measurement == 0 ? 20000 : 25400; });
}

HRESULT CNorvel_OvalineCtrl::SetUpdateFlag(LONG newVal) {
    return storeAndUpdate([&](TextSettings& settings) { settings.UpdateFlag = newVal; });
}

HRESULT CNorvel_OvalineCtrl::SetBackGroundColor(LONG newVal) {
    return storeAndUpdate([&](TextSettings& settings) { settings.BackGroundColor = newVal; });
}

HRESULT CNorvel_OvalineCtrl::SetScreenXY(INT Left, INT Top) {
    return storeAndUpdate([&](TextSettings& settings) {
        settings.ScreenLeft = static_cast<float>(Left);
        settings.ScreenTop = static_cast<float>(Top);
    });
}

HRESULT CNorvel_OvalineCtrl::SetActualXY(LONG Left, LONG Top) {
    return storeAndUpdate([&](TextSettings& settings) {
        settings.ActualLeft = static_cast<float>(Left);
        settings.ActualTop = static_cast<float>(Top);
    });
}

HRESULT CNorvel_OvalineCtrl::SetScreenSize(INT Left, INT Top, INT right, INT bottom) {
    return storeAndUpdate([&](TextSettings& settings) {
        settings.ScreenLeft = static_cast<float>(Left);
        settings.ScreenTop = static_cast<float>(Top);
        settings.ScreenWidth = static_cast<float>(right);
        settings.ScreenHeight = static_cast<float>(bottom);
    });
}

HRESULT CNorvel_OvalineCtrl::GetScreenSize(VARIANT Left, VARIANT Top, VARIANT right, VARIANT bottom) {
    writeInteger(Left, settings_.ScreenLeft);
    writeInteger(Top, settings_.ScreenTop);
    writeInteger(right, settings_.ScreenWidth);
    writeInteger(bottom, settings_.ScreenHeight);
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::SetActualSize(LONG Left, LONG Top, LONG right, LONG bottom) {
    return storeAndUpdate([&](TextSettings& settings) { setActualSize(settings, Left, Top, right, bottom); });
}

HRESULT CNorvel_OvalineCtrl::GetActualSize(VARIANT Left, VARIANT Top, VARIANT right, VARIANT bottom) {
    writeInteger(Left, settings_.ActualLeft);
    writeInteger(Top, settings_.ActualTop);
    writeInteger(right, settings_.Width);
    writeInteger(bottom, settings_.Height);
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::SetResultSize(LONG Left, LONG Top, LONG right, LONG bottom) {
    return storeAndUpdate([&](TextSettings& settings) {
        if (settings.ResultRight == 0 && settings.ResultBottom == 0) {
            setActualSize(settings, Left, Top, right, bottom);
            return;
        }
        settings.Width = scaledSize(settings.Width, right, settings.ResultRight);
        settings.Height = scaledSize(settings.Height, bottom, settings.ResultBottom);
    });
}

HRESULT CNorvel_OvalineCtrl::GetResultSize(VARIANT Left, VARIANT Top, VARIANT right, VARIANT bottom) {
    writeInteger(Left, settings_.ResultLeft);
    writeInteger(Top, settings_.ResultTop);
    writeInteger(right, settings_.ResultRight);
    writeInteger(bottom, settings_.ResultBottom);
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetArrayType(INT* pVal) {
    *pVal = settings_.composed() ? 0 : 1;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::DisplayInPoint(LONG newVal) {
    return storeOnly([&](TextSettings& settings) { settings.DisplayInPoint = newVal; });
}

HRESULT CNorvel_OvalineCtrl::GetDisplayInPoint(LONG* pVal) {
    *pVal = settings_.DisplayInPoint;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetVectorDataSize(ULONG* DataSizeinByte) {
    *DataSizeinByte = vectorDataSize(vectorJobOf(settings_, paths_));
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::exportTo(const VARIANT& buffer, ULONG size, StreamWriter write) {
    auto* bytes = static_cast<std::byte*>(referredAddress(buffer));
    if (!bytes) return E_POINTER;
    try {
        return write(vectorJobOf(settings_, paths_), {bytes, size}) ? S_OK : DISP_E_BUFFERTOOSMALL;
    } catch (const std::bad_alloc&) {
        if (size >= kVectorRecordSize) encode(kEndRecord, bytes);
        return E_OUTOFMEMORY;
    }
}

HRESULT CNorvel_OvalineCtrl::GetVectorData(VARIANT pVectorData, ULONG outbuffSize) {
    return exportTo(pVectorData, outbuffSize, &writeVectorData);
}

HRESULT CNorvel_OvalineCtrl::GetOutlineData(VARIANT pVectorData, ULONG outbuffSize) {
    return exportTo(pVectorData, outbuffSize, &writeOutlineData);
}

void CNorvel_OvalineCtrl::renderHeldRaster() {
    Status status = OutOfMemory;
    try {
        status = renderRaster(rasterJobOf(settings_, paths_), raster_);
    } catch (const std::bad_alloc&) {
    }
    rasterStatus_ = status == Ok ? S_OK : status == OutOfMemory ? E_OUTOFMEMORY : E_INVALIDARG;
}

HRESULT CNorvel_OvalineCtrl::SetStepSize(FLOAT StepSize) {
    settings_.StepSize = StepSize;
    renderHeldRaster();
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetRasterDataSize(LONG* DataSizeinByte) {
    renderHeldRaster();
    *DataSizeinByte = rasterDataSize(raster_);
    return S_OK;
}

// Without a held raster the empty one is written, and the status says why there is none.
HRESULT CNorvel_OvalineCtrl::GetRasterData(VARIANT pRasterData, LONG outbuffSize) {
    auto* bytes = static_cast<std::byte*>(referredAddress(pRasterData));
    if (!bytes) return E_POINTER;
    const bool fits = writeRasterData(raster_, {bytes, static_cast<std::size_t>(std::max<LONG>(outbuffSize, 0))});
    if (FAILED(rasterStatus_)) return rasterStatus_;
    return fits ? S_OK : DISP_E_BUFFERTOOSMALL;
}

HRESULT CNorvel_OvalineCtrl::GetProperty(VARIANT pPropertyData) {
    auto* record = static_cast<std::byte*>(pPropertyData.byref);
    if (!record) return E_POINTER;
    encodePropertyRecord(settings_, std::span<std::byte, kPropertyRecordSize>(record, kPropertyRecordSize));
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::SetProperty(VARIANT pPropertyData) {
    const auto* record = static_cast<const std::byte*>(pPropertyData.byref);
    if (!record) return E_POINTER;
    return storeAndUpdate([&](TextSettings& settings) {
        decodePropertyRecord(std::span<const std::byte, kPropertyRecordSize>(record, kPropertyRecordSize), settings);
    });
}

HRESULT CNorvel_OvalineCtrl::SetIncrement() {
    if (settings_.SerialNumEnable == 0) return S_OK;
    return storeAndUpdate(
        [](TextSettings& settings) { settings.SerNumStart = copyTextsOf(settings).serialAfterArray(); });
}

}  // namespace ovaline
