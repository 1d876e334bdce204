// Where a writer's bytes go.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ovaline::host {

/// Collects bytes and hands them on in blocks. The last block is handed on by `flush`.
class Sink {
public:
    Sink() = default;
    virtual ~Sink() = default;
    Sink(const Sink&) = delete;
    Sink& operator=(const Sink&) = delete;

    /// Appends bytes. Throws Failure where they cannot be written.
    void append(std::string_view bytes) {
        block_ += bytes;
        if (block_.size() >= kBlockSize) flush();
    }
    void flush() {
        deliver(block_);
        block_.clear();
    }

protected:
    virtual void deliver(std::string_view bytes) = 0;

private:
    static constexpr std::size_t kBlockSize = std::size_t{64} << 10;
    std::string block_;
};

}  // namespace ovaline::host
