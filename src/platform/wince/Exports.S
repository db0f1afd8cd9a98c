@ What the library offers by name, and its version resource. As in Imports.S the words hold absolute
@ addresses, and the image writer takes the base off every one in .edata and .rsrc.

    .section .edata, "a", %progbits
    .long 0                             @ flags
    .long 0                             @ time stamp: none, for the same bytes from every build
    .short 0, 0                         @ version
    .long file_name
    .long 1                             @ first ordinal
    .long 2                             @ functions
    .long 2                             @ names
    .long functions
    .long names
    .long ordinals
functions:
    .long CreateMixAlgorithm
    .long DeleteMixAlgorithm
names:                                  @ in alphabetical order: the loader bisects
    .long name_create
    .long name_delete
ordinals:
    .short 0, 1
file_name:
    .asciz "QXMIX.dll"
name_create:
    .asciz "CreateMixAlgorithm"
name_delete:
    .asciz "DeleteMixAlgorithm"

    @ A tree of type, name and language with one leaf; its branches are counted from its root.
    .macro branch id, target
    .long 0, 0                          @ flags, time stamp
    .short 0, 0                         @ version
    .short 0, 1                         @ no entry by name, one by number
    .long \id
    .long \target
    .endm

    .section .rsrc, "a", %progbits
root:
    branch 16, 0x80000000 + by_name - root      @ type: version
by_name:
    branch 1, 0x80000000 + by_language - root
by_language:
    branch 0x409, leaf - root
leaf:
    .long version
    .long version_end - version
    .long 0, 0                          @ code page, reserved
    .balign 8
version:
    .incbin VERSION_RESOURCE, 64        @ behind the two headers of the resource file
version_end:

    .section .note.GNU-stack, "", %progbits
