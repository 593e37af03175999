#include <gmock/gmock.h>

#include "platform/com.h"
#include "tests/support/child_process.h"
#include "tests/support/own_mutexes.h"
#include "tests/support/own_names.h"

namespace {

// The tests run on a thread with an apartment, as the host's thread is.
class apartment : public testing::Environment {
public:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr))); }
    void TearDown() override { CoUninitialize(); }
};

}  // namespace

int main(int argc, char** argv) {
    const test_support::own_names names(test_support::is_child(argc, argv));
    test_support::own_mutexes mutexes;
    int exit_code = 0;
    if (test_support::run_child(argc, argv, exit_code)) {
        return exit_code;
    }
    testing::InitGoogleMock(&argc, argv);
    testing::AddGlobalTestEnvironment(new apartment);
    return RUN_ALL_TESTS();
}
