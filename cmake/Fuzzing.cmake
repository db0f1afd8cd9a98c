# QXMIX_FUZZ: everything tells libFuzzer which branches it takes.
if(QXMIX_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
