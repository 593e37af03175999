// Fakes of the host in which also asking for an interface and letting go of the object are calls.
#pragma once

#include <string>
#include <utility>

#include "tests/support/fake_host.h"

namespace hostile {

// Records `kind.QueryInterface()` and `kind.Release()`.
template <class Base>
class touchy : public Base {
public:
    template <class... Rest>
    touchy(test::fake_host record, std::string kind, Rest&&... rest)
        : Base(record, std::forward<Rest>(rest)...), m_record(std::move(record)), m_kind(std::move(kind)) {}

protected:
    HRESULT internal_query(REFIID iid, void** out) {
        m_record.enter(m_kind, {}, "QueryInterface");
        return Base::internal_query(iid, out);
    }

    // What goes on inside may be the end of the last other reference.
    ULONG internal_release() {
        const test::fake_host record = m_record;
        const std::string kind = m_kind;
        const ULONG left = Base::internal_release();
        record.enter(kind, {}, "Release");
        return left;
    }

private:
    test::fake_host m_record;
    std::string m_kind;
};

}  // namespace hostile
