// In which order a lookup service keeps what it has, and so in which order that goes.
#include <algorithm>

#include "tests/lookup/lookup_fixture.h"

namespace {

using namespace OV_OrderDeck;

// Lets a test see where the fields stand.
class laid_open : public CLookupImpl {
public:
    std::vector<const void*> fields() const {
        return {&m_lock,      &initialized,      &pluginName, &hParent, &activeObject,
                &association, &instrumentDialog, &isDataFeed, &filter,  &caption};
    }
    bool starts_empty() const {
        return !initialized && pluginName.length() == 0 && hParent == 0 && !instrumentDialog && !isDataFeed &&
               !filter && caption == nullptr;
    }
};

TEST(LookupFields, StandFromTheLockToTheCaption) {
    const auto lookup = platform::make_com<laid_open>();
    const auto fields = lookup->fields();
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end()));
}

TEST(LookupFields, AreEmptyAtFirst) {
    EXPECT_TRUE(platform::make_com<laid_open>()->starts_empty());
}

}  // namespace
