# Two libraries of headers that are the same on every system. Only they are lent by this one to a tool
# for another: its other headers are not for that.
set(shared_headers ${CMAKE_CURRENT_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${shared_headers})
foreach(library CLI nlohmann)
  if(NOT EXISTS /usr/include/${library})
    message(FATAL_ERROR "/usr/include/${library} is missing")
  endif()
  file(CREATE_LINK /usr/include/${library} ${shared_headers}/${library} SYMBOLIC)
endforeach()
