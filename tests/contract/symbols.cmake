# What the shared library exports, needs and looks up; called with NM, READELF, LIBRARY, PLATFORM.
cmake_minimum_required(VERSION 3.25)

function(symbols output file)
  execute_process(
    COMMAND ${NM} -D ${ARGN} ${file}
    OUTPUT_VARIABLE text
    COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^ \n]+\n" lines "${text}")
  string(REPLACE "\n" "" lines "${lines}")
  list(TRANSFORM lines REPLACE "@.*$" "")
  list(SORT lines)
  set(${output} "${lines}" PARENT_SCOPE)
endfunction()

function(expect what actual expected)
  list(SORT expected)
  if(NOT "${actual}" STREQUAL "${expected}")
    message(SEND_ERROR "${what}:\n  is       ${actual}\n  expected ${expected}")
  endif()
endfunction()

symbols(exported ${LIBRARY} --defined-only)
expect("exports" "${exported}" "CreateMixAlgorithm;DeleteMixAlgorithm")

symbols(undefined ${LIBRARY} --undefined-only)
symbols(supplied ${PLATFORM} --defined-only)
set(fromPlatform)
set(fromElsewhere)
foreach(symbol IN LISTS undefined)
  if(symbol IN_LIST supplied)
    list(APPEND fromPlatform ${symbol})
  else()
    list(APPEND fromElsewhere ${symbol})
  endif()
endforeach()
expect(
  "taken from the platform"
  "${fromPlatform}"
  "EventModify;QxmixTraceLine;QxmixTraceWanted;RegCloseKey;RegCreateKeyExW;RegOpenKeyExW;RegQueryValueExW;RegSetValueExW;WFMAllocateBuffer;WFMAllocateMore"
)

# Besides these: two allocator functions, memory and text functions, the formatting of trace lines,
# the runtime's pure-call error, and what the linker and the compiler add themselves (the division
# of 64-bit numbers on 32-bit processors).
foreach(symbol IN LISTS fromElsewhere)
  if(NOT symbol MATCHES
     "^(malloc|free|mem(cpy|set|cmp|move|chr)|strlen|(__)?(v)?snprintf(_chk)?|__mem(cpy|set|move)_chk|__cxa_pure_virtual|__cxa_finalize|__gmon_start__|__u?(div|mod)(mod)?di[34]|_ITM_.*|__stack_chk_fail|___?tls_get_addr|_ZTV.*|__gxx_personality_v0)$"
  )
    message(SEND_ERROR "taken from elsewhere: ${symbol}")
  endif()
endforeach()

execute_process(
  COMMAND ${READELF} -dW ${LIBRARY}
  OUTPUT_VARIABLE dynamic
  COMMAND_ERROR_IS_FATAL ANY)
if(NOT dynamic MATCHES "NEEDED[^\n]*\\[libqxmix_platform\\.so\\]")
  message(SEND_ERROR "the library does not name the stand-in as needed")
endif()
if(NOT dynamic MATCHES "(RUNPATH|RPATH)[^\n]*\\[\\$ORIGIN[]:]")
  message(SEND_ERROR "the library does not look for the stand-in beside itself:\n${dynamic}")
endif()
if(dynamic MATCHES "SYMBOLIC")
  message(SEND_ERROR "the library binds symbols to itself")
endif()
