#include "platform/number_locale.h"

#include "platform/posix/icu_number_locale.h"

namespace platform {

template <>
number_locale& port<number_locale>::system() {
    static icu_number_locale the_locale(icu_number_locale::environment_locale());
    return the_locale;
}

}  // namespace platform
