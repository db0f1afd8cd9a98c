/* Runs both hosts, with the C library's functions declared here: a compiler without any system
 * header takes this too. Prints "ok" as its last line when all is well. */

#include "Hosts.h"

int QXMIX_CDECL printf(const char* format, ...);
int QXMIX_CDECL puts(const char* line);
void QXMIX_CDECL exit(int status);

int main(void) {
    QxmixMixType** list = 0;
    const unsigned inC = RunHostInC(0, &list);
    const unsigned inCpp = RunHostInCpp(0, &list);
    if (inC == 0 && inCpp == 0) {
        puts("ok");
    } else {
        printf("first check that failed: %u in C, %u in C++\n", inC, inCpp);
    }
    exit(inC == 0 && inCpp == 0 ? 0 : 1); /* writes what is printed even without a start-up code */
    return 1;
}
