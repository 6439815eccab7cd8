# Most of what a file takes to compile is reading the standard library: that is done once.
# The lint preset does without, so that a file that forgets an include is found there.
set(korvel_standard_headers
  <algorithm> <array> <chrono> <cmath> <cstdint> <filesystem> <functional> <map> <memory> <mutex>
  <optional> <span> <string> <string_view> <utility> <vector>)

# korvel_precompiled(TARGET HEADERS...): a target that does nothing but read these headers; others
# take them from it with target_precompile_headers(... REUSE_FROM TARGET). They have to be compiled
# with the same options, warnings and the thread library included.
function(korvel_precompiled target)
  set(source ${CMAKE_BINARY_DIR}/${target}.cpp)
  if(NOT EXISTS ${source})
    file(WRITE ${source} "")
  endif()
  add_library(${target} OBJECT ${source})
  target_link_libraries(${target} PRIVATE Threads::Threads korvel_warnings)
  target_precompile_headers(${target} PRIVATE ${ARGN})
  korvel_follows_precompiled(${target})
endfunction()

# Lets compiler caches follow a precompiled header.
function(korvel_follows_precompiled target)
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()

korvel_precompiled(korvel_standard ${korvel_standard_headers})
