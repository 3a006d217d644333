# Every library from outside, each as one target. Those without a CMake package are looked up by header and file.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Svg Network DBus)
find_package(PkgConfig REQUIRED)
pkg_check_modules(LibZip REQUIRED IMPORTED_TARGET libzip)
pkg_check_modules(OpenMpt REQUIRED IMPORTED_TARGET libopenmpt)
find_package(SDL2 REQUIRED)
find_package(SDL2_mixer REQUIRED)

# gemforge_found(NAME HEADER [LIBRARY]) makes the target outside::NAME.
function(gemforge_found name header)
  find_path(${name}_DIR ${header} PATH_SUFFIXES qt6 x86_64-linux-gnu/qt6 REQUIRED)
  add_library(outside_${name} INTERFACE)
  target_include_directories(outside_${name} SYSTEM INTERFACE ${${name}_DIR})
  if(ARGC GREATER 2)
    find_library(${name}_FILE NAMES ${ARGV2} REQUIRED)
    target_link_libraries(outside_${name} INTERFACE ${${name}_FILE})
  endif()
  add_library(outside::${name} ALIAS outside_${name})
endfunction()

gemforge_found(qscintilla Qsci/qsciscintilla.h qscintilla2_qt6)
gemforge_found(expected tl/expected.hpp)
gemforge_found(x11 X11/XKBlib.h X11)
gemforge_found(freeimage FreeImage.h freeimage)
