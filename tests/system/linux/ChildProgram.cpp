#include "system/ChildProgram.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

int runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments,
    const std::filesystem::path& output, const std::filesystem::path& errors) {
    std::vector<std::string> words = {program.native()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    constexpr int kWrite = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, output.c_str(), kWrite, 0600);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errors.c_str(), kWrite, 0600);
    pid_t child = 0;
    const int failed = posix_spawn(&child, program.c_str(), &files, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    int ended = 0;
    if (failed != 0 || waitpid(child, &ended, 0) != child || !WIFEXITED(ended)) return -1;
    return WEXITSTATUS(ended);
}

}  // namespace korvel
