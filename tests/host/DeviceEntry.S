@ What makes an image of the hosts: its entry point, and its two functions by name. The words of .edata
@ hold absolute addresses, off which the image writer takes the base.

    .syntax unified
    .arm

    .section .text.entry, "ax", %progbits
    .global LibraryEntry
    .type LibraryEntry, %function
LibraryEntry:
    mov r0, #1
    JUMP lr
    .size LibraryEntry, . - LibraryEntry

    .section .edata, "a", %progbits
    .long 0, 0
    .short 0, 0
    .long file_name
    .long 1, 2, 2
    .long functions, names, ordinals
functions:
    .long RunHostInC, RunHostInCpp
names:                                  @ in alphabetical order: the loader bisects
    .long name_c, name_cpp
ordinals:
    .short 0, 1
file_name:
    .asciz "Hosts.dll"
name_c:
    .asciz "RunHostInC"
name_cpp:
    .asciz "RunHostInCpp"

    .section .note.GNU-stack, "", %progbits
