#pragma once

#include "tests/monkey/action.h"
#include "tests/monkey/expectation.h"

namespace monkey {

// A bar of the component in a fake host, as fresh as the model of it.
class subject {
public:
    subject() = default;
    virtual ~subject() = default;
    subject(const subject&) = delete;
    subject& operator=(const subject&) = delete;

    // Does it and tells what came of it.
    virtual outcome perform(const action& done) = 0;
    // What can be seen now. Changes nothing. Where a screen takes its time, waits for what is expected.
    virtual view seen(const view& expected) = 0;
};

}  // namespace monkey
