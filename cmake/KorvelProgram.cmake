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

# korvel_offscreen(TARGET): lets it draw without a display. Where the toolkit is a part of the program, it only
# has what it is told to bring along.
function(korvel_offscreen target)
  if(TARGET Qt6::QOffscreenIntegrationPlugin)
    qt_import_plugins(${target} INCLUDE Qt6::QOffscreenIntegrationPlugin)
  endif()
endfunction()
