# korvel_program(TARGET DESCRIPTION): what a program tells Windows about itself; nothing elsewhere.
function(korvel_program target description)
  if(NOT WIN32)
    return()
  endif()
  configure_file(${CMAKE_SOURCE_DIR}/cmake/windows/Program.rc.in ${CMAKE_BINARY_DIR}/${target}.rc @ONLY)
  # By itself, since what the compiler is told means nothing to the resource compiler.
  add_library(${target}_resources OBJECT ${CMAKE_BINARY_DIR}/${target}.rc)
  set_source_files_properties(${CMAKE_BINARY_DIR}/${target}.rc PROPERTIES
    OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/cmake/windows/Program.manifest;${CMAKE_SOURCE_DIR}/cmake/windows/korvel.ico")
  target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_resources>)
endfunction()
