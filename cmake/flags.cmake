# Every library of the project links this one. The arithmetic flags keep `float` results the same on every platform:
# no contraction into fused operations, SSE instead of x87 where a choice exists.
add_library(ovaline_flags INTERFACE)
target_include_directories(ovaline_flags INTERFACE ${PROJECT_SOURCE_DIR})
set(flags
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Werror
  -ffp-contract=off -msse2 -mfpmath=sse)
if(WIN32)
  # The SDK's own macros and interface declarations trip these two.
  list(APPEND flags -Wno-old-style-cast -Wno-pedantic)
  # The platform's UTF-16 is wchar_t and ours is char16_t: texts go from one to the other without a copy.
  list(APPEND flags -fno-strict-aliasing)
  # Windows 7 is the oldest that the module runs on.
  target_compile_definitions(ovaline_flags INTERFACE UNICODE _WIN32_WINNT=0x0601 NTDDI_VERSION=0x06010000)
  # A host has nothing but the module and the system's own libraries.
  target_link_options(ovaline_flags INTERFACE -static -static-libgcc -static-libstdc++ $<$<CONFIG:Release>:-s>)
endif()
if(WIN32 AND CMAKE_SIZEOF_VOID_P EQUAL 4)
  # Windows calls 32-bit modules with a stack aligned to 4 bytes only.
  list(APPEND flags -mstackrealign)
  target_link_options(ovaline_flags INTERFACE -Wl,--enable-stdcall-fixup)
endif()
target_compile_options(ovaline_flags INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${flags}>")
if(OVALINE_SANITIZE)
  target_compile_options(ovaline_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ovaline_flags INTERFACE -fsanitize=address,undefined)
endif()
