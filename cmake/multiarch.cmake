# Debian keeps the libraries of different processors apart, in a folder named after what the compiler makes code
# for. Empty elsewhere.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-multiarch
  OUTPUT_VARIABLE KESTRO_MULTIARCH OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(KESTRO_MULTIARCH)
  set(CMAKE_INSTALL_LIBDIR lib/${KESTRO_MULTIARCH} CACHE PATH "Libraries")
endif()
