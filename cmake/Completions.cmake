# Writes a shell's completions: -DTOOL=... -DSHELL=... -DOUTPUT=... -P Completions.cmake
get_filename_component(folder ${OUTPUT} DIRECTORY)
file(MAKE_DIRECTORY ${folder})
execute_process(
  COMMAND ${TOOL} completions ${SHELL}
  OUTPUT_FILE ${OUTPUT}.part
  RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "${TOOL} completions ${SHELL}: ${result}")
endif()
file(RENAME ${OUTPUT}.part ${OUTPUT})
