@ The system gives a stack its pages one after the other, and ends a thread that leaves one out. One
@ function has a frame of more than a page: it is entered through here, where the page in between is
@ touched. The compiler's own probes would stand among the instructions that set up the frame, where
@ the system's unwinding expects nothing else; that no other function needs this is checked when it
@ is compiled.

    .syntax unified
    .arm

    .macro touch_stack_before function
    .section .text.probe_\function, "ax", %progbits
    .global __wrap_\function
    .type __wrap_\function, %function
__wrap_\function:
    ldr ip, [sp, #-4092]
    b __real_\function
    .size __wrap_\function, . - __wrap_\function
    .endm

    @ CMixAlgorithm::MixCalculate
    touch_stack_before _ZN13CMixAlgorithm12MixCalculateEP10MixRequestP9MixResult

    .section .note.GNU-stack, "", %progbits
