// MODULE_EXPORT, which makes a function one of the module's exports.
#pragma once

#include "native/module_export.h"
