# Every library of the project links this one. The arithmetic flags keep `float` results the same on every platform:
# no contraction into fused operations, SSE instead of x87 where a choice exists.
add_library(ovaline_flags INTERFACE)
target_include_directories(ovaline_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(ovaline_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Werror
  -ffp-contract=off -msse2 -mfpmath=sse)
if(WIN32)
  # The SDK's own macros and interface declarations trip these two.
  target_compile_options(ovaline_flags INTERFACE -Wno-old-style-cast -Wno-pedantic)
endif()
if(WIN32 AND CMAKE_SIZEOF_VOID_P EQUAL 4)
  # Windows calls 32-bit modules with a stack aligned to 4 bytes only.
  target_compile_options(ovaline_flags INTERFACE -mstackrealign)
endif()
if(OVALINE_SANITIZE)
  target_compile_options(ovaline_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ovaline_flags INTERFACE -fsanitize=address,undefined)
endif()
