# Compiler settings that hold for every target of the project.
find_program(ORVEX_CCACHE ccache)
if(ORVEX_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${ORVEX_CCACHE}")
endif()

add_library(orvex_compiler INTERFACE)
# The code that the toolkit makes of a module's QML files shadows its own parameters.
target_compile_options(orvex_compiler INTERFACE
  -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  $<$<NOT:$<BOOL:$<TARGET_PROPERTY:QT_QML_MODULE_URI>>>:-Wshadow>
  $<$<BOOL:${ORVEX_WERROR}>:-Werror>)
target_compile_definitions(orvex_compiler INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
  QT_NO_KEYWORDS)

if(ORVEX_SANITIZE)
  string(REPLACE "," ";" _sanitizers "${ORVEX_SANITIZE}")
  foreach(_sanitizer IN LISTS _sanitizers)
    add_compile_options(-fsanitize=${_sanitizer})
    add_link_options(-fsanitize=${_sanitizer})
  endforeach()
  add_compile_options(-fno-omit-frame-pointer -fno-sanitize-recover=all)
endif()

if(ORVEX_FUZZ)
  # Coverage in the code under test, not in the fuzz programs alone; and its lines, for llvm-cov.
  add_compile_options(-fsanitize=fuzzer-no-link -fprofile-instr-generate -fcoverage-mapping)
  add_link_options(-fprofile-instr-generate)
endif()

if(ORVEX_TIDY)
  find_program(ORVEX_CLANG_TIDY NAMES clang-tidy-19 clang-tidy REQUIRED)
  set(CMAKE_CXX_CLANG_TIDY "${ORVEX_CLANG_TIDY};--quiet")
  # Sources that the toolkit generates lie below the build folder and are nobody's to tidy; a check
  # that finds nothing there stands for none, which the program would refuse.
  file(WRITE "${CMAKE_BINARY_DIR}/.clang-tidy" "Checks: '-*,llvm-twine-local'\n")
endif()
