// Fields of the order row whose answers a test sets, and that keep what they were asked to do.
#pragma once

#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "charting/orderdeck/interface/IUnifyControl.h"

namespace window_tests {

// Interface is one of the three interfaces of a field.
template <class Interface>
class basic_field : public Interface {
public:
    bool enabled = true;
    bool hidden = false;
    bool empty = false;
    _variant_t value;
    LONG spin_low = 1;
    LONG spin_high = 250000;
    double low = 1.0;
    double high = 250000.0;
    std::vector<std::pair<LONG, CString>> items;
    LONG selected = -1;

    std::vector<LONG> selections;
    std::vector<_variant_t> values;
    // Runs inside Select and put_Value, when they have been noted.
    std::function<void()> when_told;

    void Select(LONG key) override {
        selections.push_back(key);
        tell();
    }
    LONG get_Count() override { return static_cast<LONG>(items.size()); }
    LONG get_Item(LONG index, CString* text) override {
        if (index < 0 || index >= get_Count()) {
            return -1;
        }
        const auto& item = items[static_cast<std::size_t>(index)];
        if (text != nullptr) {
            *text = item.second;
        }
        return item.first;
    }
    LONG get_SelectedItem(CString*) override { return selected; }
    bool get_Checked(LONG) override { return false; }
    bool get_Enabled() override { return enabled; }
    bool get_Hidden() override { return hidden; }
    void put_Value(const VARIANT& put) override {
        values.emplace_back(put);
        tell();
    }
    _variant_t get_Value() override { return value; }
    void get_ValueRange(double* range_low, double* range_high) override {
        *range_low = low;
        *range_high = high;
    }
    void get_SpinRange(LONG* range_low, LONG* range_high) override {
        *range_low = spin_low;
        *range_high = spin_high;
    }
    bool IsEmpty() override { return empty; }

private:
    void tell() const {
        if (when_told) {
            when_told();
        }
    }
};

using fake_field = basic_field<OV_OrderDeck::IUnifyControl>;

}  // namespace window_tests
