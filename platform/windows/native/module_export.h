// What makes a function one of the module's exports: their list is the module's definition file.
#pragma once

#define MODULE_EXPORT extern "C"
