#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/// Uses the host's control of the stand-in from plain C. @return 1 when all of it worked.
int HostControlWorksInC(void);

#ifdef __cplusplus
}
#endif
