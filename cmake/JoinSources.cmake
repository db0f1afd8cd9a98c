# Most of what compiling a source of the tool costs is the two libraries of headers (json, options).
# The sources of a folder share them: one compilation for each folder, in a third of the time. The
# preset debug and the build for Windows compile each source by itself.
option(QXMIX_JOIN_SOURCES "Compile the sources of a folder of the tool together" ON)

function(qxmix_join_sources target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${QXMIX_JOIN_SOURCES}
                                             UNITY_BUILD_MODE GROUP)
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    if(NOT IS_ABSOLUTE ${source}) # what is generated, and what is another part's, stays alone
      get_filename_component(folder ${source} DIRECTORY)
      set_source_files_properties(${source} PROPERTIES UNITY_GROUP "${folder}")
    endif()
  endforeach()
endfunction()
