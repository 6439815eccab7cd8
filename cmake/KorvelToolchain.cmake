# Language level, warnings and sanitizers: the same for every room.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)

add_library(korvel_warnings INTERFACE)
target_compile_options(korvel_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wformat=2 -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # GCC 12 sees overlapping, overlong and misplaced copies in ordinary string concatenation (its bug 105329),
  # and null pointers where strings are copied into vectors; clang looks for real ones.
  # clang-tidy reads the same command line and does not know the options.
  target_compile_options(korvel_warnings INTERFACE
    -Wno-restrict -Wno-stringop-overflow -Wno-array-bounds -Wno-null-dereference
    -Wno-unknown-warning-option)
elseif(CMAKE_CXX_COMPILER_ID MATCHES Clang)
  target_compile_options(korvel_warnings INTERFACE -Wthread-safety)
endif()

# A fused multiply-add would round differently from machine to machine; results
# must be the same wherever the program runs.
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-ffp-contract=off>)

if(KORVEL_SANITIZE)
  # What the sanitizers add to the code misleads GCC's flow warnings (array bounds, overflows); the
  # plain build is the one that has to be free of warnings.
  target_compile_options(korvel_warnings INTERFACE -Wno-error)
  add_compile_options(-fsanitize=${KORVEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KORVEL_SANITIZE})
endif()
if(KORVEL_BUILD_FUZZ)
  # Coverage feedback for every room; only the targets themselves link the fuzzer's main.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
