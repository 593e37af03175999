// Stands at the host's door: every order that comes in is held against what was seen when the press began.
#pragma once

#include <string>
#include <vector>

#include "tests/monkey/seen_row.h"
#include "tests/support/fake_host.h"

namespace monkey {

// What a run did, over all its bars.
struct tally {
    std::size_t presses = 0;
    std::size_t sent = 0;
    std::size_t stopped = 0;
    std::size_t differences = 0;
};
tally& all_told();

class witness {
public:
    // A press as long as it lives, with what was seen as it began.
    class watched {
    public:
        watched(witness& at_the_door, seen_row seen);
        ~watched();
        watched(const watched&) = delete;
        watched& operator=(const watched&) = delete;

    private:
        witness& m_witness;
    };

    // At the host.
    void order(const sent_order& sent);
    void receipt(int profile, const SOrderSight& record);
    void result(LONGLONG number, HRESULT hr);

    // What broke the rule since the last call.
    std::vector<std::string> take();

private:
    struct press {
        seen_row seen;
        bool sent = false;
        // Of the receipt that has no result yet, 0 for none.
        LONGLONG receipt = 0;
    };

    void says(bool holds, const std::string& line);

    std::vector<press> m_presses;
    std::vector<std::string> m_lines;
};

// The order entry of one profile of the world; some hosts ask for receipts.
class world_trading : public test::FakeManualTrading, public ITC_OrderSight {
public:
    using FakeManualTrading::AddRef;
    using FakeManualTrading::QueryInterface;
    using FakeManualTrading::Release;

    world_trading(test::fake_host host, const CString& name, int profile, witness& at_the_door);

    STDMETHODIMP PlaceOrder(MTPA_OrdrActn action, MTPA_OrdrCtgry category, LONG quantity, double stop_price,
                            double limit_price, LONG time_in_force, VARIANT* gtd_date) override;
    STDMETHODIMP SetAccount(BSTR sAccount) override;
    STDMETHODIMP SetSymbol(SManualSymbol* pSymbol, BSTR sDataFeed) override;
    STDMETHODIMP BeforeOrder(const SOrderSight* pSight) override;
    STDMETHODIMP AfterOrder(LONGLONG number, HRESULT result) override;

    // Receipts get S_FALSE.
    bool says_no = false;

protected:
    HRESULT internal_query(REFIID iid, void** out);

private:
    test::fake_host m_host;
    CString m_name;
    int m_profile;
    witness& m_witness;
    CString m_account;
    CString m_symbol;
    bool m_symbol_taken = false;
};

}  // namespace monkey
