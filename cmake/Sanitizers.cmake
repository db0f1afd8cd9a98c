# QXMIX_SANITIZE: a comma-separated list for -fsanitize, of the whole build.
set(QXMIX_SANITIZE "" CACHE STRING "Sanitizers, for example address,undefined")
if(QXMIX_SANITIZE)
  # The module has no type information, which the check of slot tables would read.
  add_compile_options(-fsanitize=${QXMIX_SANITIZE} -fno-sanitize=vptr
                      -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  add_link_options(-fsanitize=${QXMIX_SANITIZE})
  add_compile_definitions(QXMIX_SANITIZED)
endif()
