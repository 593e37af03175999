#pragma once

#include <boost/core/noncopyable.hpp>

#include "charting/orderdeck/interface/IUnifyControl.h"
#include "diagnostics/BugSlayerUtil.h"

namespace OV_OrderDeck {

class CTab;

// Base of every field. What a field does not offer is a stray call: it is reported, gives nothing useful
// and deliberately raises nothing, so that the panel goes on.
template <class Interface>
class CUnifyControlImpl : public Interface, private boost::noncopyable {
public:
    // Once, before anything is asked of the field. The tab outlives its fields. Throws _com_error
    // (E_POINTER) for null.
    void SetOwner(CTab* owner) {
        BS_REQUIRE(owner, E_POINTER);
        m_pOwner = owner;
    }

    void Select(LONG) override { _stray_call(); }
    LONG get_Count() override { return 0; }
    LONG get_Item(LONG, CString*) override { return _stray_call(); }
    LONG get_SelectedItem(CString*) override { return _stray_call(); }
    bool get_Checked(LONG) override { return _stray_call() != 0; }
    bool get_Enabled() override { return m_bEnabled; }
    bool get_Hidden() override { return false; }
    void put_Value(const VARIANT&) override { _stray_call(); }
    _variant_t get_Value() override {
        _stray_call();
        return {};
    }
    void get_ValueRange(double*, double*) override { _stray_call(); }
    void get_SpinRange(LONG*, LONG*) override { _stray_call(); }
    bool IsEmpty() override { return false; }

    // The field's own wish to be usable; get_Enabled combines it with the state of the tab.
    virtual void put_Enabled(bool enabled) { m_bEnabled = enabled; }

protected:
    CUnifyControlImpl() = default;

    CTab& _tab() const { return *m_pOwner; }

    bool m_bEnabled = true;

private:
    static LONG _stray_call() {
        BugSlayerUtil::assertion(BS_HERE, "0");
        return 0;
    }

    CTab* m_pOwner = nullptr;
};

}  // namespace OV_OrderDeck
