#include <gmock/gmock.h>

#include "platform/com.h"

namespace {

// The tests run on a thread with an apartment, as the host's thread is.
class apartment : public testing::Environment {
public:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr))); }
    void TearDown() override { CoUninitialize(); }
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    testing::AddGlobalTestEnvironment(new apartment);
    return RUN_ALL_TESTS();
}
