#include "CallControl.h"
#include "Events.h"
#include "HostControl.h"
#include "RegistryStore.h"

void QxmixReset() {
    QxmixRegistryReset();
    RegistryStore::Instance().ForgetOpenKeys();
    ForgetEvents();
    QxmixSetTraceListener(nullptr, nullptr);
    QxmixLogCalls(0);
    QxmixResetCalls();
}
