// One job is one tly on one list of files. With --jobs the sources are cut into slices, and one job more reads all of them for what
// only the whole tells: its notices but those of the tree are off, which is most of the work of a tly.
#include "run.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <span>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "output.h"
#include "paths.h"
#include "process.h"
#include "read_xml.h"
#include "sources.h"
#include "tell.h"
#include "xml_text.h"

namespace {

constexpr int kSlicesPerJob = 2;               // so that a slow slice doesn't keep the others waiting
constexpr size_t kLongestListed = 2000;        // bytes of a path in a list file
constexpr size_t kMostArguments = 1024 * 1024; // bytes of the paths on one command line
constexpr int kNoticeKinds = 58;
constexpr int kHeaderSwitch = 25; // stands among the notices, and tells how headers are read

struct Job {
    const char *part; // the element around its XML; null: none
    std::vector<std::string> arguments;
    std::vector<std::string> variables;
    std::string output;
    std::string what;        // for messages
    std::string directory{}; // where it runs; empty: the current one
};

volatile sig_atomic_t stopped; // the signal that asks this program to end

void OnStop(int signal) {
    stopped = signal;
}

struct Run {
    const Options &options;
    std::vector<std::string> switches; // what tly is to make
    std::string tly;
    std::string place; // a directory of our own, with "/"
    std::vector<std::string> variables{};
    std::string settings{}; // the directory that holds tly.cfg, with "/"
    std::vector<Job> jobs{};
};

// --tly; else the one beside this program; else the one on the PATH. Absolute, so that tly finds the settings beside it.
std::string FindTly(const std::string &given) {
    char self[PATH_MAX] = "";
    const ssize_t length = readlink("/proc/self/exe", self, sizeof self - 1);
    std::vector<std::string> candidates;
    if (!given.empty()) {
        candidates.push_back(given.starts_with('/') ? given : CurrentDirectory() + given);
    } else {
        if (length > 0) {
            const std::string_view own(self, static_cast<size_t>(length));
            candidates.push_back(std::string(own.substr(0, own.rfind('/') + 1)) + "tly");
        }
        const char *path = getenv("PATH");
        for (std::string_view rest = path ? path : ""; !rest.empty();) {
            const size_t end = std::min(rest.find(':'), rest.size());
            if (rest.starts_with('/')) { // a tly in the directory of the sources is not trusted
                candidates.push_back(std::string(rest.substr(0, end)) + "/tly");
            }
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    struct stat status;
    const auto runs = [&](const std::string &c) {
        return access(c.c_str(), X_OK) == 0 && stat(c.c_str(), &status) == 0 && S_ISREG(status.st_mode);
    };
    const auto found = std::ranges::find_if(candidates, runs);
    return found == candidates.end() ? "" : *found;
}

bool WriteFile(const std::string &path, std::string_view text) {
    std::FILE *file = fopen(path.c_str(), "wbe");
    const bool written = file && fwrite(text.data(), 1, text.size(), file) == text.size();
    return file && fclose(file) == 0 && written;
}

std::string ReadFile(const std::string &path) {
    std::string text;
    std::FILE *file = fopen(path.c_str(), "rbe");
    char piece[64 * 1024];
    for (size_t length; file && (length = fread(piece, 1, sizeof piece, file)) > 0;) {
        text.append(piece, length);
    }
    if (file) {
        fclose(file);
    }
    return text;
}

std::string Home(const char *variable) {
    const char *value = getenv(variable);
    std::string home = value ? value : "";
    if (!home.empty() && home.back() != '/') {
        home += '/';
    }
    return home;
}

// Where a tly looks that has no home in the environment: beside itself or, on a machine where it was installed as a package, in the
// user's directory of settings. Empty if there is no such directory.
std::string BuiltInHome(const Run &run) {
    if (!run.options.config_home) {
        return run.tly.substr(0, run.tly.rfind('/') + 1);
    }
    const std::string base = Home("XDG_CONFIG_HOME"), home = Home("HOME");
    return base.starts_with('/') ? base + "tly/" : home.starts_with('/') ? home + ".config/tly/" : "";
}

// tly writes its settings where it finds none. Without a home in the environment, and without settings in the built-in one, it gets
// a home of ours: nothing is left behind by a run.
void FindSettings(Run &run) {
    run.settings = Home("TLYCFGHOME");
    if (run.settings.size() < 2) {
        run.settings = Home("TLYHOME");
    }
    if (run.settings.empty()) {
        run.settings = BuiltInHome(run);
        if (run.settings.empty() || access((run.settings + "tly.cfg").c_str(), R_OK) != 0) {
            run.settings = run.place + "home/";
            mkdir(run.settings.c_str(), 0700);
        }
        run.variables.push_back("TLYHOME=" + run.settings);
    }
}

// For a comparison: a file that lost lines isn't equal, and names are what git takes for names.
constexpr const char *kExactly = "Add removed older lines as modified : Yes\nSource file names are case sensitive : Yes\n";

// Settings for the job that reads all sources, or none: the user's, and more, with every notice off that doesn't rest on the tree.
bool WriteOwnSettings(const Run &run, const std::string &home, const char *more) {
    std::string settings = ReadFile(run.settings + "tly.cfg") + "\n" + more;
    for (int n = 1; n <= kNoticeKinds; ++n) {
        if (n != kHeaderSwitch && std::ranges::find(kTreeNotices, n) == std::end(kTreeNotices)) {
            settings += "Quality Notice " + std::to_string(n) + " : No\n";
        }
    }
    settings += "TLY user defined quality notice file : \n";
    return mkdir(home.c_str(), 0700) == 0 && WriteFile(home + "tly.cfg", settings) && WriteFile(home + "tly_udqn.cfg", "") &&
           WriteFile(home + "tly_macro.cfg", ReadFile(run.settings + "tly_macro.cfg"));
}

// A line of a list file is cut at its ends, is a remark or a switch by its first character, and has variables between two "%".
bool FitsList(const std::string &path) {
    return path.size() <= kLongestListed && path.find_first_of("\r\n") == std::string::npos && std::ranges::count(path, '%') < 2;
}

std::string Named(const std::string &path) {
    return path.find_first_of(" \t#-") == 0 ? "./" + path : path;
}

Job NewJob(Run &run, const char *part, const std::string &what) {
    Job job{part, {run.tly}, run.variables, run.place + std::to_string(run.jobs.size()) + ".xml", what};
    if (!run.options.classic) {
        job.arguments.emplace_back("-xMODERN");
    }
    job.arguments.insert(job.arguments.end(), {"-xNOWRAP", "-X"});
    job.arguments.insert(job.arguments.end(), run.switches.begin(), run.switches.end());
    return job;
}

std::string Described(std::span<const SourceFile> files) {
    return files.empty() ? "no sources" : std::to_string(files.size()) + " sources from " + files.front().shown + " on";
}

bool AddListJob(Run &run, const char *part, std::span<const SourceFile> files) {
    Job job = NewJob(run, part, Described(files));
    std::string list;
    for (const SourceFile &file : files) {
        list += Named(file.path) + "\n";
    }
    const std::string path = run.place + std::to_string(run.jobs.size()) + ".list";
    job.arguments.push_back("-F" + path);
    run.jobs.push_back(std::move(job));
    return WriteFile(path, list);
}

bool AddWholeJob(Run &run, std::span<const SourceFile> files) {
    const std::string home = run.place + "whole/";
    if (!AddListJob(run, "whole", files) || !WriteOwnSettings(run, home, "")) {
        return false;
    }
    run.jobs.back().variables.push_back("TLYCFGHOME=" + home);
    return true;
}

// Names that a list can't hold go on the command line, if there is room for all.
bool AddArgumentJob(Run &run, std::span<const SourceFile> files) {
    Job job = NewJob(run, nullptr, Described(files));
    job.arguments.emplace_back("--");
    size_t bytes = 0;
    for (const SourceFile &file : files) {
        job.arguments.push_back(Named(file.path));
        bytes += job.arguments.back().size() + sizeof(char *);
    }
    run.jobs.push_back(std::move(job));
    return bytes <= kMostArguments;
}

// Slices of about the same size, in the order of the files, so that neighbours stay together.
bool AddSlices(Run &run, std::span<const SourceFile> files) {
    int64_t left = 0;
    for (const SourceFile &file : files) {
        left += file.bytes + 1;
    }
    bool written = AddWholeJob(run, files);
    for (int slices = run.options.jobs * kSlicesPerJob; slices > 0 && !files.empty() && written; --slices) {
        size_t count = 0;
        int64_t taken = 0;
        while (count < files.size() && (slices == 1 || taken < left / slices || count == 0)) {
            taken += files[count++].bytes + 1;
        }
        written = AddListJob(run, "slice", files.first(count));
        files = files.subspan(count);
        left -= taken;
    }
    return written;
}

int AddJobs(Run &run, const std::vector<SourceFile> &files) {
    const auto odd = std::ranges::find_if(files, [](const SourceFile &f) { return !FitsList(Named(f.path)); });
    if (odd != files.end()) {
        return AddArgumentJob(run, files)
                   ? kFine
                   : Refuse(odd->shown + ": no list of tly's can hold this name, and there are too many "
                                         "sources to name them all. Rename it, or measure its directory alone.");
    }
    const bool written = run.options.jobs > 1 && files.size() > 1 ? AddSlices(run, files) : AddListJob(run, nullptr, files);
    return written ? kFine : Refuse(run.place + ": a list can't be written here: " + strerror(errno));
}

int CheckEnd(const Job &job, int status) {
    struct stat output;
    if (WIFSIGNALED(status)) {
        return Refuse("tly was ended by signal " + std::to_string(WTERMSIG(status)) + " on " + job.what + ". Nothing was written.");
    }
    if (stat(job.output.c_str(), &output) != 0 || output.st_size == 0) {
        return Refuse("tly wrote nothing for " + job.what + ". Is this a tly: " + job.arguments[0] + "?");
    }
    return kFine;
}

// At most options.jobs at once. The rest isn't started when one fails, and all are ended when this program is to end.
int RunJobs(Run &run) {
    std::vector<pid_t> processes; // 0 for one that has ended
    size_t running = 0;
    int result = kFine;
    while (running > 0 || (processes.size() < run.jobs.size() && result == kFine)) {
        if (result == kFine && processes.size() < run.jobs.size() && running < static_cast<size_t>(run.options.jobs)) {
            const Job &job = run.jobs[processes.size()];
            processes.push_back(Start(job.arguments, job.variables, job.output, job.directory));
            if (processes.back() < 0) {
                processes.back() = 0;
                result = Refuse(run.tly + " can't be started: " + strerror(errno));
            } else {
                ++running;
            }
            continue;
        }
        int status = 0;
        const pid_t ended = waitpid(-1, &status, 0);
        const auto found = std::ranges::find(processes, ended);
        if (ended > 0 && found != processes.end()) {
            --running;
            *found = 0;
            const int end = stopped ? kBad : CheckEnd(run.jobs[static_cast<size_t>(found - processes.begin())], status);
            result = std::max(result, end);
        } else if (ended < 0 && errno != EINTR) {
            return Refuse(std::string("a tly got lost: ") + strerror(errno));
        }
        for (const pid_t process : processes) {
            if (stopped && process > 0) {
                kill(process, SIGTERM);
            }
        }
        result = stopped ? kBad : result;
    }
    return result;
}

// Copies a document without its declaration, which can stand at the start of a file only. False with errno.
bool CopyDocument(const std::string &path, std::FILE *out) {
    std::FILE *in = fopen(path.c_str(), "rbe");
    if (!in) {
        return false;
    }
    char piece[64 * 1024];
    size_t length = fread(piece, 1, sizeof piece, in);
    std::string_view text(piece, length);
    if (text.starts_with("<?xml ")) {
        text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
    }
    bool copied = true;
    while (length > 0 && copied) {
        copied = fwrite(text.data(), 1, text.size(), out) == text.size();
        length = fread(piece, 1, sizeof piece, in);
        text = {piece, length};
    }
    copied = copied && !ferror(in);
    fclose(in);
    return copied;
}

// The arguments that the figures depend on.
std::string CommandText(const Options &options) {
    std::string command = options.classic ? "run --classic" : "run";
    for (const std::string &path : options.paths) {
        command += " " + path;
    }
    std::string encoded;
    AppendXml(encoded, command);
    return encoded;
}

bool WriteJoined(const Run &run, std::FILE *out) {
    fprintf(out, "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<tly-report>\n<run>%s</run>\n", CommandText(run.options).c_str());
    // The whole is the first job and the last part: it names files that the slices tell of.
    std::vector<const Job *> parts;
    for (const Job &job : run.jobs) {
        parts.push_back(&job);
    }
    std::rotate(parts.begin(), parts.begin() + 1, parts.end());
    for (const Job *job : parts) {
        if (job->part) {
            fprintf(out, "<%s>\n", job->part);
        }
        if (!CopyDocument(job->output, out)) {
            return false;
        }
        if (job->part) {
            fprintf(out, "</%s>\n", job->part);
        }
    }
    return fputs("</tly-report>\n", out) >= 0;
}

int Measure(Run &run) {
    Sources sources;
    std::string error;
    if (!FindSources(run.options.paths, CurrentDirectory(), sources, error)) {
        return Refuse(error);
    }
    for (const std::string &remark : sources.remarks) {
        Tell(remark);
    }
    int result = AddJobs(run, sources.files);
    result = result == kFine ? RunJobs(run) : result;
    return result == kFine ? WriteOutput(run.options.output, [&run](std::FILE *out) { return WriteJoined(run, out); }) : result;
}

// Has work do what needs a tly, a place and settings.
int InRun(const Options &options, const std::vector<std::string> &switches, const std::function<int(Run &run)> &work) {
    Run run{options, switches, FindTly(options.tly), ""};
    if (run.tly.empty()) {
        return Refuse(options.tly.empty() ? "tly isn't beside tly-report, nor on the PATH. Say where it is: --tly PATH"
                                          : options.tly + ": no program is here.");
    }
    const char *parent = getenv("TMPDIR");
    std::string place = std::string(parent && *parent ? parent : "/tmp") + "/tly-report.XXXXXX";
    if (!mkdtemp(place.data())) {
        return Refuse(place + " can't be made: " + strerror(errno));
    }
    run.place = place + "/";
    struct sigaction action {};
    action.sa_handler = OnStop; // waiting ends with EINTR
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction inherited {};
        if (sigaction(signal, nullptr, &inherited) == 0 && inherited.sa_handler != SIG_IGN) { // as nohup has it
            sigaction(signal, &action, nullptr);
        }
    }
    FindSettings(run);
    const int result = work(run);
    std::error_code ignored;
    std::filesystem::remove_all(place, ignored);
    if (stopped) {
        action.sa_handler = SIG_DFL;
        sigaction(stopped, &action, nullptr);
        raise(stopped);
    }
    return result;
}

} // namespace

int RunTly(const Options &options) {
    return InRun(options, {"-Ta", options.counts_only ? "-Tp" : "-Tq"}, Measure);
}

int MakeBaseline(const Options &options, const std::string &root, const std::string &place, const char *name) {
    const std::string top = root.substr(0, root.size() - 1);
    return InRun(options, {"-wCreate " + top, "-wd", std::string("-wFile dat ") + name}, [&](Run &run) {
        Sources sources;
        std::string none; // a baseline of nothing is one
        FindSources({top}, "", sources, none);
        const size_t odd = std::erase_if(sources.files, [](const SourceFile &f) { return !FitsList(f.path); });
        if (odd > 0) {
            Tell(std::to_string(odd) + " of the sources can't stand in a list of tly's by name: not compared line by line.");
        }
        if (!AddListJob(run, nullptr, sources.files)) {
            return Refuse(run.place + ": a list can't be written here: " + strerror(errno));
        }
        run.jobs.back().directory = place;
        return RunJobs(run);
    });
}

int CompareBaselines(const Options &options, const std::string &place, const char *older, const char *newer,
                     const std::string &output) {
    return InRun(options, {"-wd", std::string("-wx ") + older + ", " + newer}, [&](Run &run) {
        const std::string home = run.place + "compare/"; // tly keeps the choice of columns there
        Job job = NewJob(run, nullptr, "two baselines");
        job.directory = place;
        job.output = output;
        job.variables.push_back("TLYCFGHOME=" + home);
        run.jobs.push_back(std::move(job));
        return WriteOwnSettings(run, home, kExactly) ? RunJobs(run)
                                                     : Refuse(home + ": settings can't be written here: " + strerror(errno));
    });
}
