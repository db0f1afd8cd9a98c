@ Division of 64-bit numbers, by the name that the compiler calls: the quotient comes back in r0 and
@ r1, the remainder in r2 and r3, which no function in C++ can do. The work is the compiler's own
@ library's; its routine of this name moves the stack pointer halfway, so that the system could not
@ unwind it.

    .syntax unified
    .arm

    .section .text.__aeabi_uldivmod, "ax", %progbits
    .global __aeabi_uldivmod
    .type __aeabi_uldivmod, %function
__aeabi_uldivmod:
    push {r4, lr}
    sub sp, sp, #16
    add ip, sp, #8
    str ip, [sp]                        @ where the remainder goes
    bl __udivmoddi4
    ldr r2, [sp, #8]
    ldr r3, [sp, #12]
    add sp, sp, #16
#ifdef QXMIX_INTERWORKING
    pop {r4, lr}
    bx lr
#else
    pop {r4, pc}
#endif
    .size __aeabi_uldivmod, . - __aeabi_uldivmod

    .section .note.GNU-stack, "", %progbits
