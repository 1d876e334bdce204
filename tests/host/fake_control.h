// A control for the host's tests: it holds what is put, and hands over whatever stream the test wants, rightly or not.
#pragma once

#include <cstddef>
#include <vector>

#include "host/control_host.h"
#include "output/vector_record.h"

namespace ovaline::host::testing {

/// How every fake control of the process behaves; a test sets it before it creates one.
struct FakeBehaviour {
    std::vector<std::byte> stream;   ///< what GetVectorData and GetOutlineData write
    ULONG askedSize = 0;             ///< what GetVectorDataSize says
    std::size_t overrun = 0;         ///< bytes written behind the buffer
    HRESULT increment = S_OK;        ///< what SetIncrement answers
    LONG resultWidth = 0;            ///< micrometres
    LONG resultHeight = 0;           ///< micrometres
    std::vector<std::byte> record;   ///< what SetProperty received
    std::vector<std::byte> raster;   ///< what GetRasterData writes
    std::vector<std::size_t> sizes;  ///< the buffers that GetVectorData was handed
    int increments = 0;              ///< calls of SetIncrement
    int regenerations = 0;           ///< repaint requests sent
    int alive = 0;                   ///< controls that exist
};

FakeBehaviour& fake();

/// The class-object export of the fake module.
platform::GetClassObject fakeModule();

std::vector<std::byte> streamOf(const std::vector<VectorRecord>& records);

}  // namespace ovaline::host::testing
