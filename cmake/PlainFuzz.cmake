# Included right after project() by the fuzz preset (CMAKE_PROJECT_INCLUDE): builds every module,
# program and target with libFuzzer's coverage instrumentation, AddressSanitizer and
# UndefinedBehaviorSanitizer. The fuzz targets themselves add -fsanitize=fuzzer, which brings
# libFuzzer's main (Fuzz/CMakeLists.txt).
#
# Every module is a shared library linked with --no-undefined, so the sanitizer runtime is the
# shared one (-shared-libsan): it defines the sanitizers' entry points and weak defaults of the
# coverage callbacks, which libFuzzer's own definitions in a fuzz target replace when it runs.

if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "The fuzz build needs clang (clang++-14 and libclang-rt-14-dev); this is ${CMAKE_CXX_COMPILER_ID}")
endif()

set(PLAIN_BUILD_FUZZERS ON CACHE BOOL "Build the libFuzzer targets in Fuzz/" FORCE)

execute_process(
  COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=libclang_rt.asan-x86_64.so
  OUTPUT_VARIABLE plain_asan_runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT EXISTS "${plain_asan_runtime}")
  message(FATAL_ERROR "No shared AddressSanitizer runtime next to ${CMAKE_CXX_COMPILER} (Debian: libclang-rt-14-dev)")
endif()
get_filename_component(plain_sanitizer_runtime_dir "${plain_asan_runtime}" DIRECTORY)

add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -shared-libsan -fno-omit-frame-pointer
  -fno-sanitize-recover=undefined)
# The runtime's folder is not on the loader's path: every binary carries it.
add_link_options(-fsanitize=address,undefined -shared-libsan "LINKER:-rpath,${plain_sanitizer_runtime_dir}")
