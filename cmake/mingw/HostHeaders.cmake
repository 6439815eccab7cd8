# korvel_host_headers(TARGET FOLDER...): an interface library of header folders of the host's
# /usr/include. They are seen through a folder of links to them alone: the host's other headers are
# another system's.
function(korvel_host_headers target)
  if(TARGET ${target})
    return()
  endif()
  set(view ${CMAKE_BINARY_DIR}/host-headers)
  file(MAKE_DIRECTORY ${view})
  foreach(folder IN LISTS ARGN)
    if(NOT EXISTS /usr/include/${folder})
      message(FATAL_ERROR "/usr/include/${folder} is missing")
    endif()
    file(CREATE_LINK /usr/include/${folder} ${view}/${folder} SYMBOLIC)
  endforeach()
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${view})
endfunction()
