# QXMIX_FUZZ: everything tells libFuzzer which branches it takes. Without sanitizers it is about the
# number of executions: what is compared with what, for texts to be guessed, would take most of the time.
if(QXMIX_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
  if(NOT QXMIX_SANITIZE)
    add_compile_options(-fno-sanitize-coverage=trace-cmp)
  endif()
endif()
