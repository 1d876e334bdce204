// What the property pages of this module work with.
#pragma once

#include "pages/property_page.h"

namespace ovaline {

/// The platform's own services, and dialogs and texts in the language that the host is set to.
PageServices pageServices();

}  // namespace ovaline
