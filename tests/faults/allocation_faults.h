// Lets one allocation of the present thread fail.
#pragma once

namespace test {

// From here on the present thread counts its allocations that are exposed; that of the given number, from 0
// on, throws std::bad_alloc. A negative number counts only.
void fail_allocation(int number);

// How many were counted since.
int counted_allocations();

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
