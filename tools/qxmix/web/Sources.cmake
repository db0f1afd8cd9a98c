# The tool as the page has it, by their places from this folder: the shared sources, of the commands only
# those of the page, and what stands in this folder in the place of a shared one or of linux. Beside them
# goes a PageWatch.
include(${CMAKE_CURRENT_LIST_DIR}/../Sources.cmake)
set(commands ${qxmix_shared_sources})
list(FILTER commands INCLUDE REGEX "^commands/(explain|lint|map|mix|simulate|types)/")
set(qxmix_page_sources ${qxmix_shared_sources})
list(FILTER qxmix_page_sources EXCLUDE REGEX "^commands/")
list(APPEND qxmix_page_sources ${commands})
list(REMOVE_ITEM qxmix_page_sources commandline/CommandTable.cpp workers/Channel.cpp
     workers/WorkerLoop.cpp)
list(APPEND qxmix_page_sources linux/FileCalls.cpp linux/RegularFile.cpp linux/SystemOptions.cpp)
list(TRANSFORM qxmix_page_sources PREPEND ../)
list(
  APPEND
  qxmix_page_sources
  CallWatch.cpp
  Channel.cpp
  ChildProcess.cpp
  CommandTable.cpp
  Console.cpp
  InPlaceWorker.cpp
  Interrupt.cpp
  LibraryPlaces.cpp
  OutputFiles.cpp
  SharedLibrary.cpp
  SharedMemory.cpp
  StandardStreams.cpp
  WorkerLoop.cpp
  Waiting.cpp)
