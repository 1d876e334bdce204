// property_frame MODULE: registers the module and has the registered control show its property pages in the system's
// own frame, once in each language of the host. For each page it writes a line "LANGUAGE PAGE" and waits for one on its
// input, while somebody looks or takes a picture.
#include <bit>
#include <iostream>
#include <string>
#include <thread>

#include "control/interface/class_ids.h"
#include "control/interface/host_settings.h"
#include "platform/registry.h"
#include "platform/windows/text.h"
// It takes the types that the SDK's headers before it declare.
#include <prsht.h>

namespace {

using ovaline::platform::ComPtr;

/// The frame that this process shows; waits for it. Null where none comes.
HWND awaitFrame() {
    for (int tries = 0; tries < 200; ++tries, Sleep(50)) {
        HWND found = nullptr;
        const auto take = [](HWND window, LPARAM result) WINAPI -> BOOL {
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            const bool isFrame = process == GetCurrentProcessId() && IsWindowVisible(window) &&
                                 SendMessageW(window, PSM_GETTABCONTROL, 0, 0) != 0;
            if (isFrame) *reinterpret_cast<HWND*>(result) = window;
            return !isFrame;
        };
        EnumWindows(take, reinterpret_cast<LPARAM>(&found));
        if (found) return found;
    }
    return nullptr;
}

/// The control with this id of the page that is seen.
HWND seenControl(HWND frame, int id) {
    struct Search {
        int id;
        HWND found;
    } search{id, nullptr};
    const auto take = [](HWND window, LPARAM data) WINAPI -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(data);
        if (GetDlgCtrlID(window) == wanted.id && IsWindowVisible(GetParent(window))) wanted.found = window;
        return !wanted.found;
    };
    EnumChildWindows(frame, take, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void type(HWND frame, int id, const wchar_t* text) {
    const HWND edit = seenControl(frame, id);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    for (; *text; ++text) SendMessageW(edit, WM_CHAR, *text, 0);
}

void choose(HWND frame, int id, int item) {
    const HWND list = seenControl(frame, id);
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(item), 0);
    SendMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
}

void click(HWND frame, int id) {
    SendMessageW(seenControl(frame, id), BM_CLICK, 0, 0);
}

void pause(unsigned language, const char* page) {
    std::cout << language << ' ' << page << std::endl;
    std::string answer;
    std::getline(std::cin, answer);
}

/// A person at the frame, who brings to sight what pages keep hidden at first.
void use(unsigned language) {
    const HWND frame = awaitFrame();
    if (!frame) {
        std::cerr << "property_frame: no frame came\n";
        std::exit(1);
    }
    type(frame, 201, L"OVALINE 12345");
    choose(frame, 1204, 3);
    choose(frame, 1205, 1);
    pause(language, "text");
    SendMessageW(frame, PSM_SETCURSEL, 1, 0);
    click(frame, 241);
    click(frame, 255);
    click(frame, 258);
    choose(frame, 257, 16);
    pause(language, "serial");
    PostMessageW(frame, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
}

bool registerModule(const char* path) {
    const HMODULE module = LoadLibraryW(ovaline::platform::fromUtf8(path).c_str());
    const FARPROC address = module ? GetProcAddress(module, "DllRegisterServer") : nullptr;
    return address && std::bit_cast<HRESULT(STDAPICALLTYPE*)()>(address)() == S_OK;
}

}  // namespace

int main(int count, char** arguments) {
    using namespace ovaline;
    if (count != 2 || OleInitialize(nullptr) != S_OK || !registerModule(arguments[1])) {
        std::cerr << "usage: property_frame MODULE\n";
        return 2;
    }
    ComPtr<INorvel_OvalineCtrl> control;
    CoCreateInstance(CLSID_Norvel_OvalineCtrl, nullptr, CLSCTX_INPROC_SERVER, IID_INorvel_OvalineCtrl,
                     reinterpret_cast<void**>(control.put()));
    const auto object = platform::query<IOleObject>(control.get(), IID_IOleObject);
    if (!object) {
        std::cerr << "property_frame: the system makes no control\n";
        return 1;
    }
    control->SetDefaultSize(0);
    for (const unsigned language : {7u, 9u, 17u, 21u, 25u, 4u}) {
        const platform::RegistryChange change{platform::RegistryChange::Kind::SetValue,
                                              std::u16string(kHostSettingsKey), std::u16string(kHostLanguageName),
                                              std::uint32_t{language}};
        platform::systemRegistry().apply({&change, 1});
        std::thread person(use, language);
        const RECT place{10, 10, 0, 0};
        const HRESULT hr = object->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0, nullptr, &place);
        person.join();
        if (FAILED(hr)) return 1;
    }
    return 0;
}
