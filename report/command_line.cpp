// The one file that is compiled with exceptions: the parser of the command line throws to end its work, at --help too. They are
// caught here, and nothing that this file calls throws otherwise.
#include "options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>
#include <variant>

namespace {

using Field = std::variant<bool Options::*, int Options::*, std::string Options::*, std::vector<std::string> Options::*>;

struct OptionRow {
    const char *commands; // names, a blank around each
    const char *name;     // "-o,--output"; without a dash: what stands behind the options
    const char *value;    // what its value is called in the help
    const char *help;
    Field field;
};

// The commands that read a project.
const char *const kReports = " json sarif ";

// clang-format off
const OptionRow kOptions[] = {
    {kReports, "IN", "...", "XML of tly -X -Ta -Tq or of tly-report run, or JSON of tly-report json; several are one project (standard input)", &Options::inputs},
    {kReports, "-o,--output", "FILE", "write to FILE (standard output)", &Options::output},
    {kReports, "--root", "DIR", "the directory where tly ran; paths are shown relative to it (the current one)", &Options::root},
    {" run ", "-o,--output", "FILE", "write to FILE (standard output)", &Options::output},
    {" run ", "PATH", "...", "directories, of which the sources that git tracks are measured, or files (the current directory)", &Options::paths},
    {" run ", "--classic", "", "read today's constructs as tly does without -xMODERN", &Options::classic},
    {" run ", "--jobs", "N", "start N tly at once (1)", &Options::jobs},
    {" run ", "--tly", "PROGRAM", "the tly to start (the one beside tly-report, or on the PATH)", &Options::tly},
};
// clang-format on

void Declare(CLI::App *command, const OptionRow &row, Options &options) {
    CLI::Option *option = std::visit(
        [&](auto field) -> CLI::Option * {
            if constexpr (std::is_same_v<decltype(field), bool Options::*>) {
                return command->add_flag(row.name, options.*field, row.help);
            } else {
                return command->add_option(row.name, options.*field, row.help);
            }
        },
        row.field);
    option->option_text(row.value);
}

} // namespace

bool ReadCommandLine(int argc, char **argv, Options &options, int &status) {
    CLI::App app("Reports on the figures of tly: JSON and more.", "tly-report");
    app.set_version_flag("--version", "tly-report 1.0");
    app.require_subcommand(1);
    for (const Command *command = kCommands; command->name; ++command) {
        CLI::App *sub = app.add_subcommand(command->name, command->help);
        for (const OptionRow &row : kOptions) {
            if (std::string_view(row.commands).find(std::string(" ") + command->name + " ") != std::string_view::npos) {
                Declare(sub, row, options);
            }
        }
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &end) {
        status = app.exit(end) == 0 ? kFine : kBad;
        return false;
    }
    options.command = app.get_subcommands().front()->get_name();
    if (options.inputs.empty()) {
        options.inputs = {"-"};
    }
    if (options.paths.empty()) {
        options.paths = {"."};
    }
    options.jobs = std::clamp(options.jobs, 1, 256);
    return true;
}
