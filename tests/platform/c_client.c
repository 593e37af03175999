// Hosts in C take the same headers; that this compiles is the test.
#include <OrderDeck.h>

_Static_assert(sizeof(ETM_ConnectionChanged) == sizeof(LONG), "a state is as wide as for a host in C++");
_Static_assert(sizeof(enum OD_LookupResult) == sizeof(LONG), "known by its tag too");

ETM_ConnectionChanged state_of_c_client(void);

ETM_ConnectionChanged state_of_c_client(void) {
    return eTM_CC_Connected;
}
