# Every target of ours links tessarine_flags; nothing else sets compiler flags. Warnings are errors in the presets only:
# other compilers and newer libraries may give warnings that we have never seen.
add_library(tessarine_flags INTERFACE)
target_compile_features(tessarine_flags INTERFACE cxx_std_20)
target_compile_options(tessarine_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wimplicit-fallthrough -Wextra-semi)
target_compile_definitions(tessarine_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_NO_FOREACH
  QT_USE_QSTRINGBUILDER QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# For addr2line, which turns the offsets of crash reports into files and lines; packagers may strip them.
target_compile_options(tessarine_flags INTERFACE $<$<CONFIG:Release>:-g1>)

set(TESSARINE_SANITIZE "" CACHE STRING "Sanitizers, for example address,undefined or thread")
if(TESSARINE_SANITIZE)
  set(sanitize -fsanitize=${TESSARINE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(tessarine_flags INTERFACE ${sanitize} -g)
  target_link_options(tessarine_flags INTERFACE ${sanitize})
  # The sanitizers tell of crashes themselves; the program's own handlers stay out.
  target_compile_definitions(tessarine_flags INTERFACE TESSARINE_SANITIZED)
  # The instrumentation makes GCC's flow analysis see uses before initialisation where there are none.
  target_compile_options(tessarine_flags INTERFACE -Wno-maybe-uninitialized)
endif()
