# Warnings are errors; mold and ccache where they are installed; the house rules of Qt. Other compilers than the one
# that builds the programs have warnings of their own.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-Werror)
endif()
add_compile_definitions(
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
  QT_USE_QSTRINGBUILDER QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(GEMFORGE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(GEMFORGE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

find_program(GEMFORGE_MOLD mold)
if(GEMFORGE_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

find_program(GEMFORGE_CCACHE ccache)
if(GEMFORGE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${GEMFORGE_CCACHE})
endif()

# A program loads only what it uses; the rooms' own link lists say more than that.
add_link_options(-Wl,--as-needed)

# Units of several files (CMAKE_UNITY_BUILD in the presets) take a third of the time; types of unnamed namespaces then
# seem to come from a header.
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-Wno-subobject-linkage)
endif()
