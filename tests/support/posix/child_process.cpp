#include "tests/support/child_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace test_support {
namespace {

std::array<int, 2> make_pipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("pipe2");
    }
    return ends;
}

}  // namespace

struct child_process::system_process {
    pid_t pid = 0;
    int input = -1;
    int output = -1;
    int exit_code = -1;
};

child_process::child_process(const std::string& name, const std::vector<std::string>& arguments)
    : m_process(std::make_unique<system_process>()) {
    const auto input = make_pipe();
    const auto output = make_pipe();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    std::string flag = "--child=" + name;
    std::vector<std::string> words{"child", flag};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& each : words) {
        argv.push_back(each.data());
    }
    argv.push_back(nullptr);
    const int result =
        posix_spawn(&m_process->pid, "/proc/self/exe", &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(input[0]);
    close(output[1]);
    m_process->input = input[1];
    m_process->output = output[0];
    if (result != 0) {
        throw std::runtime_error("posix_spawn");
    }
}

child_process::~child_process() {
    end_input();
    wait();
    close(m_process->output);
}

std::string child_process::read_line() {
    std::string line;
    for (char each = 0; read(m_process->output, &each, 1) == 1 && each != '\n';) {
        line += each;
    }
    return line;
}

void child_process::end_input() {
    if (m_process->input >= 0) {
        close(m_process->input);
        m_process->input = -1;
    }
}

int child_process::wait() {
    if (m_process->pid != 0) {
        int status = 0;
        waitpid(m_process->pid, &status, 0);
        m_process->pid = 0;
        m_process->exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    return m_process->exit_code;
}

}  // namespace test_support
