// Files that are there whole or not at all.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>

#include "host/sink.h"

namespace ovaline::host {

/// A file that is written beside its place and takes the place only when it is complete.
class OutputFile final : public Sink {
public:
    /// `target` need not exist; where it does, it is a file that may be replaced. Throws Failure where it cannot be
    /// written.
    explicit OutputFile(const std::filesystem::path& target);
    /// What was not committed is removed.
    ~OutputFile() override;

    /// Writes the last block and closes the file. Throws Failure where the medium is full.
    void close();

    /// Puts the closed file in its place.
    void commit();

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    void deliver(std::string_view bytes) override;

    std::filesystem::path named_;
    std::filesystem::path target_;
    std::filesystem::path temporary_;
    std::unique_ptr<std::FILE, Close> file_;
};

/// Standard output, as bytes.
class StandardOutput final : public Sink {
    void deliver(std::string_view bytes) override;
};

}  // namespace ovaline::host
