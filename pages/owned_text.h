// A text on its way to or from a control.
#pragma once

#include <new>
#include <string_view>

#include "platform/com.h"

namespace ovaline {

/// Frees the text that it holds.
class OwnedText {
public:
    /// For a property to put its text into.
    OwnedText() = default;
    /// Throws std::bad_alloc rather than holding null, which would be put as an empty text.
    explicit OwnedText(std::u16string_view text) : text_(platform::makeBstr(text)) {
        if (!text_) throw std::bad_alloc();
    }
    ~OwnedText() { SysFreeString(text_); }
    OwnedText(const OwnedText&) = delete;
    OwnedText& operator=(const OwnedText&) = delete;

    BSTR get() const { return text_; }
    BSTR* put() { return &text_; }

private:
    BSTR text_ = nullptr;
};

}  // namespace ovaline
