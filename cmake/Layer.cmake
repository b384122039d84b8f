# tessarine_layer(NAME SOURCES file… [LINKS target…] [PRIVATE_LINKS target…])
#
# One static library per folder of src/. Its headers are reached as "NAME/Header.h" through an include root
# that holds this one folder only, so including a layer that is not linked does not compile.
function(tessarine_layer name)
  cmake_parse_arguments(layer "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  set(root "${CMAKE_BINARY_DIR}/layers/${name}")
  file(MAKE_DIRECTORY "${root}")
  file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${root}/${name}" SYMBOLIC)

  string(TOLOWER "tessarine_${name}" target)
  qt_add_library(${target} STATIC ${layer_SOURCES})
  target_include_directories(${target} PUBLIC "${root}")
  target_link_libraries(${target} PUBLIC ${layer_LINKS} PRIVATE tessarine_flags ${layer_PRIVATE_LINKS})
endfunction()

# tessarine_views(LAYER SOURCES file… [LINKS target…])
#
# The part of a layer that needs Qt Widgets, as a library of its own, so that the rest cannot come to need them.
function(tessarine_views layer)
  cmake_parse_arguments(views "" "" "SOURCES;LINKS" ${ARGN})
  string(TOLOWER "tessarine_${layer}_views" target)
  qt_add_library(${target} STATIC ${views_SOURCES})
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON AUTOUIC_OPTIONS "-idbased")
  target_include_directories(${target} PUBLIC "${CMAKE_BINARY_DIR}/layers/${layer}")
  target_link_libraries(${target} PUBLIC ${views_LINKS} Qt6::Widgets PRIVATE tessarine_flags)
endfunction()
