# How everything here is compiled.
add_library(kestro-options INTERFACE)
target_compile_features(kestro-options INTERFACE cxx_std_17)
target_compile_options(kestro-options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  -ffp-contract=off) # the scalers' results are exact: what is fused stands in the code
if(KESTRO_WARNINGS_AS_ERRORS)
  target_compile_options(kestro-options INTERFACE -Werror)
endif()
if(KESTRO_SANITIZE)
  target_compile_options(kestro-options INTERFACE
    -fsanitize=${KESTRO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kestro-options INTERFACE -fsanitize=${KESTRO_SANITIZE})
endif()
