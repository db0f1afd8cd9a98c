# Before a package is made of a tree: its folders are for everybody, whatever the umask of who packs.
file(GLOB folders "${CPACK_TEMPORARY_DIRECTORY}/*")
file(CHMOD_RECURSE ${folders} DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ
                                                    GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
