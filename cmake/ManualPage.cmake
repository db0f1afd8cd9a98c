# Writes the manual page: -DSCDOC=... -DPAGE=... -DOUTPUT=... -P ManualPage.cmake
execute_process(
  COMMAND ${SCDOC}
  INPUT_FILE ${PAGE}
  OUTPUT_FILE ${OUTPUT}.part
  RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "${SCDOC} <${PAGE}: ${result}")
endif()
file(RENAME ${OUTPUT}.part ${OUTPUT})
