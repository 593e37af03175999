// Which apartment the calling thread is in.
#pragma once

#include <objbase.h>

namespace posix_com {

// 0 stands for no apartment, 1 for the multithreaded one, the thread's id for its own single-threaded
// one. A thread that initialised nothing is in the multithreaded apartment while another thread keeps
// it.
using apartment_id = DWORD;
inline constexpr apartment_id k_no_apartment = 0;
inline constexpr apartment_id k_multithreaded = 1;

apartment_id current_apartment() noexcept;

// Initialisations of the calling thread that wait for their uninitialise: what a test asks at the end.
unsigned apartment_depth() noexcept;

// Revokes what an apartment has registered.
void revoke_all_of(apartment_id apartment) noexcept;

}  // namespace posix_com
