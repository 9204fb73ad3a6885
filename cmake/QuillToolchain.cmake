# Language level, warnings, compiler cache, linker and sanitizers: the same for every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(QUILL_CCACHE ccache)
if(QUILL_CCACHE)
  # Precompiled headers hide their own text from the cache unless it is told to look at them loosely.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${QUILL_CCACHE})
endif()

add_library(quill_warnings INTERFACE)
target_compile_options(quill_warnings INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Werror=return-type)

find_program(QUILL_LLD ld.lld)
if(QUILL_LLD AND NOT APPLE)
  add_link_options(-fuse-ld=lld)
endif()
if(NOT APPLE)
  add_link_options(-Wl,--as-needed)
endif()
if(QUILL_SANITIZE)
  add_compile_options(-fsanitize=${QUILL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=${QUILL_SANITIZE})
endif()
if(QUILL_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
