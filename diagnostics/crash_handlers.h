#pragma once

namespace BugSlayerUtil {

// Puts the three crash handlers in place for the calling thread: unhandled exceptions and refused
// arguments of the C runtime are reported, and each handler goes on to the one that was there before.
// Every worker thread calls it first thing. Calling it again changes nothing, but for a handler that took
// our place meanwhile: ours then goes on to that one too. Gets the client, whose clean-up takes the
// handlers away when the module goes. Throws nothing.
void install_crash_handlers() noexcept;

// Puts the process's earlier handlers back where ours are still in place, for a module that goes. A thread
// keeps its translator: none that has one may run on in a module that goes.
void remove_crash_handlers() noexcept;

}  // namespace BugSlayerUtil
