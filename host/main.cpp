// The command line of `ovaline`.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <new>

#include "host/commands.h"
#include "host/control_host.h"
#include "host/control_module.h"
#include "host/failure.h"
#include "host/formats.h"
#include "host/messages.h"
#include "platform/paths.h"
#include "platform/program.h"

namespace {

using ovaline::host::DateOptions;
using ovaline::host::Failure;
using ovaline::host::MarkOptions;

constexpr int kFailed = 2;

/// A speed, feed or length: positive, and nothing that a time computed from it could choke on.
std::string checkPositive(const std::string& text) {
    double value = 0;
    constexpr double kLargest = 1e9;
    const bool isNumber = CLI::detail::lexical_cast(text, value);
    return isNumber && value > 0 && value <= kLargest ? std::string() : "takes a positive number, not " + text;
}

class CommandLine {
public:
    CommandLine() : app_("Lays a line of text along an ellipse and writes what the laser marks.", "ovaline") {
        app_.set_version_flag("--version", "ovaline " OVALINE_VERSION);
        app_.require_subcommand(0, 1);
        addMark();
        addRun();
        addDate();
        addLists();
        addRegistration();
        addHelp();
    }

    int run(int argc, const char* const* argv) {
        try {
            app_.parse(argc, argv);
        } catch (const CLI::Success& asked) {
            return app_.exit(asked);
        } catch (const CLI::ParseError& error) {
            throw Failure(std::string(error.what()) + ", see ovaline help");
        }
        if (mark_->parsed()) return ovaline::host::markCommand(markOptions_, ovaline::host::loadControlModule);
        if (run_->parsed()) return ovaline::host::runCommand(script_, ovaline::host::loadControlModule);
        if (date_->parsed()) return ovaline::host::dateCommand(dateOptions_);
        if (fonts_->parsed()) return ovaline::host::fontsCommand(asJson_);
        if (properties_->parsed()) return ovaline::host::propertiesCommand(asJson_, ovaline::host::loadControlModule);
        if (register_->parsed()) return ovaline::host::registerCommand(true);
        if (unregister_->parsed()) return ovaline::host::registerCommand(false);
        return help();
    }

private:
    static void addFile(CLI::App& command, const char* name, std::optional<std::filesystem::path>& file,
                        const char* description) {
        const auto store = [&file](const std::string& given) { file = ovaline::platform::pathOf(given); };
        command.add_option_function<std::string>(name, store, description);
    }

    void addMark() {
        mark_ = app_.add_subcommand("mark", "Mark one job to one file");
        mark_->footer("Example: ovaline mark --text \"HELLO WORLD\" --set Width=40 --set FillStyle=Line -o hello.svg");
        addFile(*mark_, "JOB", markOptions_.job.file, "File with \"measurement\" and \"settings\"");
        mark_->add_option("--text", markOptions_.job.text, "The text (TextData); --text=VALUE if it begins with -");
        mark_->add_option("--set", markOptions_.job.assignments, "NAME=VALUE: a property, over the job")
            ->allow_extra_args(false);
        mark_->add_option("-o,--output", markOptions_.output, "File; its ending picks the format. - is standard output")
            ->required();
        mark_->add_option("--format", markOptions_.format,
                          "Format, whatever the ending: " + std::string(ovaline::host::kFormatNames));
        mark_
            ->add_option("--speed", markOptions_.speed,
                         "mm/s while marking, for the time stated [500; G-code: the feed]")
            ->check(checkPositive);
        mark_
            ->add_option("--travel-speed", markOptions_.travelSpeed, "mm/s between strokes, for the time stated [2000]")
            ->check(checkPositive);
        mark_->add_option("--feed", markOptions_.feed, "G-code: mm/min while marking [1500]")->check(checkPositive);
        mark_->add_option("--power", markOptions_.power, "G-code: S word while marking, 0 to 1000 [300]")
            ->check(CLI::Range(0, 1000));
        mark_->add_option("--dpi", markOptions_.picturePixelsPerInch, "png, pdf: pixels per inch, 10 to 10000 [300]")
            ->check(CLI::Range(10, 10000));
        mark_->add_option("--step", markOptions_.step, "pbm: side of a pixel in micrometres [40]")
            ->check(checkPositive);
        mark_
            ->add_option("--advance", markOptions_.advance, "N runs, the serial number moved on after each: FILE-1 ...")
            ->check(CLI::Range(1, 1000000));
        mark_->add_flag("--print-texts", markOptions_.printTexts, "List the text of every copy before it is marked");
        mark_->add_flag("--quiet", markOptions_.quiet, "Do not sum up what is marked");
    }

    void addRun() {
        run_ = app_.add_subcommand("run", "Drive controls by JSON lines, from SCRIPT or standard input");
        addFile(*run_, "SCRIPT", script_, "File of lines");
    }

    void addDate() {
        date_ = app_.add_subcommand("date", "Show what a date pattern (CustomAutoText) gives, and why");
        date_->footer("Example: ovaline date \"LOT %C%y-%T, use by %d.%m.%+2Y\" --at 2026-11-17T19:33:24");
        date_->add_option("PATTERN", dateOptions_.pattern, "The pattern; after -- if it begins with -");
        date_->add_option("--at", dateOptions_.at, "Time like 2026-11-17T19:33:24, or date [now]");
        date_->add_option("--offset", dateOptions_.offset, "Days to move the date by (AutoDateOffset) [0]");
        date_->add_flag("--list", dateOptions_.list, "List the fixed formats (AutoDateFormat) with their patterns");
    }

    void addLists() {
        fonts_ = app_.add_subcommand("fonts", "List the font families and their style");
        fonts_->add_flag("--json", asJson_, "As JSON");
        properties_ = app_.add_subcommand("properties", "List the properties with type, default and values");
        properties_->add_flag("--json", asJson_, "As JSON");
    }

    void addRegistration() {
        register_ = app_.add_subcommand("register", "Register the control of the module beside the program");
        unregister_ = app_.add_subcommand("unregister", "Remove that registration");
    }

    void addHelp() {
        help_ = app_.add_subcommand("help", "Explain the program or a command");
        help_->add_option("COMMAND", helpTopic_, "Command");
    }

    int help() {
        const CLI::App* topic = &app_;
        if (!helpTopic_.empty()) {
            const auto found =
                app_.get_subcommands([&](const CLI::App* command) { return command->check_name(helpTopic_); });
            if (found.empty()) throw Failure("there is no command " + helpTopic_ + ", see ovaline help");
            topic = found.front();
        }
        // A command's usage begins with the program's name.
        const std::string usage = topic == &app_ ? app_.help() : topic->help(app_.get_name());
        std::fputs(usage.c_str(), stdout);
        return 0;
    }

    CLI::App app_;
    CLI::App* mark_ = nullptr;
    CLI::App* run_ = nullptr;
    CLI::App* date_ = nullptr;
    CLI::App* fonts_ = nullptr;
    CLI::App* properties_ = nullptr;
    CLI::App* register_ = nullptr;
    CLI::App* unregister_ = nullptr;
    CLI::App* help_ = nullptr;
    MarkOptions markOptions_;
    DateOptions dateOptions_;
    std::optional<std::filesystem::path> script_;
    std::string helpTopic_;
    bool asJson_ = false;
};

int fail(const std::string& reason) {
    ovaline::host::tell(reason);
    return kFailed;
}

}  // namespace

int ovaline::platform::runProgram(int argc, const char* const* argv) {
    try {
        return CommandLine().run(argc, argv);
    } catch (const std::bad_alloc&) {
        return fail("there is not enough memory, make the job smaller");
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
