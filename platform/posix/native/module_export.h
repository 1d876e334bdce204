// What makes a function one of the module's exports.
#pragma once

#define MODULE_EXPORT extern "C" __attribute__((visibility("default")))
