# How everything here is compiled.
add_library(kestro-options INTERFACE)
target_compile_features(kestro-options INTERFACE cxx_std_17)
target_compile_options(kestro-options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  -ffp-contract=off) # the scalers' results are exact: what is fused stands in the code
target_compile_options(kestro-options INTERFACE
  $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>) # what ships tells nothing of where it was built
if(KESTRO_WARNINGS_AS_ERRORS)
  target_compile_options(kestro-options INTERFACE -Werror)
endif()
if(KESTRO_SANITIZE)
  target_compile_options(kestro-options INTERFACE
    -fsanitize=${KESTRO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kestro-options INTERFACE -fsanitize=${KESTRO_SANITIZE})
endif()
# What most sources include, compiled once: for what is built from nothing each time. That each source includes what it
# needs is seen where this is off, as in the preset release.
option(KESTRO_PRECOMPILE "Precompile what most sources include" OFF)
function(kestro_precompile target)
  if(KESTRO_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE
      <SDL.h> <algorithm> <filesystem> <functional> <memory> <string> <utility> <vector>)
  endif()
endfunction()

# Linked by what tools/coverage looks at, which the tests are not. The counts of a process that ends at once, such as
# one that decodes a picture, are written down before.
add_library(kestro-coverage INTERFACE)
if(KESTRO_COVERAGE)
  target_compile_options(kestro-coverage INTERFACE --coverage -fprofile-update=atomic -O0 -U_FORTIFY_SOURCE
    -D_exit=kestroCountAndExit -include ${PROJECT_SOURCE_DIR}/cmake/count_and_exit.h)
  target_link_libraries(kestro-coverage INTERFACE --coverage)
  # For sources that neither throw nor catch: what a compiler adds to clean up after exceptions is full of branches.
  set(KESTRO_COVERAGE_WITHOUT_EXCEPTIONS -fno-exceptions)
endif()

# How what ships is hardened, against input that finds a hole after all: the addresses of calls are fixed before
# the program starts and cannot be written then, arrays on the stack are guarded, copies of known size are
# checked, and no stack can be run. tools/check-hardening looks at the result.
add_library(kestro-hardening INTERFACE)
target_link_options(kestro-hardening INTERFACE LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
if(NOT KESTRO_SANITIZE)
  target_compile_options(kestro-hardening INTERFACE -fstack-protector-strong
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE>
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=2>)
endif()
