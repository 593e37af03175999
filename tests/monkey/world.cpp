#include "tests/monkey/world.h"

#include <array>
#include <limits>

namespace monkey {

namespace {

constexpr double nothing = std::numeric_limits<double>::max();

test::symbol instrument(const CString& name, LONG id, LONG category, LONG code, double min_movement) {
    test::symbol result;
    result.id = id;
    result.name = name;
    result.category = category;
    result.price_scale_code = code;
    result.min_movement = min_movement;
    return result;
}

std::vector<test::symbol> make_instruments() {
    std::vector<test::symbol> all = {
        instrument(L"CENTS", 11, 2, 2, 1.0),      instrument(L"POINTS", 12, 1, 'e', 1.0),
        instrument(L"QUARTERS", 13, 1, 2, 25.0),  instrument(L"BONDS", 14, 3, 'k', 1.0),
        instrument(L"NOTES", 15, 3, 'S', 1.0),    instrument(L"STOCK", 16, 2, 4, 1.0),
        instrument(L"SCALELESS", 17, 4, -1, 1.0), instrument(L"ODD", 18, 4, 50, 1.0),
        instrument(L"STILL", 19, 1, 2, 0.0)};
    // Differs from the first in what does not count.
    all.push_back(instrument(L"CENTS", 99, 2, 4, 3.0));
    // Differs in what counts.
    all.push_back(all.front());
    all.back().exchange = L"ELSEWHERE";
    all.push_back(instrument(L"OWN", 20, 2, 2, 1.0));
    all.back().data_feed = own_feed;
    all.push_back(instrument(L"FOREIGN", 21, 2, 2, 1.0));
    all.back().data_feed = L"Rithmic 01";
    return all;
}

}  // namespace

const std::vector<profile_names>& profiles() {
    static const std::vector<profile_names> all = {
        {L"Beta", L"id-1"}, {L"Alpha", L"id-2"}, {L"beta", L"id-3"}, {L"Beta", L"id-4"}, {L"Zeta", L"id-5"}};
    return all;
}

const std::vector<CString>& later_names() {
    static const std::vector<CString> all = {L"Aardvark", L"Beta", L"Moved", L"Interactive Brokers"};
    return all;
}

const std::vector<std::pair<double, double>>& quotes() {
    static const std::vector<std::pair<double, double>> all = {
        {100.25, 100.5},
        {99.99, 100.01},
        {52.5, 52.75},
        {101.0, 101.25},
        {7.0, 7.5},
        {64.015625, 64.03125},
        {1234.5, 1235.0},
        {0.5, 0.75},
        {20.0, 20.01},
        {100.0, 100.0},
        {1.0, 300000.0},
        {-2.0, -1.0},
        {0.001, 0.003},
        {12.09375, 12.125},
        {249999.5, 250000.0},
        {100.5, 100.25},
        {0.0, 1.0},
        {1.0, 0.0},
        {std::numeric_limits<double>::quiet_NaN(), 1.0},
        {1.0, std::numeric_limits<double>::infinity()},
        {std::numeric_limits<double>::denorm_min(), 1.0},
        {nothing, nothing}};
    return all;
}

const std::vector<LONG>& states() {
    static const std::vector<LONG> all = {768, 768, 256, 768, 768, 768, 512, 768, 768, 0, 768, 1000};
    return all;
}

const std::vector<std::vector<CString>>& account_lists() {
    static const std::vector<std::vector<CString>> all = {
        {L"Paper 1", L"Paper 2", L"Live"}, {L"Live"}, {}, {L"Paper 2", L"Paper 1", L"Live", L"Live"}};
    return all;
}

const std::vector<CString>& driven_accounts() {
    static const std::vector<CString> all = {L"Paper 1", L"Paper 2", L"Live", L"Nobody", L""};
    return all;
}

const std::vector<times_by_category>& time_lists() {
    static const std::vector<times_by_category> all = {
        {{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}},
        {{1, 2, 3}, {1, 2, 4, 5, 6}, {3}, {}},
        {{4, 2}, {9, 3, 1, 2}, {1, 2, 3, 4}, {6, 5, 3, 2}}};
    return all;
}

const std::vector<test::symbol>& instruments() {
    static const std::vector<test::symbol> all = make_instruments();
    return all;
}

const std::vector<CString>& symbol_texts() {
    static const std::vector<CString> all = {L"CENTS",  L"POINTS",    L"QUARTERS", L"BONDS", L"NOTES",
                                             L"STOCK",  L"SCALELESS", L"ODD",      L"STILL", L"cents",
                                             L"NOBODY", L"FREE",      L"",         L"OWN",   L"QUIT"};
    return all;
}

lookup_answer answer_to(const CString& text) {
    for (const test::symbol& known : instruments()) {
        if (known.name == text) {
            return {eODLR_Selected, known};
        }
    }
    if (text == L"cents") {
        return {eODLR_Selected, instruments().front()};
    }
    if (text == L"FREE") {
        return {eODLR_NotSupported, instrument(text, 0, 254, 2, 1.0)};
    }
    return {text == L"QUIT" ? eODLR_Canceled : eODLR_NotFound, instrument(text, 0, 1, 2, 1.0)};
}

const std::vector<lookup_answer>& dialog_answers() {
    static const std::vector<lookup_answer> all = {answer_to(L"BONDS"),
                                                   answer_to(L"STOCK"),
                                                   {eODLR_Selected, instruments().at(10)},
                                                   {eODLR_Canceled, instruments().at(1)},
                                                   {eODLR_NotFound, instruments().at(2)},
                                                   {eODLR_NotSupported, instruments().at(3)}};
    return all;
}

const std::vector<CString>& price_texts() {
    static const std::vector<CString> all = {L"100",
                                             L"101.25",
                                             L"12 3/32",
                                             L"0.01",
                                             L"0",
                                             L"250000",
                                             L"250000.01",
                                             L"1,234.5",
                                             L"-5",
                                             L"-1 1/2",
                                             L"abc",
                                             L"",
                                             L"1/0",
                                             L"1 1/2",
                                             L"99.995",
                                             L"10.004",
                                             L"10.006",
                                             L"1/2",
                                             L"249999.99",
                                             L"1",
                                             L"0.5",
                                             L"/",
                                             L"1 /4",
                                             L"1.5/4",
                                             L"2 x/4",
                                             L"7/8/9",
                                             L"3 3 /4",
                                             L"1e3",
                                             L"200.5",
                                             L"3.25",
                                             L"0.0031",
                                             L"  42 ",
                                             L"6010,5",
                                             L"71,24",
                                             L"117 33/32",
                                             L"60,10",
                                             L"1e2",
                                             L".5",
                                             L"5.",
                                             L"117 31/32",
                                             L"100K",
                                             L"1.5M",
                                             L"6,010.25",
                                             L"1234567890123456",
                                             L"0.1234567890123456",
                                             L"100.0000000001",
                                             L"64 1/64",
                                             L"6 010"};
    return all;
}

const std::vector<quantity_text>& quantity_texts() {
    static const std::vector<quantity_text> all = {{L"1", 1},
                                                   {L"10", 10},
                                                   {L"100", 100},
                                                   {L"1500", 1500},
                                                   {L"123456", 123456},
                                                   {L"1000000000", 1000000000},
                                                   {L"0", 0},
                                                   {L"-5", -5},
                                                   {L"2147483647", 2147483647},
                                                   {L"2147483648", std::nullopt, DISP_E_OVERFLOW},
                                                   {L"abc", std::nullopt, DISP_E_TYPEMISMATCH},
                                                   {L"", std::nullopt, DISP_E_TYPEMISMATCH}};
    return all;
}

const std::vector<double>& dates() {
    static const std::vector<double> all = {48000.25, 48000.5, 47999.0, 65380.75, 2.0,
                                            2.25,     1.0,     0.0,     0.25,     45000.0};
    return all;
}

const std::vector<int>& spin_steps() {
    static const std::vector<int> all = {1, -1, 2, -3, 10, -100, 0, 30000};
    return all;
}

const std::vector<CString>& remembered_names() {
    static const std::vector<CString> all = {L"Beta", L"Alpha",    L"beta",
                                             L"Zeta", L"Aardvark", L"Moved",
                                             L"Zulu", L"Nobody",   L"Interactive Brokers"};
    return all;
}

LONG planted_id(int which) {
    // Most of these are known, and the last ones are not.
    return which % 3 == 0 ? 0 : 11 + which % 15;
}

const char* operation_of(broken what) {
    static constexpr std::array<const char*, broken_count> names = {
        "ManualTrading.GetAccounts",
        "ManualTrading.GetTimeInForces",
        "ManualTrading.PlaceOrder",
        "ManualTrading.SetAccount",
        "ManualTrading.SetSymbol",
        "Profile.get_ManualTrading",
        "Profile.get_ConnectionState",
        "Profile.Connect",
        "Lookup.GetSymbolInfo",
        "Lookup.Initialize",
        "Class(\"LookupImpl\").CreateInstance",
        "Profile.FindConnectionPoint",
        "Profiles.get_Items",
        "Center.Prepare",
        "Class(\"TradingCenter\").CreateInstance",
        "Center.get_TradingProfiles",
        "Profiles.FindConnectionPoint",
        "Center.get_MasterCounter",
        "Profile.Disconnect",
        "Class(\"DisconnectConfirmer\").CreateInstance",
        "DisconnectConfirmer.Run",
        "DisconnectConfirmer.Confirm",
        "Profile.get_HaveSettings",
        "Profile.ShowSettings",
        "Class(\"SymbolMapping\").CreateInstance",
        "SymbolMapping.ShowDialog",
        "Class(\"ProfileEditor\").CreateInstance",
        "ProfileEditor.Run",
        "ProfileEditor.Show",
        "Lookup.GetSymbolInfoById",
        "Lookup.IsPluginSupported",
        "OnCommand.Execute",
        "ManualTrading.BeforeOrder",
        ""};
    return names.at(static_cast<std::size_t>(what));
}

}  // namespace monkey
