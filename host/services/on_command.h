// How the bar says that a modal action of it runs.
#pragma once

#include <TradingCenter.h>

#include <functional>

#include "com/object.h"

namespace host {

class on_command : public object<IOnCommand> {
public:
    // locked hears true when the first modal action begins and false when the last one ended.
    explicit on_command(std::function<void(bool)> locked) : m_locked(std::move(locked)) {}

    STDMETHODIMP Execute(LONG lCommand, VARIANT vParam) noexcept override;

private:
    HRESULT begin();
    HRESULT end();

    std::function<void(bool)> m_locked;
    int m_depth = 0;
};

}  // namespace host
