#include "platform/posix/registry_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

#include "platform/posix/utf8.h"

namespace ovaline::platform {

namespace {

constexpr std::string_view kHeader = "Windows Registry Editor Version 5.00";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kNumberMark = "dword:";

/// A tree holds nothing that UTF-8 cannot.
std::string utf8Of(std::u16string_view text) {
    return utf8FromUtf16(text).value();
}

void appendQuoted(std::string& out, std::u16string_view text) {
    out += '"';
    for (const char c : utf8Of(text)) {
        if (c == '\\' || c == '"') out += '\\';
        out += c;
    }
    out += '"';
}

void appendNumber(std::string& out, std::uint32_t number) {
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    const auto count = static_cast<std::size_t>(end - digits.data());
    out += kNumberMark;
    out.append(digits.size() - count, '0').append(digits.data(), count);
}

class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    std::variant<RegistryTree, std::string> read() {
        take(kByteOrderMark);
        skipEmptyLines();
        if (!rest_.empty() && !(take(kHeader) && takeLineEnd()))
            return wrong("is not \"" + std::string(kHeader) + "\"");
        for (skipEmptyLines(); !rest_.empty(); skipEmptyLines()) {
            const char first = rest_.front();
            const bool understood = first == ';' ? takeComment() : first == '[' ? takeKey() : takeValue();
            if (!understood) return wrong("is not a key, or a text or dword value under one");
        }
        RegistryTree tree;
        tree.apply(changes_);
        return tree;
    }

private:
    std::string wrong(const std::string& what) const { return "line " + std::to_string(line_) + " " + what; }

    bool take(std::string_view text) {
        if (!rest_.starts_with(text)) return false;
        rest_.remove_prefix(text.size());
        return true;
    }

    void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size())); }

    bool takeLineEnd() {
        skipBlanks();
        if (rest_.empty()) return true;
        if (!take("\n")) return false;
        ++line_;
        return true;
    }

    void skipEmptyLines() {
        while (!rest_.empty() && takeLineEnd()) {
        }
    }

    bool takeComment() {
        rest_.remove_prefix(std::min(rest_.find('\n'), rest_.size()));
        return takeLineEnd();
    }

    bool takeKey() {
        // A key's name may hold a bracket: the line's last one ends it.
        const std::string_view line = rest_.substr(0, rest_.find('\n'));
        const std::size_t end = line.rfind(']');
        if (end == std::string_view::npos) return false;
        key_ = utf16FromUtf8(line.substr(1, end - 1));
        if (!key_ || !isRegistryKey(*key_)) return false;
        rest_.remove_prefix(end + 1);
        changes_.push_back({RegistryChange::Kind::CreateKey, *key_, {}, {}});
        return takeLineEnd();
    }

    bool takeValue() {
        std::optional<std::u16string> name;
        if (take("@")) {
            name.emplace();
        } else {
            name = takeQuoted();
        }
        if (!key_ || !name) return false;
        skipBlanks();
        if (!take("=")) return false;
        skipBlanks();
        std::optional<RegistryValue> value;
        if (take(kNumberMark)) {
            value = takeNumber();
        } else {
            value = takeQuoted();
        }
        if (!value) return false;
        changes_.push_back({RegistryChange::Kind::SetValue, *key_, *name, *value});
        return takeLineEnd();
    }

    std::optional<std::u16string> takeQuoted() {
        if (!take("\"")) return std::nullopt;
        std::string text;
        for (std::size_t i = 0; i < rest_.size(); ++i) {
            if (rest_[i] == '"') {
                line_ += static_cast<int>(std::ranges::count(text, '\n'));
                rest_.remove_prefix(i + 1);
                return utf16FromUtf8(text);
            }
            if (rest_[i] == '\\' && ++i == rest_.size()) break;
            if (rest_[i] == '\0') break;
            text += rest_[i];
        }
        return std::nullopt;
    }

    std::optional<std::uint32_t> takeNumber() {
        std::uint32_t number = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number, 16);
        if (error != std::errc()) return std::nullopt;
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        return number;
    }

    std::string_view rest_;
    int line_ = 1;
    std::optional<std::u16string> key_;
    std::vector<RegistryChange> changes_;
};

}  // namespace

std::string registryText(const RegistryTree& tree) {
    std::string out(kHeader);
    out += '\n';
    for (const auto& [key, values] : tree.keys()) {
        out += "\n[" + utf8Of(key) + "]\n";
        for (const auto& [name, value] : values) {
            if (name.empty()) {
                out += '@';
            } else {
                appendQuoted(out, name);
            }
            out += '=';
            if (const auto* text = std::get_if<std::u16string>(&value)) {
                appendQuoted(out, *text);
            } else {
                appendNumber(out, std::get<std::uint32_t>(value));
            }
            out += '\n';
        }
    }
    return out;
}

std::variant<RegistryTree, std::string> readRegistryText(std::string_view utf8) {
    return Reader(utf8).read();
}

}  // namespace ovaline::platform
