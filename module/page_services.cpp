#include "module/page_services.h"

#include "module/language.h"

namespace ovaline {

PageServices pageServices() {
    return {[] { return ResourceLanguage(GetHostLanguage(platform::systemRegistry())); }, CreateDialogInLanguage,
            &platform::systemFonts(), &platform::systemClock()};
}

}  // namespace ovaline
