// A bar in a program whose version block names no product: it works, and remembers nothing.

#include "platform/registry.h"
#include "tests/root/root_fixture.h"
#include "tests/support/failing_registry.h"

namespace {

using platform::registry_key;
using testing::ElementsAre;
using testing::IsEmpty;

class NamelessRoot : public testing::Test, protected test::root_host {};

TEST_F(NamelessRoot, ReportsAtEachUseThatItHasNoPath) {
    EXPECT_EQ(create(), S_OK);
    EXPECT_THAT(take_assertions(), ElementsAre("sPath.GetLength() > 0"));
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_THAT(take_assertions(), ElementsAre("sPath.GetLength() > 0"));
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_THAT(take_assertions(), ElementsAre("sPath.GetLength() > 0"));
}

// The root of the user's settings belongs to nobody.
TEST_F(NamelessRoot, AsksTheBarToWriteAndReadNothing) {
    EXPECT_EQ(create(), S_OK);
    run_loop();
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_THAT(take_calls("erialize"), IsEmpty());
}

TEST_F(NamelessRoot, LeavesWhatOthersKeepUnderTheUser) {
    constexpr wchar_t others[] = L"Profiles";
    {
        registry_key key;
        ASSERT_EQ(key.Create(HKEY_CURRENT_USER, std::wstring(others) + L"\\Kept"), ERROR_SUCCESS);
    }
    EXPECT_EQ(create(), S_OK);
    EXPECT_EQ(root->OnClose(), S_OK);
    registry_key key;
    EXPECT_EQ(key.Open(HKEY_CURRENT_USER, std::wstring(others) + L"\\Kept", KEY_READ), ERROR_SUCCESS);
    registry_key::DeleteTree(HKEY_CURRENT_USER, others);
}

}  // namespace
