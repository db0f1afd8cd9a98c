@ What the library takes from the device: per function a stub to call and a word for the loader.
@
@ A stub jumps through the word into which the loader writes the function's address. The jump stays
@ in ARM state on ARMv4; with QXMIX_INTERWORKING, for ARMv4T devices, the address may be Thumb code.
@
@ The directory that lists all this holds addresses relative to the image, which no relocation of
@ this file format expresses: the words name the absolute address, and the image writer takes the
@ base off every one in .idata.

#ifndef XFS_MANAGER
#error "XFS_MANAGER names the file of the XFS manager's library"
#endif

    .syntax unified
    .arm

    @ One descriptor of the directory; `library` prefixes the labels of its lists.
    .macro describe library
    .section .idata$2, "aw", %progbits
    .long \library\()_names
    .long 0, 0                          @ not bound ahead, no forwarders
    .long \library\()_file
    .long \library\()_addresses
    .endm

    .macro begin library
    .section .idata$4, "aw", %progbits
\library\()_names:
    .section .idata$5, "aw", %progbits
\library\()_addresses:
    .endm

    .macro end library, file
    .section .idata$4, "aw", %progbits
    .long 0
    .section .idata$5, "aw", %progbits
    .long 0
    .section .idata$7, "aw", %progbits
\library\()_file:
    .asciz "\file"
    .endm

    .macro import function
    .section .idata$4, "aw", %progbits
    .long hint_\function
    .section .idata$5, "aw", %progbits
address_\function:
    .long hint_\function                @ the loader puts the address here
    .section .idata$6, "aw", %progbits
    .balign 2
hint_\function:
    .short 0
    .asciz "\function"
    .section .text.import_\function, "ax", %progbits
    .global \function
    .type \function, %function
\function:
    ldr ip, 1f
#ifdef QXMIX_INTERWORKING
    ldr ip, [ip]
    bx ip
#else
    ldr pc, [ip]
#endif
1:  .long address_\function
    .size \function, . - \function
    .endm

    describe system
    describe manager
    .long 0, 0, 0, 0, 0                 @ end of the directory

    begin system
    import RegOpenKeyExW
    import RegCreateKeyExW
    import RegQueryValueExW
    import RegSetValueExW
    import RegCloseKey
    import EventModify
    import malloc
    import free
    import memset
    import memcpy
    end system, coredll.dll

    begin manager
    import WFMAllocateBuffer
    import WFMAllocateMore
    end manager, XFS_MANAGER

    .section .note.GNU-stack, "", %progbits
