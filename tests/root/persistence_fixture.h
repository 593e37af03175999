// What the tests of the remembered state share.
#pragma once

#include <string>
#include <vector>

#include "platform/registry.h"
#include "tests/root/root_fixture.h"

namespace test {

using texts = std::vector<std::string>;

// A profile as its panel is when the bar closes.
struct panel_state {
    CString name;
    bool connected = false;
    LONG symbol_id = 0;
    CString symbol_name;
};

// A host with everything that closing and restoring ask for: a confirmer of disconnects that agrees and a
// lookup service that knows no symbol.
class closing_host : public root_host {
public:
    closing_host();

    // Creates the bar and fills its panels with profiles in these states.
    void open(const std::vector<panel_state>& panels);

    com_ptr<FakeDisconnectConfirmer> confirmer;
    com_ptr<FakeLookup> lookup;

private:
    fake_class m_confirmer_class;
    fake_class m_lookup_class;
};

// Everything that is remembered, in order of name: keys as `Profiles\Alpha`, values as
// `Profiles\Alpha "Connected" 1 "True"` with the type's number, and numbers as 32 bits. Empty without the
// base key.
texts stored();

// Lets the host's loop run and tells what was restored, in order: `connect "Alpha"`, `symbol 7`,
// `symbol "ABC"`.
texts restored(closing_host& host);

// The registry key of one remembered profile, made new.
platform::registry_key make_record(const CString& profile);

// As an earlier bar would have left it.
void remember(const panel_state& panel);

class persistence_test : public testing::Test {
protected:
    persistence_test() { root_host::forget_records(); }
    ~persistence_test() override { root_host::forget_records(); }
};

}  // namespace test
