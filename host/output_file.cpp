#include "host/output_file.h"

#include <cerrno>
#include <cstring>
#include <random>
#include <string>

#include "host/failure.h"
#include "platform/paths.h"

namespace ovaline::host {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& target, const std::string& reason) {
    throw Failure(platform::pathText(target) + " cannot be written, " + reason);
}

/// The file that a name stands for: replacing a link would leave the file that it leads to as it was.
fs::path resolved(const fs::path& target) {
    std::error_code failed;
    if (!fs::is_symlink(target, failed)) return target;
    fs::path file = fs::canonical(target, failed);
    if (failed) fail(target, failed.message());
    return file;
}

}  // namespace

OutputFile::OutputFile(const fs::path& target) : named_(target), target_(resolved(target)) {
    std::error_code ignored;
    // A device or a folder is not a file that another can take the place of.
    const fs::file_status status = fs::status(target_, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) fail(named_, "it is not a file");
    std::random_device random;
    constexpr int kAttempts = 100;
    for (int i = 0; i < kAttempts && !file_; ++i) {
        temporary_ = target_;
        temporary_ += "." + std::to_string(random()) + ".part";
        file_.reset(platform::createFile(temporary_));
        if (!file_ && errno != EEXIST) break;
    }
    if (file_) return;
    const std::string reason = std::strerror(errno);
    temporary_.clear();
    fail(named_, reason);
}

OutputFile::~OutputFile() {
    file_.reset();
    std::error_code ignored;
    if (!temporary_.empty()) fs::remove(temporary_, ignored);
}

void OutputFile::deliver(std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) fail(named_, std::strerror(errno));
}

void OutputFile::close() {
    flush();
    if (std::fclose(file_.release()) != 0) fail(named_, std::strerror(errno));
}

void OutputFile::commit() {
    std::error_code failed;
    fs::rename(temporary_, target_, failed);
    if (failed) fail(named_, failed.message());
    temporary_.clear();
}

void StandardOutput::deliver(std::string_view bytes) {
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
    if (!written || std::fflush(stdout) != 0)
        throw Failure(std::string("standard output cannot be written, ") + std::strerror(errno));
}

}  // namespace ovaline::host
