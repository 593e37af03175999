#include <gmock/gmock.h>

#include "platform/com.h"
#include "tests/support/child_process.h"

namespace {

// The tests run on a thread with an apartment, as the host's thread is.
class apartment : public testing::Environment {
public:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr))); }
    void TearDown() override { CoUninitialize(); }
};

}  // namespace

int main(int argc, char** argv) {
    int exit_code = 0;
    if (test_support::run_child(argc, argv, exit_code)) {
        return exit_code;
    }
    testing::InitGoogleMock(&argc, argv);
    testing::AddGlobalTestEnvironment(new apartment);
    return RUN_ALL_TESTS();
}
