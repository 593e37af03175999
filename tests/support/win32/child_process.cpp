#include "tests/support/child_process.h"

#include <windows.h>

#include <array>
#include <stdexcept>

namespace test_support {
namespace {

// The child inherits one end; the other stays here.
void make_pipe(HANDLE& reader, HANDLE& writer, HANDLE& kept) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    if (CreatePipe(&reader, &writer, &inherited, 0) == 0) {
        throw std::runtime_error("CreatePipe");
    }
    SetHandleInformation(kept, HANDLE_FLAG_INHERIT, 0);
}

std::wstring command_line(const std::string& name, const std::vector<std::string>& arguments) {
    std::array<wchar_t, 1024> program{};
    GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    std::wstring line = L"\"" + std::wstring(program.data()) + L"\" --child=";
    line.append(name.begin(), name.end());
    for (const std::string& each : arguments) {
        line += L" \"";
        line.append(each.begin(), each.end());
        line += L'"';
    }
    return line;
}

}  // namespace

struct child_process::system_process {
    PROCESS_INFORMATION process{};
    HANDLE input = nullptr;
    HANDLE output = nullptr;
};

child_process::child_process(const std::string& name, const std::vector<std::string>& arguments)
    : m_process(std::make_unique<system_process>()) {
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    make_pipe(start.hStdInput, m_process->input, m_process->input);
    make_pipe(m_process->output, start.hStdOutput, m_process->output);
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    std::wstring line = command_line(name, arguments);
    const BOOL started = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &start, &m_process->process);
    CloseHandle(start.hStdInput);
    CloseHandle(start.hStdOutput);
    if (started == 0) {
        throw std::runtime_error("CreateProcessW");
    }
}

child_process::~child_process() {
    end_input();
    wait();
    CloseHandle(m_process->output);
    CloseHandle(m_process->process.hThread);
    CloseHandle(m_process->process.hProcess);
}

std::string child_process::read_line() {
    std::string line;
    DWORD read = 0;
    for (char each = 0; ReadFile(m_process->output, &each, 1, &read, nullptr) != 0 && read == 1;) {
        if (each == '\n') {
            break;
        }
        if (each != '\r') {
            line += each;
        }
    }
    return line;
}

void child_process::end_input() {
    if (m_process->input != nullptr) {
        CloseHandle(m_process->input);
        m_process->input = nullptr;
    }
}

int child_process::wait() {
    WaitForSingleObject(m_process->process.hProcess, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(m_process->process.hProcess, &code);
    return static_cast<int>(code);
}

}  // namespace test_support
