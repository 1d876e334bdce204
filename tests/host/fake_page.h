// Property pages for the host's tests: a page with the platform's own dialog whose reports reach the site, the control
// and a message box.
#pragma once

#include "platform/com.h"

namespace ovaline::host::testing {

/// Pages that exist.
int& fakePagesAlive();

/// What Activate answers instead of showing the page; S_OK shows it.
HRESULT& fakePageRefusal();

/// A new page of the class, null where it is none of a page.
IPropertyPage* makeFakePage(REFCLSID classId);

}  // namespace ovaline::host::testing
