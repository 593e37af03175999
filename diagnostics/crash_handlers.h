#pragma once

namespace BugSlayerUtil {

// Puts the three crash handlers in place for the calling thread: unhandled exceptions and refused
// arguments of the C runtime are reported, and each handler goes on to the one that was there before.
// Every worker thread calls it first thing. Calling it again changes nothing. Throws nothing.
void install_crash_handlers() noexcept;

// Puts the process's earlier handlers back where ours are still in place, for a module that goes.
void remove_crash_handlers() noexcept;

}  // namespace BugSlayerUtil
