/* One function for each way across the boundary. tests/host/check_microsoft.py reads the code that
 * a compiler makes of them. */

#ifndef SLOT_CALLS_H
#define SLOT_CALLS_H

#include "qxmix.h"

#ifdef __cplusplus
extern "C" {
#endif

void* QXMIX_CDECL CallDestroy(QxmixObject* object, QxmixU32 flags);
QxmixS32 QXMIX_CDECL CallGetMixTypes(QxmixObject* object, QxmixMixType*** list);
QxmixS32 QXMIX_CDECL CallMixCalculate(QxmixObject* object,
                                      QxmixRequest* request,
                                      QxmixResult* result);
void QXMIX_CDECL CreateAndDelete(QxmixHost* host);

/* What the module calls; it writes down both arguments. */
const QxmixHost* QXMIX_CDECL HostOfThisFile(void);
extern QxmixHost* volatile lastHost;
extern QxmixObject* volatile lastObject;

#ifdef __cplusplus
}
#endif

#endif
