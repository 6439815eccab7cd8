# korvel_room(TARGET [OWN_PRECOMPILED] FOLDER folder HEADERS ... SOURCES ... LINKS ...)
#
# One room of the house as a static library. Its headers are seen through an include
# folder of its own that holds links to them and nothing else, so that
# #include "folder/Header.h" compiles only where the room is linked: an arrow that the
# design does not have is a compile error. OWN_PRECOMPILED says that the room names the headers
# that are worth precompiling for it itself.
function(korvel_room target)
  cmake_parse_arguments(ROOM "OWN_PRECOMPILED" "FOLDER" "HEADERS;SOURCES;LINKS" ${ARGN})
  set(view ${CMAKE_BINARY_DIR}/include/${target})
  file(REMOVE_RECURSE ${view})
  foreach(header IN LISTS ROOM_HEADERS)
    get_filename_component(absolute ${header} ABSOLUTE)
    set(link ${view}/${ROOM_FOLDER}/${header})
    get_filename_component(folder ${link} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    file(CREATE_LINK ${absolute} ${link} COPY_ON_ERROR SYMBOLIC)
  endforeach()
  if(ROOM_SOURCES)
    add_library(${target} STATIC ${ROOM_SOURCES})
    target_include_directories(${target} PUBLIC ${view})
    target_link_libraries(${target} PUBLIC ${ROOM_LINKS} PRIVATE korvel_warnings)
    if(NOT ROOM_OWN_PRECOMPILED)
      target_precompile_headers(${target} REUSE_FROM korvel_standard)
      korvel_follows_precompiled(${target})
    endif()
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${view})
    target_link_libraries(${target} INTERFACE ${ROOM_LINKS})
  endif()
endfunction()
