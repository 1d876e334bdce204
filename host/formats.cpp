#include "host/formats.h"

#include <algorithm>
#include <array>
#include <string>

#include "host/failure.h"
#include "platform/paths.h"

namespace ovaline::host {

namespace {

struct NamedFormat {
    std::string_view name;
    Format format;
};

constexpr std::array<NamedFormat, 8> kFormats = {{{"ovl", Format::Stream},
                                                  {"json", Format::Records},
                                                  {"svg", Format::Svg},
                                                  {"dxf", Format::Dxf},
                                                  {"gcode", Format::Gcode},
                                                  {"png", Format::Png},
                                                  {"pdf", Format::Pdf},
                                                  {"pbm", Format::Pbm}}};

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

Format formatOf(std::string_view name) {
    std::string wanted(name);
    std::ranges::transform(wanted, wanted.begin(), lowered);
    const std::string choose = ", choose one of " + std::string(kFormatNames);
    const auto found = std::ranges::find(kFormats, wanted, &NamedFormat::name);
    if (found == kFormats.end())
        throw Failure((name.empty() ? "no format is given" : "there is no format " + std::string(name)) + choose);
    return found->format;
}

Format formatOfFile(const std::filesystem::path& file) {
    const std::string ending = platform::pathText(file.extension());
    try {
        return formatOf(ending.empty() ? std::string_view() : std::string_view(ending).substr(1));
    } catch (const Failure& failure) {
        throw Failure(platform::pathText(file) + ": " + failure.what());
    }
}

}  // namespace ovaline::host
