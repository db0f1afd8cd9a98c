/* What the two hosts of this folder offer to the programs that run them. */

#ifndef HOSTS_H
#define HOSTS_H

#include "qxmix.h"

#define MIXES 10 /* of the module that these hosts were written for */

#ifdef __cplusplus
extern "C" {
#endif

/* Creates the objects, calculates, lists the mix types and destroys the objects.
 *
 * @param event  for the outer object, or null.
 * @param list   where to leave the list of mix types, which belongs to the caller.
 * @return 0, or the number of the first check that failed. */
unsigned QXMIX_CDECL RunHostInC(void* event, QxmixMixType*** list);
unsigned QXMIX_CDECL RunHostInCpp(void* event, QxmixMixType*** list);

#ifdef __cplusplus
}
#endif

#endif
