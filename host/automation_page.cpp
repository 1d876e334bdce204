#include "host/automation_page.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <string_view>

#include "control/interface/class_ids.h"
#include "host/automation_draw.h"
#include "host/failure.h"
#include "host/json_values.h"
#include "host/picture.h"
#include "host/request.h"

namespace ovaline::host {

namespace {

using platform::ControlState;
using platform::DialogFrame;

struct KnownPage {
    std::string_view name;
    CLSID classId;
};

/// In the order of OpenPages.
constexpr std::array<KnownPage, std::tuple_size_v<OpenPages>> kPages = {{
    {"text", CLSID_Norvel_OvalinePropPage},
    {"serial", CLSID_OvalineSerialPropPage},
}};

/// What a line can do to a page that is open.
struct Action {
    std::string_view name;  ///< of the member that asks for it
    bool ofControl;         ///< the line has the "id" of a control
    bool takesTrue;         ///< the member's value is true, otherwise what the action makes of it
    void (*perform)(HostedPage& page, int id, const Json& request, AnswerLine& answer);
};

void require(const DialogFrame::Refusal& refusal) {
    if (refusal) throw Failure(*refusal);
}

int numberOf(const Json& request, const char* name) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(
        wholeNumber(request.at(name), Limits::min(), Limits::max(), "\"" + std::string(name) + "\""));
}

void appendState(std::string& out, const ControlState& state) {
    const char* separator = "{";
    const auto member = [&](const char* name) -> std::string& {
        out += separator;
        separator = ", ";
        return out.append("\"").append(name).append("\": ");
    };
    const auto flag = [&](const char* name, bool value) { member(name) += value ? "true" : "false"; };
    if (state.text) appendJsonText(member("text"), *state.text);
    flag("visible", state.visible);
    flag("enabled", state.enabled);
    if (state.checked) flag("checked", *state.checked);
    if (state.selected) member("selected") += std::to_string(*state.selected);
    if (state.items) appendJsonTexts(member("items"), *state.items);
    if (state.limit) member("limit") += *state.limit ? std::to_string(**state.limit) : "null";
    if (state.digitsOnly) flag("digitsOnly", *state.digitsOnly);
    if (state.range)
        member("range") += "[" + std::to_string(state.range->first) + ", " + std::to_string(state.range->second) + "]";
    out += "}";
}

void read(HostedPage& page, int id, const Json&, AnswerLine& answer) {
    const auto state = page.frame().read(id);
    if (!state) throw Failure("there is no control " + std::to_string(id));
    answer.status(S_OK);
    appendState(answer.member("value"), *state);
}

void type(HostedPage& page, int id, const Json& request, AnswerLine& answer) {
    textMember(request, "type");
    require(page.frame().type(id, textOf(request.at("type"))));
    answer.status(S_OK);
}

void select(HostedPage& page, int id, const Json& request, AnswerLine& answer) {
    require(page.frame().select(id, numberOf(request, "select")));
    answer.status(S_OK);
}

void click(HostedPage& page, int id, const Json&, AnswerLine& answer) {
    require(page.frame().click(id));
    answer.status(S_OK);
}

void doubleClick(HostedPage& page, int id, const Json& request, AnswerLine& answer) {
    require(page.frame().doubleClick(id, numberOf(request, "doubleClick")));
    answer.status(S_OK);
}

void spin(HostedPage& page, int id, const Json& request, AnswerLine& answer) {
    require(page.frame().spin(id, numberOf(request, "spin")));
    answer.status(S_OK);
}

void draw(HostedPage& page, int id, const Json& request, AnswerLine& answer) {
    const PictureFile file = pictureFileOf(request);
    const auto size = page.frame().pictureSize(id);
    if (!size) throw Failure("control " + std::to_string(id) + " shows no picture");
    PictureRequest picture;
    picture.kind = file.kind;
    picture.rectangle = {0, 0, size->cx, size->cy};
    const auto paint = [&](HDC dc) {
        require(page.frame().paint(id, dc));
        return S_OK;
    };
    writePicture(file, drawPicture(picture, paint));
    answer.status(S_OK);
}

void dirty(HostedPage& page, int, const Json&, AnswerLine& answer) {
    const HRESULT hr = page.page().IsPageDirty();
    answer.status(hr);
    if (SUCCEEDED(hr)) answer.member("value") += hr == S_OK ? "true" : "false";
}

void apply(HostedPage& page, int, const Json&, AnswerLine& answer) {
    answer.status(page.page().Apply());
}

void listControls(HostedPage& page, int, const Json&, AnswerLine& answer) {
    answer.status(S_OK);
    std::string& out = answer.member("value");
    const char* separator = "[";
    for (const int id : page.frame().controls()) {
        out += separator + std::to_string(id);
        separator = ", ";
    }
    out += *separator == '[' ? "[]" : "]";
}

void close(HostedPage& page, int, const Json&, AnswerLine& answer) {
    answer.status(page.close());
}

constexpr std::string_view kOpen = "open";
constexpr std::string_view kClose = "close";

constexpr Action kActions[] = {
    {kOpen, false, true, nullptr},
    {"read", true, true, read},
    {"type", true, false, type},
    {"select", true, false, select},
    {"click", true, true, click},
    {"doubleClick", true, false, doubleClick},
    {"spin", true, false, spin},
    {"dirty", false, true, dirty},
    {"apply", false, true, apply},
    {kClose, false, true, close},
    {"controls", false, true, listControls},
    {"draw", true, false, draw},
};

const Action& actionOf(const Json& request) {
    const Action* found = nullptr;
    for (const Action& action : kActions) {
        if (!request.contains(action.name)) continue;
        if (found)
            throw Failure("a line with page holds one action, not " + std::string(found->name) + " and " +
                          std::string(action.name));
        found = &action;
    }
    if (found) return *found;
    std::string names;
    for (const Action& action : kActions) names += (names.empty() ? "" : ", ") + std::string(action.name);
    throw Failure("a line with page holds one of " + names);
}

std::size_t pageOf(const Json& request) {
    const auto page = std::ranges::find(kPages, textMember(request, "page"), &KnownPage::name);
    if (page == kPages.end()) throw Failure(R"("page" takes "text" or "serial")");
    return static_cast<std::size_t>(page - kPages.begin());
}

int idOf(const Json& request) {
    if (!request.contains("id")) throw Failure("this line takes the \"id\" of a control");
    constexpr std::int64_t kMostId = 65535;
    return static_cast<int>(wholeNumber(request.at("id"), 0, kMostId, "\"id\""));
}

void open(std::unique_ptr<HostedPage>& page, REFCLSID classId, const PageLineContext& context, AnswerLine& answer) {
    auto opened = std::make_unique<HostedPage>(context.module(), classId, context.control());
    const HRESULT hr = opened->open();
    answer.status(hr);
    if (FAILED(hr)) return;
    appendJsonText(answer.member("value"), opened->title());
    page = std::move(opened);
}

}  // namespace

void performPage(const Json& request, const PageLineContext& context, AnswerLine& answer) {
    const std::size_t place = pageOf(request);
    const std::string name = "the " + std::string(kPages[place].name) + " page ";
    const Action& action = actionOf(request);
    if (action.ofControl)
        allowOnly(request, "page", {action.name, "id"});
    else
        allowOnly(request, "page", {action.name});
    if (action.takesTrue && request.at(action.name) != true)
        throw Failure("\"" + std::string(action.name) + "\" takes true");
    const int id = action.ofControl ? idOf(request) : 0;
    std::unique_ptr<HostedPage>& page = context.pages[place];
    if (action.name == kOpen) {
        if (page) throw Failure(name + "is open already");
        return open(page, kPages[place].classId, context, answer);
    }
    if (!page) throw Failure(name + "is not open");
    action.perform(*page, id, request, answer);
    if (action.name == kClose) page.reset();
}

}  // namespace ovaline::host
