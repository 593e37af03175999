#include "tests/monkey/seen_row.h"

#include <cmath>

#include "tests/reads_as/exact_reader.h"
#include "tests/support/host_record.h"
#include "tests/support/number_locale_scope.h"

namespace monkey {

namespace {

// Grows by one line for each item that is on the screen and says something else.
class comparison {
public:
    comparison(const seen_row& seen, std::vector<std::string>& lines) : m_seen(seen), m_lines(lines) {}

    const seen_item* shown(bit field) const {
        const auto found = m_seen.items.find(field);
        return found != m_seen.items.end() && found->second.shown ? &found->second : nullptr;
    }

    void text(bit field, const CString& sent) {
        const seen_item* const item = shown(field);
        if (item != nullptr && item->text != sent) {
            differs(field, test::quoted(sent));
        }
    }

    void quantity(LONG sent) {
        const seen_item* const item = shown(quantity_bit);
        if (item != nullptr && exact::quantity(item->text, english()) != sent) {
            differs(quantity_bit, std::to_string(sent));
        }
    }

    void price(bit field, double sent, bool needed) {
        const seen_item* const item = shown(field);
        if (item == nullptr) {
            if (needed) {
                m_lines.push_back(std::string(name_of(field)) + " is not shown");
            }
            return;
        }
        const auto reads = exact::price(item->text, english());
        if (!reads || !exact::is_near(*reads, sent)) {
            differs(field, test::number_text(sent));
        }
    }

    void date(double sent, bool needed) {
        const bool on_screen = shown(date_bit) != nullptr;
        if (on_screen != needed || (on_screen && m_seen.day != static_cast<LONG>(std::floor(sent)))) {
            m_lines.push_back("date: day " + std::to_string(m_seen.day) + (on_screen ? "" : ", not shown") +
                              ", sent " + test::number_text(sent));
        }
    }

    void says(bool holds, const std::string& line) {
        if (!holds) {
            m_lines.push_back(line);
        }
    }

private:
    void differs(bit field, const std::string& sent) {
        m_lines.push_back(std::string(name_of(field)) + ": shown " +
                          test::quoted(m_seen.items.at(field).text) + ", sent " + sent);
    }

    const seen_row& m_seen;
    std::vector<std::string>& m_lines;
};

}  // namespace

std::vector<std::string> broken_items(const seen_row& seen, const sent_order& sent) {
    constexpr LONG until_date = 3;
    std::vector<std::string> lines;
    comparison compare(seen, lines);
    compare.says(seen.profile == sent.profile, "another profile was pressed");
    compare.says(!sent.symbol.empty() && sent.symbol_taken, "the host did not take the symbol");
    compare.text(symbol_bit, sent.symbol);
    compare.text(type_bit, type_text(sent.category));
    compare.quantity(sent.quantity);
    compare.price(first_price_bit, sent.stop_price, sent.category == 2 || sent.category == 4);
    compare.price(second_price_bit, sent.limit_price, sent.category == 3 || sent.category == 4);
    compare.text(account_bit, sent.account);
    compare.text(time_bit, time_text(sent.time_in_force));
    compare.date(sent.date, sent.time_in_force == until_date);
    compare.text(sent.action == 1 ? buy_bit : sell_bit,
                 caption_of(sent.action, sent.category, sent.quantity));
    return lines;
}

CString type_text(LONG category) {
    static const std::vector<CString> texts = {L"市價單", L"停止單", L"限價單", L"停止限價單"};
    return category >= 1 && category <= 4 ? texts.at(static_cast<std::size_t>(category - 1)) : CString();
}

CString time_text(LONG code) {
    static const std::vector<CString> texts = {
        L"DAY(當日有效)", L"GTC(取消前有效)", L"GTD(到期前有效)", L"IOC(立即成交否則取消)", L"FOK", L"AON"};
    return code >= 1 && code <= 6 ? texts.at(static_cast<std::size_t>(code - 1)) : CString();
}

CString caption_of(LONG action, LONG category, LONG quantity) {
    static const std::vector<CString> words = {L"市價", L"停止", L"限價", L"停限"};
    const CString size = std::to_wstring(std::llabs(quantity));
    return CString(action == 1 ? L"買進" : L"賣出") + L" " +
           words.at(static_cast<std::size_t>(category - 1)) + L"\n" + (quantity < 0 ? L"-" : L"") +
           exact::grouped(size, english());
}

const std::vector<bit>& all_bits() {
    static const std::vector<bit> all = {symbol_bit,       type_bit,    quantity_bit, first_price_bit,
                                         second_price_bit, account_bit, time_bit,     date_bit,
                                         quotes_bit,       buy_bit,     sell_bit};
    return all;
}

const char* name_of(bit field) {
    static const std::map<bit, const char*> names = {{symbol_bit, "symbol"},
                                                     {type_bit, "type"},
                                                     {quantity_bit, "quantity"},
                                                     {first_price_bit, "first price"},
                                                     {second_price_bit, "second price"},
                                                     {account_bit, "account"},
                                                     {time_bit, "time"},
                                                     {date_bit, "date"},
                                                     {quotes_bit, "quotes"},
                                                     {buy_bit, "buy"},
                                                     {sell_bit, "sell"}};
    return names.at(field);
}

void alter(seen_row& seen, int which) {
    if (which % 3 != 0) {
        return;
    }
    const bit field = pick(all_bits(), which / 3);
    const int what = which / 33;
    seen_item& item = seen.items[field];
    switch (field) {
        case symbol_bit:
            item.text = pick(symbol_texts(), what);
            return;
        case type_bit:
            item.text = type_text(what % 5);
            return;
        case quantity_bit:
            item.text = pick(quantity_texts(), what).text;
            return;
        case first_price_bit:
        case second_price_bit:
            item.text = pick(price_texts(), what);
            return;
        case account_bit:
            item.text = pick(driven_accounts(), what);
            return;
        case time_bit:
            item.text = time_text(what % 7);
            return;
        case date_bit:
            seen.day += what % 3 - 1;
            return;
        case quotes_bit:
            item.text = L"1";
            return;
        default:
            item.text = caption_of(what % 2 + 1, what / 2 % 4 + 1, what);
            return;
    }
}

}  // namespace monkey
