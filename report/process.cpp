#include "process.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::vector<char *> Pointers(const std::vector<std::string> &texts) {
    std::vector<char *> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string &text : texts) {
        pointers.push_back(const_cast<char *>(text.c_str()));
    }
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> Environment(const std::vector<std::string> &variables) {
    std::vector<std::string> all = variables;
    for (char **entry = environ; *entry; ++entry) {
        const std::string_view text = *entry;
        const std::string_view name = text.substr(0, text.find('=') + 1);
        if (std::ranges::none_of(variables, [name](const std::string &v) { return v.starts_with(name); })) {
            all.emplace_back(text);
        }
    }
    return all;
}

pid_t Spawn(const std::vector<std::string> &arguments, const std::vector<std::string> &variables,
            const posix_spawn_file_actions_t &actions) {
    const std::vector<std::string> environment = Environment(variables);
    pid_t process = -1;
    errno =
        posix_spawnp(&process, arguments[0].c_str(), &actions, nullptr, Pointers(arguments).data(), Pointers(environment).data());
    return errno == 0 ? process : -1;
}

} // namespace

pid_t Start(const std::vector<std::string> &arguments, const std::vector<std::string> &variables, const std::string &output,
            const std::string &directory) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (!directory.empty()) {
        posix_spawn_file_actions_addchdir_np(&actions, directory.c_str());
    }
    const pid_t process = Spawn(arguments, variables, actions);
    posix_spawn_file_actions_destroy(&actions);
    return process;
}

bool Capture(const std::vector<std::string> &arguments, std::string &output, const std::string &input) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return false;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, input.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const pid_t process = Spawn(arguments, {}, actions);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    char piece[64 * 1024];
    ssize_t length;
    while (process > 0 && ((length = read(ends[0], piece, sizeof piece)) > 0 || (length < 0 && errno == EINTR))) {
        output.append(piece, static_cast<size_t>(std::max<ssize_t>(length, 0)));
    }
    close(ends[0]);
    int status = -1;
    while (process > 0 && waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return process > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
