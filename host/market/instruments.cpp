#include "market/instruments.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "market/price_text.h"

namespace host {
namespace {

using enum instrument_kind;
using namespace std::string_view_literals;

// OLE dates of the third Friday and the last trading days used below.
constexpr double december_18_2026 = 46374.0;
constexpr double march_19_2027 = 46465.0;
constexpr double december_16_2026 = 46372.0;
constexpr double december_21_2026 = 46377.0;

std::deque<instrument> make_list() {
    return {
        {1, stock, "2330", "2330", "台積電", "TWSE", "Asia/Taipei", "TWD", 0, 5, 1.0, 1085.0},
        {2, stock, "0050", "0050", "元大台灣50", "TWSE", "Asia/Taipei", "TWD", 2, 5, 1.0, 62.35},
        {3, stock, "MSFT", "MSFT", "Microsoft Corporation", "NASDAQ", "America/New_York", "USD", 2, 1, 1.0,
         428.15},
        {4, stock, "KO", "KO", "The Coca-Cola Company", "NYSE", "America/New_York", "USD", 2, 1, 1.0, 63.4},
        {5, future, "TXFZ6", "TXF", "臺股期貨 12月", "TAIFEX", "Asia/Taipei", "TWD", 0, 1, 200.0, 23120.0,
         december_16_2026},
        {6, future, "ESZ6", "ES", "E-mini S&P 500 Dec 26", "CME", "America/Chicago", "USD", 'g', 1, 50.0,
         6021.25, december_18_2026},
        {7, future, "NQZ6", "NQ", "E-mini Nasdaq-100 Dec 26", "CME", "America/Chicago", "USD", 'g', 1, 20.0,
         21410.5, december_18_2026},
        {8, future, "ZBZ6", "ZB", "30-Year T-Bond Dec 26", "CBOT", "America/Chicago", "USD", 'k', 1, 1000.0,
         117.375, december_21_2026},
        {9, future, "ZNZ6", "ZN", "10-Year T-Note Dec 26", "CBOT", "America/Chicago", "USD", 'x', 1, 1000.0,
         110.265625, december_21_2026},
        {10, future, "TNH7", "TN", "Ultra 10-Year T-Note Mar 27", "CBOT", "America/Chicago", "USD", 'l', 1,
         1000.0, 113.453125, march_19_2027},
        {11, future, "CLZ6", "CL", "Crude Oil Dec 26", "NYMEX", "America/New_York", "USD", 2, 1, 1000.0,
         71.24, december_18_2026},
        {12, future, "ZCZ6", "ZC", "Corn Dec 26", "CBOT", "America/Chicago", "USD", 'g', 1, 50.0, 438.5,
         december_18_2026},
        {13, currency, "EURUSD", "EURUSD", "Euro / US Dollar", "FX", "UTC", "USD", 5, 1, 100000.0, 1.08542},
        {14, currency, "GBPUSD", "GBPUSD", "British Pound / US Dollar", "FX", "UTC", "USD", 4, 1, 100000.0,
         1.2631},
        {15, option, "TXO23200L6", "TXO", "臺指選擇權 12月 23200 買權", "TAIFEX", "Asia/Taipei", "TWD", 0, 1,
         50.0, 385.0, december_16_2026, 23200.0, false},
        {16, option, "MSFT 261218P420", "MSFT", "MSFT Dec 18 2026 420 Put", "CBOE", "America/New_York", "USD",
         2, 5, 100.0, 11.35, december_18_2026, 420.0, true},
    };
}

bool same_letter(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

std::deque<instrument>& traded() {
    static std::deque<instrument> list = make_list();
    return list;
}

}  // namespace

double instrument::tick() const {
    return scale_step(scale) * min_move;
}

const std::deque<instrument>& instruments() {
    return traded();
}

const instrument& adopt_instrument(const instrument& one) {
    const instrument* known = find_instrument(one.id);
    return known != nullptr ? *known : traded().emplace_back(one);
}

const instrument* find_instrument(int id) {
    const auto& list = instruments();
    const auto found = std::ranges::find(list, id, &instrument::id);
    return found == list.end() ? nullptr : &*found;
}

const instrument* find_instrument(std::string_view name) {
    const auto& list = instruments();
    const auto found =
        std::ranges::find_if(list, [&](const instrument& one) { return same_name(one.name, name); });
    return found == list.end() ? nullptr : &*found;
}

bool same_name(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, same_letter);
}

std::string_view kind_text(instrument_kind kind) {
    switch (kind) {
        case future:
            return "Future";
        case stock:
            return "Stock";
        case option:
            return "Option";
        case currency:
            return "Currency";
        case basket:
            return "Basket";
    }
    return "";
}

int currency_code(std::string_view currency) {
    constexpr std::array codes{"USD"sv, "TWD"sv, "EUR"sv, "GBP"sv, "JPY"sv, "CHF"sv, "CAD"sv,
                               "AUD"sv, "NZD"sv, "SEK"sv, "NOK"sv, "HKD"sv, "SGD"sv};
    const auto found = std::ranges::find(codes, currency);
    return found == codes.end() ? 0 : static_cast<int>(found - codes.begin()) + 1;
}

}  // namespace host
