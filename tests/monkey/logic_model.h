#pragma once

#include "tests/monkey/bar_model.h"

namespace monkey {

// The bar without a screen: the user's doings reach the fields at once, whatever they are, and all tabs are
// seen.
class logic_model final : public bar_model {
public:
    view seen() const override;

private:
    void user(row_model& row, const action& done) override;
    void show_tab(const action& done) override;
    LONG current_id() const override { return m_current; }
    void update(const row_model& row, unsigned mask) override;
    void focus(const row_model& row, bit field) override;
    void added(const row_model& row, bool silent) override;
    void removed(const row_model& row) override;
    void removed_all() override;
    void drive_to(LONG id) override;
    void created() override;
    void torn_down() override;
    void filled() override;
    void remember(memory_model& memory) override;
    void take_up(const memory_model& memory) override;

    void select(row_model& row, const action& done);
    void button(row_model& row, const action& done);
    void bar_call(const std::string& call) { out().calls.push_back("Bar." + call); }

    LONG m_current = 0;
};

// The keys that the monkey picks when the fields are at its mercy: those of the list, and one that is not
// there.
LONG odd_type(int which);
LONG odd_key(const std::vector<LONG>& keys, int which);
// The price that the user hits.
double hit_price(double quote);

}  // namespace monkey
