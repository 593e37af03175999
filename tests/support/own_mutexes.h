// The system's mutexes under names of one's own.
#pragma once

#include "platform/process_mutex.h"

namespace test_support {

// While it lives, whoever asks for a mutex by name gets one that only this run of the program and its child
// processes know: another program that has the same name for a moment can't be in the way. Names stay as long
// as the system takes them with own_name() within.
class own_mutexes final : public platform::process_mutexes {
public:
    std::unique_ptr<platform::process_mutex> open(const CString& name) noexcept override;

private:
    platform::port<platform::process_mutexes>::replacement m_replacement{*this};
};

}  // namespace test_support
