#include "platform/posix/registry_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "platform/posix/registry_text.h"

namespace ovaline::platform {

namespace {

namespace fs = std::filesystem;

HRESULT statusOf(int error) {
    switch (error) {
        case EACCES:
        case EPERM:
        case EROFS:
            return kRegistryAccessDenied;
        case ENOENT:
        case ENOTDIR:
            return kRegistryNoPath;
        case ENOSPC:
        case EDQUOT:
            return kRegistryDiskFull;
        case ENOMEM:
            return E_OUTOFMEMORY;
        default:
            return kRegistryWriteFault;
    }
}

/// An open file, which also holds the lock that was taken on it.
class OpenFile {
public:
    OpenFile(const fs::path& path, int flags)
        : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH)) {}
    ~OpenFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    explicit operator bool() const { return descriptor_ >= 0; }
    int get() const { return descriptor_; }

private:
    int descriptor_;
};

struct Loaded {
    RegistryTree tree;  ///< empty where the status is a failure
    HRESULT status = S_OK;
    std::string reason;  ///< of the failure
};

Loaded failedLoad(HRESULT status, std::string reason) {
    Loaded failed;
    failed.status = status;
    failed.reason = std::move(reason);
    return failed;
}

Loaded load(const fs::path& path) {
    if (path.empty())
        return failedLoad(kRegistryNoPath, "there is no home folder for the registry's file, set OVALINE_REGISTRY");
    const auto unreadable = [&](int error) {
        return failedLoad(statusOf(error), path.string() + " cannot be read, " + std::strerror(error));
    };
    // Opening must not wait for the other end of a pipe that was named in place of a file.
    const OpenFile file(path, O_RDONLY | O_NONBLOCK);
    if (!file) return errno == ENOENT ? Loaded() : unreadable(errno);
    struct stat found {};
    if (::fstat(file.get(), &found) != 0) return unreadable(errno);
    if (!S_ISREG(found.st_mode)) return failedLoad(kRegistryAccessDenied, path.string() + " is not a file");
    std::string text;
    std::array<char, 16384> block{};
    for (;;) {
        const ssize_t count = ::read(file.get(), block.data(), block.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return unreadable(errno);
        if (count == 0) break;
        text.append(block.data(), static_cast<std::size_t>(count));
    }
    auto read = readRegistryText(text);
    if (const auto* reason = std::get_if<std::string>(&read))
        return failedLoad(kRegistryDamaged,
                          path.string() + " is damaged, " + *reason + ", repair it or move it out of the way");
    Loaded loaded;
    loaded.tree = std::get<RegistryTree>(std::move(read));
    return loaded;
}

bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Puts a file with that text in the place of `target`. Only the holder of the lock comes here, so that the name beside
/// it is free, but for what a process left behind that died here.
HRESULT replaceFile(const fs::path& target, std::string_view text) {
    fs::path beside = target;
    beside += ".part";
    struct stat replaced {};
    const bool exists = ::stat(target.c_str(), &replaced) == 0;
    if (exists && ::access(target.c_str(), W_OK) != 0) return statusOf(errno);
    const OpenFile file(beside, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
    if (!file) return statusOf(errno);
    const bool done = (!exists || ::fchmod(file.get(), replaced.st_mode & ALLPERMS) == 0) &&
                      writeAll(file.get(), text) && ::fsync(file.get()) == 0 &&
                      ::rename(beside.c_str(), target.c_str()) == 0;
    if (done) return S_OK;
    const HRESULT failure = statusOf(errno);
    ::unlink(beside.c_str());
    return failure;
}

}  // namespace

std::optional<RegistryValue> FileRegistry::value(std::u16string_view key, std::u16string_view name) const {
    return load(file_).tree.value(key, name);
}

std::optional<RegistryKeyContent> FileRegistry::list(std::u16string_view key) const {
    return load(file_).tree.list(key);
}

std::string FileRegistry::problem() const {
    return load(file_).reason;
}

HRESULT FileRegistry::apply(std::span<const RegistryChange> changes) {
    if (file_.empty()) return kRegistryNoPath;
    // Renaming over a link would leave the file that it leads to as it was.
    std::error_code failed;
    fs::path target = fs::absolute(file_, failed);
    if (!failed) target = fs::weakly_canonical(target, failed);
    if (!failed) fs::create_directories(target.parent_path(), failed);
    if (failed) return statusOf(failed.value());
    fs::path lockFile = target;
    lockFile += ".lock";
    const OpenFile lock(lockFile, O_RDWR | O_CREAT);
    if (!lock) return statusOf(errno);
    while (::flock(lock.get(), LOCK_EX) != 0)
        if (errno != EINTR) return statusOf(errno);

    Loaded held = load(target);
    if (FAILED(held.status)) return held.status;
    const RegistryTree::Keys before = held.tree.keys();
    if (const HRESULT hr = held.tree.apply(changes); FAILED(hr)) return hr;
    return held.tree.keys() == before ? S_OK : replaceFile(target, registryText(held.tree));
}

fs::path registryFile() {
    const auto setting = [](const char* name) {
        const char* value = std::getenv(name);
        return fs::path(value ? value : "");
    };
    if (fs::path file = setting("OVALINE_REGISTRY"); !file.empty()) return file;
    fs::path data = setting("XDG_DATA_HOME");
    if (data.empty()) {
        const fs::path home = setting("HOME");
        if (home.empty()) return {};
        data = home / ".local" / "share";
    }
    return data / "ovaline" / "registry.reg";
}

Registry& systemRegistry() {
    static FileRegistry registry(registryFile());
    return registry;
}

}  // namespace ovaline::platform
