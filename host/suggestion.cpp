#include "host/suggestion.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace ovaline::host {

namespace {

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Insertions, removals and replacements that turn one word into the other.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (lowered(a[i]) == lowered(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::string suggestion(std::string_view given, std::span<const std::string_view> names) {
    // A word much longer than every name is no slip of the pen, and comparing it would take its length squared.
    constexpr std::size_t kLongestWord = 64;
    if (given.size() > kLongestWord) return {};
    std::string_view nearest;
    std::size_t least = std::max<std::size_t>(2, given.size() / 3) + 1;
    for (const std::string_view name : names) {
        const std::size_t distance = editDistance(given, name);
        if (distance < least) {
            least = distance;
            nearest = name;
        }
    }
    return nearest.empty() ? std::string() : "; did you mean " + std::string(nearest) + "?";
}

}  // namespace ovaline::host
