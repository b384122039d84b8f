# tessarine_room([WIDGETS] SOURCES file… [LINKS target…] [PRIVATE_LINKS target…])
#
# A folder of src/ is a library and a library is a folder: src/platform/store is tessarine_platform_store. Its headers
# are reached as "platform/store/Header.h" through an include root that holds links to these headers only, so that
# including a room that is not linked does not compile. WIDGETS is for the rooms that need Qt Widgets; the others cannot
# include its headers.
function(tessarine_room)
  cmake_parse_arguments(room "WIDGETS" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}/src" "${CMAKE_CURRENT_SOURCE_DIR}")
  string(TOLOWER "tessarine_${folder}" target)
  string(REPLACE "/" "_" target "${target}")

  set(root "${PROJECT_BINARY_DIR}/rooms/${target}")
  file(REMOVE_RECURSE "${root}")
  file(MAKE_DIRECTORY "${root}/${folder}")
  foreach(header ${room_SOURCES})
    if(header MATCHES "\\.h$" AND NOT IS_ABSOLUTE "${header}")
      file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}/${header}" "${root}/${folder}/${header}" SYMBOLIC)
    endif()
  endforeach()

  qt_add_library(${target} STATIC ${room_SOURCES})
  target_include_directories(${target} PUBLIC "${root}")
  target_link_libraries(${target} PUBLIC ${room_LINKS} PRIVATE tessarine_flags ${room_PRIVATE_LINKS})
  if(room_WIDGETS)
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON AUTOUIC_OPTIONS "-idbased")
  endif()
endfunction()
