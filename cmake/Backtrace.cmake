# Backtrace: the library that names the frames of a stack, as it comes with GCC. It lies in the compiler's own folders,
# which only that compiler searches; clang-tidy finds the header through a folder that holds nothing else.
foreach(file include/backtrace.h libbacktrace.a)
  get_filename_component(name "${file}" NAME)
  execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${file}"
    OUTPUT_VARIABLE backtrace_${name} OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT EXISTS "${backtrace_${name}}")
    message(FATAL_ERROR "${CMAKE_CXX_COMPILER} has no ${name}. GCC brings it along: on Debian 12 in libgcc-12-dev, "
      "a part of the package g++.")
  endif()
endforeach()

file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/backtrace")
file(CREATE_LINK "${backtrace_backtrace.h}" "${CMAKE_BINARY_DIR}/backtrace/backtrace.h" SYMBOLIC)
add_library(Backtrace STATIC IMPORTED)
set_target_properties(Backtrace PROPERTIES
  IMPORTED_LOCATION "${backtrace_libbacktrace.a}"
  INTERFACE_INCLUDE_DIRECTORIES "${CMAKE_BINARY_DIR}/backtrace")
