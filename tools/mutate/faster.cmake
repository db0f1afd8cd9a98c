# Only for the mutation tool: a changed header of the module compiles most of the unit tests again,
# whose own speed does not matter and whose time goes into the headers of GoogleTest.
foreach(program unit_tests table_images_tests small_tables_tests)
  cmake_language(EVAL CODE "cmake_language(DEFER CALL target_precompile_headers ${program}
                                           PRIVATE <gmock/gmock.h> <gtest/gtest.h>)")
  # Lets ccache, where it is used, see what comes out of the precompiled headers.
  cmake_language(EVAL CODE "cmake_language(DEFER CALL target_compile_options ${program}
                                           PRIVATE -fpch-preprocess)")
endforeach()
cmake_language(DEFER CALL target_compile_options unit_tests PRIVATE -O1)
