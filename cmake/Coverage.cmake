option(QXMIX_COVERAGE "Count executed lines and branches" OFF)
if(QXMIX_COVERAGE)
  # Threads count the same lines side by side, and what is lost makes counts of others negative.
  add_compile_options(--coverage -fprofile-update=atomic -O0 -g)
  add_link_options(--coverage)
endif()

option(QXMIX_MCDC "Record which conditions decide (clang 18 and later)" OFF)
if(QXMIX_MCDC)
  add_compile_options(-fprofile-instr-generate -fcoverage-mapping -fcoverage-mcdc -O0)
  add_link_options(-fprofile-instr-generate)
endif()
