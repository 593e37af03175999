#pragma once

#include "diagnostics/BugSlayerUtil.h"
#include "platform/class_factory.h"

namespace OV_OrderDeck {

// A factory of the component: what making an object throws is reported and turned into a result as in every
// other COM operation. Any thread.
template <class Factory>
class CGuardedFactory : public Factory {
protected:
    HRESULT create(REFIID iid, void** out) override {
        return BugSlayerUtil::guard(BS_HERE, [&] { return Factory::create(iid, out); });
    }
};

}  // namespace OV_OrderDeck
