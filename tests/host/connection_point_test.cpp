#include "com/connection_point.h"

#include <olectl.h>

#include <gtest/gtest.h>

#include "centre_fixture.h"

namespace host {
namespace {

class HostConnectionPoint : public ::testing::Test {
protected:
    ref<IConnectionPoint> point() {
        IConnectionPoint* raw = nullptr;
        EXPECT_EQ(m_world.instant().FindConnectionPoint(__uuidof(ITC_TradingProfileDataChange), &raw), S_OK);
        return ref<IConnectionPoint>(raw, false);
    }

    paper_world m_world;
};

TEST_F(HostConnectionPoint, OnlyTheOneEventInterfaceIsFound) {
    IConnectionPoint* raw = nullptr;
    EXPECT_EQ(m_world.instant().FindConnectionPoint(__uuidof(ITC_ItemsChanged), &raw),
              CONNECT_E_NOCONNECTION);
    EXPECT_EQ(raw, nullptr);
    IID events{};
    EXPECT_EQ(point()->GetConnectionInterface(&events), S_OK);
    EXPECT_TRUE(IsEqualIID(events, __uuidof(ITC_TradingProfileDataChange)));
}

TEST_F(HostConnectionPoint, ASinkWithoutTheInterfaceIsRefused) {
    DWORD cookie = 1;
    EXPECT_EQ(point()->Advise(m_world.all->unknown(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(point()->Advise(nullptr, &cookie), E_POINTER);
}

TEST_F(HostConnectionPoint, ACookieEndsItsOwnConnectionOnce) {
    const auto first = make<recorder>();
    const auto second = make<recorder>();
    DWORD cookies[2]{};
    ASSERT_EQ(point()->Advise(first.get(), &cookies[0]), S_OK);
    ASSERT_EQ(point()->Advise(second.get(), &cookies[1]), S_OK);
    EXPECT_EQ(point()->Unadvise(cookies[0]), S_OK);
    EXPECT_EQ(point()->Unadvise(cookies[0]), CONNECT_E_NOCONNECTION);
    m_world.instant().Disconnect();
    EXPECT_TRUE(first->states.empty());
    EXPECT_EQ(second->states.size(), 1u);
}

TEST_F(HostConnectionPoint, ConnectionsAreEnumerated) {
    const auto sink = make<recorder>();
    DWORD cookie = 0;
    ASSERT_EQ(point()->Advise(sink.get(), &cookie), S_OK);
    IEnumConnections* raw = nullptr;
    ASSERT_EQ(point()->EnumConnections(&raw), S_OK);
    const ref<IEnumConnections> all(raw, false);
    CONNECTDATA data[2]{};
    ULONG fetched = 0;
    EXPECT_EQ(all->Next(2, data, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 1u);
    EXPECT_EQ(data[0].dwCookie, cookie);
    data[0].pUnk->Release();
    EXPECT_EQ(all->Reset(), S_OK);
    EXPECT_EQ(all->Skip(2), S_FALSE);
}

TEST_F(HostConnectionPoint, ThePointsOfAContainerAreEnumerated) {
    IEnumConnectionPoints* raw = nullptr;
    ASSERT_EQ(m_world.all->EnumConnectionPoints(&raw), S_OK);
    const ref<IEnumConnectionPoints> all(raw, false);
    IConnectionPoint* one = nullptr;
    ASSERT_EQ(all->Next(1, &one, nullptr), S_OK);
    IConnectionPointContainer* container = nullptr;
    EXPECT_EQ(one->GetConnectionPointContainer(&container), S_OK);
    EXPECT_EQ(container, static_cast<IConnectionPointContainer*>(m_world.all.get()));
    container->Release();
    one->Release();
    EXPECT_EQ(all->Next(1, &one, nullptr), S_FALSE);
}

TEST_F(HostConnectionPoint, APointThatOutlivesItsContainerGivesNone) {
    const ref<IConnectionPoint> kept = point();
    m_world.all->remove("orderdeck-paper-1");
    IConnectionPointContainer* container = nullptr;
    EXPECT_EQ(kept->GetConnectionPointContainer(&container), E_UNEXPECTED);
}

}  // namespace
}  // namespace host
