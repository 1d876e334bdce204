// What keeps the module loaded.
#pragma once

#include <atomic>

namespace ovaline::platform {

/// Live objects and locks of this module; it may be unloaded when there are none.
inline std::atomic<long> moduleLockCount{0};

/// Counts one object for as long as it lives.
class ModuleLock {
public:
    ModuleLock() { ++moduleLockCount; }
    ~ModuleLock() { --moduleLockCount; }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

}  // namespace ovaline::platform
