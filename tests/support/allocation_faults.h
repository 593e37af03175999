// Lets one allocation of the present thread fail. A program that wants this has allocation_faults.cpp among
// its sources: that is where its operator new comes from.
#pragma once

namespace test {

// Of the present thread's exposed allocations from here on, that of the given number, from 0 on, throws
// std::bad_alloc; with a negative number none does.
void fail_allocation(int number);

// Whether the failure came.
bool allocation_failed();

// While it lives, allocations of this thread are exposed.
class exposed {
public:
    exposed();
    ~exposed();
    exposed(const exposed&) = delete;
    exposed& operator=(const exposed&) = delete;
};

// While it lives, they are not: a host's own memory is none of the component's affairs.
class sheltered {
public:
    sheltered();
    ~sheltered();
    sheltered(const sheltered&) = delete;
    sheltered& operator=(const sheltered&) = delete;

private:
    bool m_before;
};

}  // namespace test
