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

# From 17 on clang tells of what std::stable_sort of libstdc++ 12 calls itself.
target_compile_options(
  qxmix_warnings
  INTERFACE $<$<AND:$<CXX_COMPILER_ID:Clang>,$<VERSION_GREATER_EQUAL:$<CXX_COMPILER_VERSION>,17>>:-Wno-deprecated-declarations>
)
