#include "platform/posix/letter_case.h"

#include <gtest/gtest.h>

namespace ovaline::platform {
namespace {

TEST(LetterCase, FoldsUnicodeWhateverTheLocale) {
    EXPECT_EQ(lowerCase(u"AZ[_ÄÖØßЯЖΩĄ预😀"), u"az[_äöøßяжωą预😀");
}

TEST(LetterCase, OrderIsAlphabeticalThenByCodeUnit) {
    const std::u16string_view ordered[] = {u"", u"_x", u"Alpha", u"alpha", u"ALPHA B", u"alphabet", u"Beta", u"Ähre"};
    for (std::size_t i = 0; i < std::size(ordered); ++i)
        for (std::size_t j = 0; j < std::size(ordered); ++j)
            EXPECT_EQ(alphabetically(ordered[i], ordered[j]), i < j) << i << " " << j;
}

}  // namespace
}  // namespace ovaline::platform
