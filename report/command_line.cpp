// The one file that is compiled with exceptions: the parser of the command line throws to end its work, at --help too. They are
// caught here, and nothing that this file calls throws otherwise.
#include "options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <climits>
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
const char *const kReports = " json page sarif gitlab checkstyle github csv markdown badge top gate ";

// clang-format off
const OptionRow kOptions[] = {
    {kReports, "IN", "...", "XML of tly -X -Ta -Tq or of tly-report run, or JSON of tly-report json; several are one project (standard input)", &Options::inputs},
    {kReports, "-o,--output", "FILE", "write to FILE (standard output)", &Options::output},
    {kReports, "--root", "DIR", "the directory where tly ran; paths are shown relative to it (the current one)", &Options::root},
    {" csv ", "--table", "WHAT", "files, functions, classes, notices, languages or kinds (files)", &Options::table},
    {" markdown ", "--before", "OLD", "compare with this XML or JSON", &Options::before},
    {" page ", "--before", "OLD", "compare with this XML or JSON, or show this comparison of baselines, tly -X -w\"x OLD, NEW\"", &Options::before},
    {" page ", "--trend", "DIR", "draw the figures of the XML and JSON files in DIR as lines", &Options::trend},
    {" badge ", "--of", "WHAT", "lines (of code), complexity (the highest of a function) or notices (lines)", &Options::badge},
    {" badge ", "--svg", "", "a picture in place of a JSON for a badge service", &Options::svg},
    {" top ", "-n", "N", "list N functions (10)", &Options::count},
    {" top ", "--by", "WHAT", "complexity, lines, parameters or notices (complexity)", &Options::by},
    {" gate ", "--max-complexity", "N", "no function may have a cyclomatic complexity above N", &Options::max_complexity},
    {" gate ", "--max-lines", "N", "no function may have more than N lines", &Options::max_lines},
    {" gate ", "--max-notices", "N", "there may be N notices (0 if no other limit is named)", &Options::max_notices},
    {" gate ", "--notice", "KIND=N", "there may be N notices of this kind, such as 12=0; may stand several times", &Options::notice_limits},
    {" gate ", "--new", "OLD", "there may be no notice that OLD hasn't: a JSON, SARIF or GitLab file of tly-report", &Options::known},
    {" gate new ", "--allow", "FILE", "the findings that are passed over, by fingerprint or by number and file", &Options::allow},
    {" new ", "IN", "...", "OLD, a JSON, SARIF or GitLab file of tly-report, then NEW, XML or JSON; with --since: paths (the current directory)", &Options::inputs},
    {" new ", "-o,--output", "FILE", "write to FILE (standard output)", &Options::output},
    {" new ", "--root", "DIR", "the directory where tly ran; paths are shown relative to it (the current one)", &Options::root},
    {" new ", "--since", "COMMIT", "compare what git tracks below the paths with what this commit had there", &Options::since},
    {" new ", "--max", "N", "exit with 1 if more than N notices are new", &Options::most_new},
    {" rules ", "FILE", "...", "files of rules (UDQN); several are read as one (standard input)", &Options::inputs},
    {" rules ", "-o,--output", "FILE", "write to FILE (standard output)", &Options::output},
    {" run ", "-o,--output", "FILE", "write to FILE (standard output)", &Options::output},
    {" run ", "PATH", "...", "directories, of which the sources that git tracks are measured, or files (the current directory)", &Options::paths},
    {" between ", "OLD", "", "the earlier commit: a tag, a branch, an id", &Options::since},
    {" between ", "NEW", "", "the later one (HEAD)", &Options::until},
    {" trend ", "N", "", "how many commits, the last ones by first parents (10)", &Options::count},
    {" between trend ", "PATH", "...", "what counts: directories or files, from the current directory (the current directory)", &Options::paths},
    {" between trend ", "-o,--output", "FILE", "write to FILE (standard output)", &Options::output},
    {" between trend ", "--page", "FILE", "write a page as well", &Options::page},
    {" between ", "-n", "N", "list N files, functions and notices each (10)", &Options::count},
    {" trend ", "--form", "FORM", "text, csv or json (text)", &Options::form},
    {" trend ", "--every", "K", "each K-th commit only (1)", &Options::every},
    {" trend ", "--tags", "", "the last tags in place of commits", &Options::tags},
    {" between new run trend ", "--classic", "", "read today's constructs as tly does without -xMODERN", &Options::classic},
    {" between new run trend ", "--jobs", "N", "start N tly at once (1)", &Options::jobs},
    {" between new run trend ", "--tly", "PROGRAM", "the tly to start (the one beside tly-report, or on the PATH)", &Options::tly},
};
// clang-format on

void Declare(CLI::App *command, const OptionRow &row, Options &options) {
    CLI::Option *option = std::visit(
        [&](auto field) -> CLI::Option * {
            if constexpr (std::is_same_v<decltype(field), bool Options::*>) {
                return command->add_flag(row.name, options.*field, row.help);
            } else if constexpr (std::is_same_v<decltype(field), int Options::*>) {
                return command->add_option(row.name, options.*field, row.help)->check(CLI::Range(0, INT_MAX));
            } else {
                return command->add_option(row.name, options.*field, row.help);
            }
        },
        row.field);
    option->option_text(row.value);
    const bool is_list = std::holds_alternative<std::vector<std::string> Options::*>(row.field);
    option->allow_extra_args(is_list && row.name[0] != '-'); // an option takes one value, and no input behind it
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
