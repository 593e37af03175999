#include "platform/posix/com/apartment.h"

#include <windows.h>

#include <atomic>

namespace {

struct thread_apartment {
    unsigned depth = 0;
    bool multithreaded = false;
};

thread_local thread_apartment t_apartment;

// Threads that keep the multithreaded apartment.
std::atomic<int> g_multithreaded_threads{0};

}  // namespace

namespace posix_com {

apartment_id current_apartment() noexcept {
    if (t_apartment.depth != 0) {
        return t_apartment.multithreaded ? k_multithreaded : GetCurrentThreadId();
    }
    return g_multithreaded_threads.load() > 0 ? k_multithreaded : k_no_apartment;
}

unsigned apartment_depth() noexcept {
    return t_apartment.depth;
}

}  // namespace posix_com

HRESULT CoInitializeEx(LPVOID reserved, DWORD dwCoInit) noexcept {
    if (reserved != nullptr) {
        return E_INVALIDARG;
    }
    const bool multithreaded = (dwCoInit & COINIT_APARTMENTTHREADED) == 0;
    if (t_apartment.depth == 0) {
        t_apartment = {1, multithreaded};
        if (multithreaded) {
            ++g_multithreaded_threads;
        }
        return S_OK;
    }
    if (t_apartment.multithreaded != multithreaded) {
        return RPC_E_CHANGED_MODE;
    }
    ++t_apartment.depth;
    return S_FALSE;
}

HRESULT CoInitialize(LPVOID reserved) noexcept {
    return CoInitializeEx(reserved, COINIT_APARTMENTTHREADED);
}

void CoUninitialize() noexcept {
    if (t_apartment.depth == 0) {
        return;
    }
    if (t_apartment.depth == 1) {
        // While the thread still counts, so that what the factories do on their way out finds it.
        if (!t_apartment.multithreaded) {
            posix_com::revoke_all_of(GetCurrentThreadId());
        } else if (--g_multithreaded_threads == 0) {
            posix_com::revoke_all_of(posix_com::k_multithreaded);
        }
    }
    --t_apartment.depth;
}
