#include "ovserver/ovSingleton/Singleton.h"

#include <gmock/gmock.h>

#include <thread>
#include <vector>

#include "diagnostics/IDebugObject.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <int>
struct counted {
    counted() { ++alive; }
    ~counted() { --alive; }
    counted(const counted&) = delete;
    counted& operator=(const counted&) = delete;
    int value = 0;
    inline static std::atomic<int> alive = 0;
};

// Whether a call goes the error path, with a record that its catcher releases.
template <class Call>
bool goes_the_error_path(Call call) {
    try {
        call();
    } catch (IDebugObject* record) {
        record->Release();
        return true;
    }
    return false;
}

std::vector<std::wstring> descriptions(const diagnostics_recorder& reports) {
    std::vector<std::wstring> texts;
    for (const auto& assertion : reports.assertions()) {
        texts.push_back(assertion.description);
    }
    return texts;
}

TEST(ProcessSingleton, AnAccessorHasTwoBytes) {
    EXPECT_EQ(sizeof(ov::CProcessSingletonAccessor<counted<0>>), 2U);
}

TEST(ProcessSingleton, ItsSecondByteTellsWhetherItHoldsAReference) {
    const ov::CProcessSingletonAccessor<counted<0>> accessor;
    EXPECT_EQ(reinterpret_cast<const unsigned char*>(&accessor)[1], 1);
}

TEST(ProcessSingleton, AllAccessorsShareOneObject) {
    using accessor = ov::CProcessSingletonAccessor<counted<1>>;
    accessor first;
    accessor second;
    first->value = 7;
    EXPECT_EQ(second->value, 7);
    EXPECT_EQ(first.GetObject(), second.GetObject());
    EXPECT_EQ(counted<1>::alive, 1);
}

TEST(ProcessSingleton, TheLastAccessorFreesTheObjectAndTheNextStartsAnew) {
    using accessor = ov::CProcessSingletonAccessor<counted<2>>;
    {
        accessor first;
        first->value = 7;
        { accessor second; }
        EXPECT_EQ(first->value, 7);
    }
    EXPECT_EQ(counted<2>::alive, 0);
    accessor next;
    EXPECT_EQ(next->value, 0);
}

TEST(ProcessSingleton, AReleaseWithNoSingletonIsReportedAndGivesNull) {
    const diagnostics_recorder reports;
    using place = ov::CProcessSingleton<counted<3>>;
    EXPECT_EQ(place::SingletonAccess(place::release), nullptr);
    EXPECT_THAT(descriptions(reports), ElementsAre(L"Singleton"));
}

TEST(ProcessSingleton, ACountBelowZeroIsReported) {
    const diagnostics_recorder reports;
    using place = ov::CProcessSingleton<counted<4>>;
    ov::CSingleton<counted<4>>* const singleton = place::SingletonAccess(place::add_reference);
    singleton->m_Count = 0;
    place::SingletonAccess(place::release);
    EXPECT_THAT(descriptions(reports), ElementsAre(L"Result>=0"));
    singleton->m_Count = 1;
    place::SingletonAccess(place::release);
    EXPECT_EQ(counted<4>::alive, 0);
}

// There is no memory for it while asked so.
struct unallocated {
    static void* operator new(std::size_t, const std::nothrow_t&) noexcept { return nullptr; }
    static void operator delete(void*) {}
};

TEST(ProcessSingleton, AnEmptyObjectGoesTheErrorPathAndIsReportedAgainWhenItEnds) {
    const diagnostics_recorder reports;
    {
        ov::CProcessSingletonAccessor<unallocated> accessor;
        EXPECT_TRUE(goes_the_error_path([&] { accessor.GetObject(); }));
        EXPECT_THAT(reports.errors(), ElementsAre(L"m_Object.get()"));
        EXPECT_THAT(descriptions(reports), IsEmpty());
    }
    EXPECT_THAT(descriptions(reports), ElementsAre(L"m_Object.get()"));
}

struct impossible {
    impossible() {
        if (refuse) {
            throw std::bad_alloc();
        }
    }
    inline static bool refuse = true;
};

TEST(ProcessSingleton, ASingletonThatCannotBeMadeGoesTheErrorPathAndIsTriedAgain) {
    const diagnostics_recorder reports;
    impossible::refuse = true;
    ov::CProcessSingletonAccessor<impossible> accessor;
    EXPECT_EQ(reinterpret_cast<const unsigned char*>(&accessor)[1], 0);
    EXPECT_TRUE(goes_the_error_path([&] { accessor.GetObject(); }));
    EXPECT_THAT(reports.errors(), ElementsAre(L"Singleton"));
    impossible::refuse = false;
    EXPECT_NE(accessor.GetObject(), nullptr);
    EXPECT_EQ(reinterpret_cast<const unsigned char*>(&accessor)[1], 1);
}

TEST(ProcessSingleton, AnAccessorWithoutAReferenceReleasesNothing) {
    const diagnostics_recorder reports;
    impossible::refuse = true;
    { ov::CProcessSingletonAccessor<impossible> accessor; }
    EXPECT_THAT(descriptions(reports), IsEmpty());
}

TEST(ProcessSingleton, ManyThreadsComeAndGoAndNothingIsLeft) {
    using accessor = ov::CProcessSingletonAccessor<counted<5>>;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([] {
            for (int i = 0; i < 2000; ++i) {
                accessor one;
                accessor two;
                EXPECT_EQ(one.GetObject(), two.GetObject());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(counted<5>::alive, 0);
}

}  // namespace
