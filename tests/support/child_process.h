// A second process for a test: this program again, in a part that a test file registers.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace test_support {

// The part that a child process runs; gives the exit code. Lines that it writes to std::cout (flushed)
// reach read_line; std::cin ends when the test ends the child's input.
using child_main = int (*)(const std::vector<std::string>& arguments);

// Registers a part under a name; use CHILD_MAIN.
struct child_registration {
    child_registration(const char* name, child_main main);
};

// Whether the command line asks for a part.
bool is_child(int argc, char** argv);

// Runs the part that the command line asks for ("--child=name argument..."). False when it asks for none.
bool run_child(int argc, char** argv, int& exit_code);

#define CHILD_MAIN(name)                                                                        \
    int child_##name(const std::vector<std::string>& arguments);                                \
    const ::test_support::child_registration child_##name##_registration(#name, &child_##name); \
    int child_##name([[maybe_unused]] const std::vector<std::string>& arguments)

class child_process {
public:
    // Starts this program in the part of that name. Throws std::runtime_error.
    explicit child_process(const std::string& name, const std::vector<std::string>& arguments = {});

    // Ends the child's input and waits for it.
    ~child_process();
    child_process(const child_process&) = delete;
    child_process& operator=(const child_process&) = delete;

    // The next line that the child wrote, waiting for it; empty when its output ended.
    std::string read_line();

    void end_input();

    // Waits for the end and gives the exit code; natively 128 and the signal when a signal ended it.
    int wait();

private:
    struct system_process;
    std::unique_ptr<system_process> m_process;
};

}  // namespace test_support
