# The warnings of every target; linked by all of them.
add_library(qxmix_warnings INTERFACE)
target_compile_options(
  qxmix_warnings
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wshadow
            -Wcast-align
            -Wvla
            $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast>
            $<$<BOOL:${QXMIX_WERROR}>:-Werror>)
