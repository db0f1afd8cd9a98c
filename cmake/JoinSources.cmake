# Most of what compiling a source of the tool costs is the two libraries of headers (json, options).
# The sources of a folder share them, and small folders share them with others: one compilation for
# each row below and for each folder without one, in a fraction of the time; so do its unit tests. The
# preset debug and the build for Windows compile each source by itself.
option(QXMIX_JOIN_SOURCES "Compile the sources of the tool's folders together" ON)

set(qxmix_joined_folders
    "errors text json units requests dispenser"
    "amounts answers commands/explain commands/mix findings mixes sweeps"
    "demand fleet sheets tables"
    "files linux module registry workers"
    "commandline commands/completions commands/registry commands/types options pages terminal"
    "commands/batch commands/map"
    # unit tests
    "unit/commands/batch unit/commands/map unit/commands/replay unit/commands/simulate"
    "unit/commands/explain unit/commands/fill"
    "unit/demand unit/requests unit/sheets unit/sweeps unit/tables")

# GCC looks through its memory for what it may use again, a sixth of the time of what is so large; it
# takes 850 MB instead of 660 where it does not.
set(qxmix_joined_options "$<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-heapsize=1048576>")

function(qxmix_join_sources target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${QXMIX_JOIN_SOURCES}
                                             UNITY_BUILD_MODE GROUP)
  target_compile_options(${target} PRIVATE ${qxmix_joined_options})
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    if(NOT IS_ABSOLUTE ${source}) # what is generated, and what is another part's, stays alone
      get_filename_component(folder ${source} DIRECTORY)
      string(REGEX REPLACE "^.*\\.\\./" "" folder "${folder}") # the page's build stands beside them
      set(group ${folder})
      foreach(row IN LISTS qxmix_joined_folders)
        if(" ${row} " MATCHES " ${folder} ")
          string(REGEX REPLACE "[ /]" "_" group ${row})
        endif()
      endforeach()
      set_source_files_properties(${source} PROPERTIES UNITY_GROUP "${group}")
    endif()
  endforeach()
endfunction()
