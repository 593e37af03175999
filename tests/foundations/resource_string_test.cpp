#include "unicomp/Simples/interface/resource_string.h"

#include <gtest/gtest.h>

#include <map>

#include "platform/resources.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

using resource_string::resourse_2_string_impl;

const std::map<UINT, CString>& all_texts() {
    static const std::map<UINT, CString> texts{
        {100, L"OrderDeck"},
        {101, L"設定經紀商..."},
        {102, L"無經紀商"},
        {103, L"已斷線"},
        {104, L"已連線"},
        {105, L"連線"},
        {106, L"斷線"},
        {107, L"設定經紀商"},
        {108, L"下單匣"},
        {109, L"K"},
        {110, L"M"},
        {111, L"選擇商品"},
        {113, L"DAY(當日有效)"},
        {114, L"GTC(取消前有效)"},
        {115, L"GTD(到期前有效)"},
        {116, L"IOC(立即成交否則取消)"},
        {117, L"賣價"},
        {118, L"買價"},
        {119, L"請手動輸入商品名稱。"},
        {120, L"目前尚未連線至 %s 。是否建立連線?"},
        {121, L"搜尋"},
        {122, L"請輸入 %d 至 %d 的數值。"},
        {123, L"%s 已連線，目前無法調整設定。\n請先中斷連線。"},
        {124, L"A"},
        {125, L"B"},
        {126, L"觸發價"},
        {127, L"委託價"},
        {128, L"數量"},
        {130, L"市價單"},
        {131, L"限價單"},
        {132, L"停止單"},
        {133, L"停止限價單"},
        {134, L"觸發價"},
        {135, L"委託價"},
        {136, L"市價"},
        {137, L"停限"},
        {138, L"買進"},
        {139, L"停止"},
        {140, L"買價/賣價"},
        {141, L"賣出"},
        {142, L"限價"},
        {233, L"商品轉換..."},
        {234, L"FOK"},
        {235, L"AON"},
    };
    return texts;
}

TEST(ResourceString, EveryTextOfTheTableStands) {
    diagnostics_recorder recorder;
    for (const auto& [id, text] : all_texts()) {
        EXPECT_EQ(resourse_2_string_impl<CString>(id), text) << id;
    }
    EXPECT_TRUE(recorder.assertions().empty());
}

// Names of fields for those who do not see them.
const std::map<UINT, CString>& all_spoken_names() {
    static const std::map<UINT, CString> names{
        {301, L"委託類型"}, {302, L"帳戶"}, {303, L"有效期限"}, {304, L"到期日"}};
    return names;
}

TEST(ResourceString, EverySpokenNameStands) {
    for (const auto& [id, text] : all_spoken_names()) {
        EXPECT_EQ(resourse_2_string_impl<CString>(id), text) << id;
    }
}

// What the user reads when a press sent nothing, and of a typed price.
const std::map<UINT, CString>& all_press_texts() {
    static const std::map<UINT, CString> texts{
        {305, L"委託未送出"},
        {306, L"%s %s → %s"},
        {307, L"%s %s 無法確定數值"},
        {308, L"(空白)"},
        {309, L"(未顯示)"},
        {310, L"%s, 請再按一次"},
        {311, L"%s, 請更正後再按一次"},
        {312, L"請先選擇商品"},
        {313, L"目前無法下單"},
        {314, L"送出前已變更: %s, 請確認後再按一次"},
        {315, L"經紀商未接受商品 %s, 委託未送出。"},
        {316, L"商品"},
        {317, L"讀作 %s"},
        {318, L"前一筆委託仍在處理中"},
        {319, L"、"},
    };
    return texts;
}

TEST(ResourceString, EveryTextOfAPressStands) {
    for (const auto& [id, text] : all_press_texts()) {
        EXPECT_EQ(resourse_2_string_impl<CString>(id), text) << id;
    }
}

TEST(ResourceString, TheTableHasNoOtherIds) {
    for (UINT id = 0; id <= 0xFFFF; ++id) {
        const bool listed =
            all_texts().contains(id) || all_spoken_names().contains(id) || all_press_texts().contains(id);
        EXPECT_EQ(platform::load_string(id).has_value(), listed) << id;
    }
}

TEST(ResourceString, AMissingTextIsEmptyAndAsserted) {
    diagnostics_recorder recorder;
    for (const UINT id : {112U, 129U}) {
        recorder.clear();
        EXPECT_EQ(resourse_2_string_impl<CString>(id), L"");
        ASSERT_EQ(recorder.assertions().size(), 1U) << id;
        EXPECT_EQ(recorder.assertions()[0].description, L"0");
    }
}

TEST(ResourceString, TheComFormGivesTheSameText) {
    const _bstr_t text = resourse_2_string_impl<_bstr_t>(113);
    EXPECT_EQ(platform::text_of(text), L"DAY(當日有效)");
    diagnostics_recorder recorder;
    EXPECT_EQ(resourse_2_string_impl<_bstr_t>(129).length(), 0U);
    ASSERT_EQ(recorder.assertions().size(), 1U);
    EXPECT_EQ(recorder.assertions()[0].description, L"0");
}

TEST(ResourceString, TheShortFormGivesTheSameText) {
    EXPECT_EQ(resource_string::text(138), L"買進");
}

}  // namespace
