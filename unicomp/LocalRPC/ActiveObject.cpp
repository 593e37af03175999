#include "unicomp/LocalRPC/ActiveObject.h"

#include "unicomp/LocalRPC/AO_ThreadTransport.h"
#include "unicomp/LocalRPC/AO_WndMsgPumpTransport.h"

namespace LocalRPC {

CActiveObject_thread::CActiveObject_thread(unsigned stackSize)
    : CActiveObject_base(details::transport_ptr(new details::CThread(stackSize))) {}

CActiveObject_WndMsg::CActiveObject_WndMsg(bool startNow)
    : CActiveObject_base(details::transport_ptr(new details::CWndMsgPump)) {
    if (startNow) {
        Start();
    }
}

}  // namespace LocalRPC
