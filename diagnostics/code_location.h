#pragma once

namespace BugSlayerUtil {

// Where a report comes from. All texts are UTF-8 and outlive the report.
struct code_location {
    const char* file;
    int line;
    const char* function;
    const char* signature;
};

#define BS_HERE                                           \
    ::BugSlayerUtil::code_location {                      \
        __FILE__, __LINE__, __func__, __PRETTY_FUNCTION__ \
    }

}  // namespace BugSlayerUtil
