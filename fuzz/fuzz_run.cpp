// Whole runs of the program on hostile settings, rules, list files and sources: libFuzzer calls tly() again and again in one
// process.
//
// An input is kHeadBytes bytes that choose the mode, the switches, the source's extension and the way to it, then up to three texts
// with a line "===" between them: the settings file, the -F list and the source. The source is the last text, so that any plain
// source file is a useful input. With kRulesBit a file of user defined notices stands in front of them all.
//
// The top three bits of the head's last byte are for baselines: with 7, the input's texts are two of them, which are compared; with
// 6, some are made of the source.
//
// All files are in a private directory. A list or a rule file can't name anything outside of it (see Tame); tly's reports go to
// /dev/null.

#include <cerrno>
#include <csetjmp>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "run/driver/tly.h"

namespace {

constexpr size_t kHeadBytes = 7;
constexpr int kRulesBit = 0x20;  // of the last one
constexpr int kModernBit = 0x80; // of the first one: the modern reading

constexpr const char *kModes[] = {nullptr, "-H", "-C", "-X"};
constexpr const char *kExtensions[] = {"c", "h", "cpp", "java", "cs", "hpp", "txt", "C"};
// One bit of the head each.
constexpr const char *kSwitches[] = {
    // clang-format off
    "-fa", "-o", "-v", "-c", "-m", "-n", "-fd", "-fm",
    "-a", "-s", "-fp", "-d", "-l", "-Ns", "-Nv", "-Ta",
    "-Tl", "-Tf", "-To", "-Tn", "-Td", "-TL", "-Ts", "-TN",
    "-k2", "-kd", "-i", "-Tv", "-Tw", "-Rn", "-xNOWRAP", "-xNOHEADER",
    // clang-format on
};
// At most one of these: they end the run early, or change all of it.
constexpr const char *kSpecial[] = {
    // clang-format off
    nullptr, nullptr, nullptr, nullptr, "-k1", "-k3", "-k4", "-k5", "-k6", "-k7", "-k8", "-k9", "-k10", "-k11",
    "-y", "-hs", "-hn", "-hc", "-hf", "-Rl", "-Rd", "-b", "-e", "-wD", "-Tz", "-Sa<b&\"'",
    "-xDEBUG", "-uFile XSL x.xsl", "-uFile CFG tly.cfg", "-Es", "-Ec", "-EC", "-p", "-Ti", "-Tp", "-Tq", "-xUDQNSHOW",
    // clang-format on
};

std::string place; // the private directory; the runs work in its subdirectory "w"
bool running;
jmp_buf run_end;
std::vector<FILE *> open_streams; // opened by the run and not closed yet

// Leaves a "/" only where it can't lead out of the private directory: behind a name and not ahead of a dot.
std::string Tame(std::string_view text) {
    std::string tame(text);
    for (size_t i = 0; i < tame.size(); ++i) {
        const char before = i > 0 ? tame[i - 1] : '\0';
        const bool behind_name = (before >= 'a' && before <= 'z') || (before >= '0' && before <= '9');
        if (tame[i] == '/' && (!behind_name || (i + 1 < tame.size() && tame[i + 1] == '.'))) {
            tame[i] = '_';
        }
    }
    return tame;
}

void WriteFile(const char *name, std::string_view text) {
    FILE *file = fopen(name, "wb");
    if (!file || fwrite(text.data(), 1, text.size(), file) != text.size() || fclose(file) != 0) {
        fprintf(stderr, "fuzz_run: can't write %s: %s\n", name, std::strerror(errno));
        abort();
    }
}

void RemovePlace() {
    const std::string command = "rm -rf '" + place + "'";
    if (chdir("/") != 0 || system(command.c_str()) != 0) {
        fprintf(stderr, "fuzz_run: %s is left behind\n", place.c_str());
    }
}

std::vector<std::string> Arguments(const uint8_t *head, const std::string &source_name) {
    std::vector<std::string> arguments{"tly"};
    const auto add = [&arguments](const char *argument) {
        if (argument) {
            arguments.emplace_back(argument);
        }
    };
    add(kModes[head[0] % std::size(kModes)]);
    for (size_t i = 0; i < std::size(kSwitches); ++i) {
        if (head[1 + i / 8] >> (i % 8) & 1) {
            add(kSwitches[i]);
        }
    }
    add(kSpecial[head[5] % std::size(kSpecial)]);
    if (head[0] & kModernBit) {
        add("-xMODERN");
    }
    switch (head[6] / 8 % 4) {
    case 0: add("-Flist.txt"); break;
    case 1: add("-rc,h,cpp,java,cs,hpp ."); break;
    default: add(source_name.c_str()); break;
    }
    return arguments;
}

void Run(const std::vector<std::string> &arguments) {
    std::vector<std::string> texts = arguments;
    std::vector<char *> argv;
    argv.reserve(texts.size() + 1);
    for (std::string &text : texts) {
        argv.push_back(text.data());
    }
    argv.push_back(nullptr);
    optind = 0; // getopt starts anew
    running = true;
    if (setjmp(run_end) == 0) {
        tly(static_cast<int>(argv.size()) - 1, argv.data());
    }
    running = false;
}

// The texts between the separators, at most so many: the last one takes the rest.
std::vector<std::string_view> Split(std::string_view rest, size_t most) {
    constexpr std::string_view kSeparator = "\n===\n";
    std::vector<std::string_view> texts;
    for (size_t end; texts.size() + 1 < most && (end = rest.find(kSeparator)) != std::string_view::npos;) {
        texts.push_back(rest.substr(0, end + 1));
        rest.remove_prefix(end + kSeparator.size());
    }
    texts.push_back(rest);
    return texts;
}

// One bit each of the head's fifth and sixth byte, in front of the comparison.
constexpr const char *kCompareSwitches[] = {
    // clang-format off
    "-wd", "-ws", "-wg", "-wb", "-wp", "-we", "-wr", "-wn",
    "-wm", "-Tw", "-kd", "-k1", "-k6", "-xDIFFDEBUG", "-xNOWRAP", "-Sa<b&\"'",
    // clang-format on
};

void Compare(const uint8_t *head, const char *baselines) {
    std::vector<std::string> arguments{"tly"};
    if (const char *mode = kModes[head[0] % std::size(kModes)]) {
        arguments.emplace_back(mode);
    }
    for (size_t i = 0; i < std::size(kCompareSwitches); ++i) {
        if (head[4 + i / 8] >> (i % 8) & 1) {
            arguments.emplace_back(kCompareSwitches[i]);
        }
    }
    arguments.emplace_back(baselines);
    Run(arguments);
}

// Settings (of the report on baselines too), older work file, newer work file, and line records, of which each work file can name a
// half: "d/old", "d/new".
void CompareTexts(const uint8_t *head, std::string_view input) {
    std::vector<std::string_view> texts = Split(input, 4);
    texts.resize(4);
    WriteFile("tly.cfg", texts[0]);
    WriteFile("tly_workdiff.cfg", texts[0]);
    WriteFile("old.dat", Tame(texts[1]));
    WriteFile("new.dat", Tame(texts[2]));
    WriteFile("d/old", texts[3].substr(0, texts[3].size() / 2));
    WriteFile("d/new", texts[3].substr(texts[3].size() / 2));
    Compare(head, "-wx old.dat, new.dat");
}

// A baseline of half the source and one of all of it.
void MakeBaselines(const uint8_t *head, const std::string &source_name, std::string_view source) {
    WriteFile("tly_workdiff.cfg", {});
    WriteFile(source_name.c_str(), source.substr(0, source.size() / 2));
    Run({"tly", "-wCreate .", "-wd", "-wFile dat d/made.dat", source_name});
    WriteFile(source_name.c_str(), source);
    Run({"tly", "-wCreate .", "-wd", "-wFile dat made.dat", source_name});
    Compare(head, "-wx d/made.dat,made.dat");
}

} // namespace

// The end of a process is the end of a run.
extern "C" [[noreturn]] void __real_exit(int status);
extern "C" [[noreturn]] void __wrap_exit(int status);
void __wrap_exit(int status) {
    if (running) {
        longjmp(run_end, 1);
    }
    __real_exit(status);
}

static FILE *Opened(FILE *stream) {
    if (stream && running) {
        open_streams.push_back(stream);
    }
    return stream;
}

extern "C" FILE *__real_fopen(const char *name, const char *mode);
extern "C" FILE *__wrap_fopen(const char *name, const char *mode);
FILE *__wrap_fopen(const char *name, const char *mode) {
    return Opened(__real_fopen(name, mode));
}

extern "C" FILE *__real_fdopen(int fd, const char *mode);
extern "C" FILE *__wrap_fdopen(int fd, const char *mode);
FILE *__wrap_fdopen(int fd, const char *mode) {
    return Opened(__real_fdopen(fd, mode));
}

extern "C" int __real_fclose(FILE *stream);
extern "C" int __wrap_fclose(FILE *stream);
int __wrap_fclose(FILE *stream) {
    std::erase(open_streams, stream);
    return stream == stdout ? fflush(stream) : __real_fclose(stream);
}

static void CloseStreams() {
    while (!open_streams.empty()) {
        fclose(open_streams.back());
    }
}

// What a run leaves to the end of its process isn't a leak.
extern "C" const char *__asan_default_options();
const char *__asan_default_options() {
    return "detect_leaks=0";
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
int LLVMFuzzerInitialize(int *, char ***) {
    place = std::string(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") + "/tly-fuzz-XXXXXX";
    if (!mkdtemp(place.data()) || atexit(RemovePlace) != 0) {
        abort();
    }
    const std::string work = place + "/w";
    if (mkdir(work.c_str(), 0700) != 0 || chdir(work.c_str()) != 0 || mkdir("sub", 0700) != 0 || mkdir("d", 0700) != 0) {
        abort();
    }
    WriteFile("sub/x.h", "#define X 1 // sub\n");
    clearenv();
    setenv("TLYHOME", work.c_str(), 1);
    setenv("PATH", "/usr/bin:/bin", 1);
    setenv("SUB", "sub", 1);
    setenv("TZ", "UTC", 1);
    if (!freopen("/dev/null", "w", stdout) || !freopen("/dev/null", "r", stdin)) {
        abort();
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    if (size < kHeadBytes) {
        return 0;
    }
    const std::string_view input(reinterpret_cast<const char *>(data) + kHeadBytes, size - kHeadBytes);
    const int baselines = data[6] / 32;
    if (baselines == 7) {
        CompareTexts(data, input);
        CloseStreams();
        return 0;
    }
    const bool has_rules = data[6] & kRulesBit;
    std::vector<std::string_view> texts = Split(input, has_rules ? 4 : 3);
    const std::string_view source = texts.back();
    texts.pop_back();
    texts.insert(texts.begin(), !has_rules, {});
    texts.resize(3);
    const std::string source_name = std::string("in.") + kExtensions[data[6] % std::size(kExtensions)];
    const std::string settings(texts[1]);
    WriteFile("rules.udqn", Tame(texts[0]));
    WriteFile("tly.cfg", has_rules ? settings + "TLY user defined quality notice file : rules.udqn\n" : settings);
    WriteFile("list.txt", texts[2].empty() ? source_name : Tame(texts[2]));
    WriteFile(source_name.c_str(), source);

    Run(Arguments(data, source_name));
    if (baselines == 6) {
        MakeBaselines(data, source_name, source);
    }
    CloseStreams();
    unlink(source_name.c_str());
    return 0;
}
