#include <sanitizer/common_interface_defs.h>

#include <cstdio>

#include "tests/hostile/at_crash.h"

namespace hostile {

namespace {

const char* last_words = nullptr;

#if defined(__SANITIZE_ADDRESS__)
void at_death() {
    if (last_words != nullptr) {
        std::fprintf(stderr, "hostile host: %s\n", last_words);
    }
}
#endif

}  // namespace

void say_at_crash(const char* text) {
    last_words = text;
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback(&at_death);
#endif
}

}  // namespace hostile
