#pragma once

#include "unicomp/LocalRPC/Task.h"

namespace LocalRPC {

// The call is copied or moved in; what it refers to must live until it has run. The factory takes the
// first reference. Throw std::bad_alloc, and the first also std::runtime_error ("can't create event").
template <class Functor>
task_ptr CreateSyncTask(Functor call) {
    return task_ptr(new CSyncTask<Functor>(std::move(call)));
}

template <class Functor>
task_ptr CreateAsyncTask(Functor call) {
    return task_ptr(new CAsyncTask<Functor>(std::move(call)));
}

// Runs a call on an active object and waits until it has run. Throws local_rpc_exception when the active
// object refuses; the call has not run then. What the call itself throws is reported on its own thread
// and never comes here: the caller sees the out-arguments as the call left them.
template <class ActiveObject, class Functor>
void SyncCall(ActiveObject& object, Functor call) {
    const task_ptr task = CreateSyncTask(std::move(call));
    if (!object.Execute(task)) {
        throw local_rpc_exception("Synchronous function execution failed!");
    }
    task->Wait(INFINITE, 0);
}

// Hands a call to an active object and returns. A refused call is lost without a word: nobody waits for
// it, and an object that refuses is about to end.
template <class ActiveObject, class Functor>
void AsyncCall(ActiveObject& object, Functor call) {
    object.Execute(CreateAsyncTask(std::move(call)));
}

}  // namespace LocalRPC
