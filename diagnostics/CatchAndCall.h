#pragma once

#include <utility>

#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/ShowError.h"
#include "diagnostics/ThrowError.h"
#include "diagnostics/catch_ladder.h"

namespace BugSlayerUtil {

// The catch ladder bound to one reaction: ShowError reports what was caught and goes on, ThrowError
// throws it again as an error of its own.
template <class Reaction>
class CatchAndCall : public Reaction {
public:
    using Reaction::Reaction;

    // Runs the body and gives S_OK. What it throws is written as a trace by the ladder, then handed to
    // the reaction; the result is the ladder's. When memory ran out nothing is written: the result is
    // E_OUTOFMEMORY, or std::bad_alloc goes on where the reaction is to throw.
    template <class Body>
    HRESULT Run(Body&& body) noexcept(!Reaction::throws) {
        caught_exception caught;
        try {
            std::forward<Body>(body)();
            return S_OK;
        } catch (...) {
            caught = describe_current_exception(this->where());
            if constexpr (Reaction::throws) {
                if (caught.text.empty()) {
                    throw;
                }
            }
        }
        if (!caught.text.empty()) {
            trace(this->where(), caught.text);
            this->React(caught.text, caught.result);
        }
        return caught.result;
    }
};

}  // namespace BugSlayerUtil
