# How the module's sources are compiled on every platform.
#
# An endless search has to stay one: the compiler must not assume that loops end. And what is called
# through a table of slots stays such a call: the host may have objects of its own behind it, and a
# guess which of ours it might be only copies one function into the other.
set(qxmix_module_code -fno-exceptions -fno-rtti -fno-threadsafe-statics -fno-finite-loops)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  list(APPEND qxmix_module_code -fno-devirtualize-speculatively)
endif()
