// The SDK's COM types, and the little that the other platforms' declarations add to them.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>
