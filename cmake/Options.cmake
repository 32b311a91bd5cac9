# Compiler settings that every target of ours shares.
add_library(quillon_options INTERFACE)
target_include_directories(quillon_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
# No fused multiply-add: layout numbers must come out the same on every machine.
target_compile_options(quillon_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 sees overlapping copies in plain concatenations of strings once they are optimised.
  target_compile_options(quillon_options INTERFACE -Wno-restrict)
endif()
if(QUILLON_WERROR)  # where we build it; a user's newer compiler may warn of more
  target_compile_options(quillon_options INTERFACE -Werror)
endif()
if(QUILLON_SANITIZE)
  target_compile_options(quillon_options INTERFACE -fsanitize=${QUILLON_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quillon_options INTERFACE -fsanitize=${QUILLON_SANITIZE})
endif()
target_compile_definitions(quillon_options INTERFACE QUILLON_VERSION="${PROJECT_VERSION}")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
find_program(LLD_PROGRAM ld.lld)
if(LLD_PROGRAM AND NOT CMAKE_BUILD_TYPE STREQUAL "Release")
  add_link_options(-fuse-ld=lld)
endif()
