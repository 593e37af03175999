// Events by COM's connection points.
#pragma once

#include <vector>

#include "com/enumerator.h"
#include "com/object.h"

namespace host {

// Keeps the sinks of one event interface. It may outlive its container, and then gives none.
class connection_point : public object<IConnectionPoint> {
public:
    connection_point(REFIID events, IConnectionPointContainer* container)
        : m_events(events), m_container(container) {}

    STDMETHODIMP GetConnectionInterface(IID* out) noexcept override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** out) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** out) noexcept override;

    // The container is about to go.
    void forget_container() { m_container = nullptr; }

    // Calls every sink that is connected now; one may disconnect itself meanwhile.
    template <class Events, class Call>
    void fire(Call call) {
        for (const connection& one : std::vector<connection>(m_connections)) {
            call(static_cast<Events*>(one.sink.get()));
        }
    }

private:
    IID m_events;
    // Not counted: the container owns this object.
    IConnectionPointContainer* m_container;
    // Each sink is held by its event interface.
    std::vector<connection> m_connections;
    DWORD m_last_cookie = 0;
};

// The container's side: one connection point for Events.
template <class Events>
class event_source {
public:
    explicit event_source(IConnectionPointContainer* container)
        : m_point(make<connection_point>(__uuidof(Events), container)) {}
    ~event_source() { m_point->forget_container(); }
    event_source(const event_source&) = delete;
    event_source& operator=(const event_source&) = delete;

    HRESULT find(REFIID events, IConnectionPoint** out) noexcept {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = nullptr;
        if (!IsEqualIID(events, __uuidof(Events))) {
            return CONNECT_E_NOCONNECTION;
        }
        hand_out<IConnectionPoint>(m_point.get(), out);
        return S_OK;
    }

    HRESULT enumerate(IEnumConnectionPoints** out) noexcept {
        using points = enumerator<IEnumConnectionPoints, IConnectionPoint*, ref<IConnectionPoint>>;
        return guarded([&] {
            if (out == nullptr) {
                return E_POINTER;
            }
            std::vector<ref<IConnectionPoint>> all{ref<IConnectionPoint>(m_point.get())};
            hand_out<IEnumConnectionPoints>(make<points>(std::move(all)).get(), out);
            return S_OK;
        });
    }

    template <class Call>
    void fire(Call call) {
        m_point->fire<Events>(call);
    }

private:
    ref<connection_point> m_point;
};

}  // namespace host
