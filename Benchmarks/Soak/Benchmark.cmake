# Extra links of SoakBenchmarks, included by Benchmarks/CMakeLists.txt: the soak runs drive the
# lesson player program's own session, and generate their media into the build folder (never
# into the repository) with the ffmpeg program on first use.
target_link_libraries(SoakBenchmarks PRIVATE LessonPlayerHost)
target_compile_definitions(SoakBenchmarks PRIVATE
  SOAK_MEDIA_DIR="${CMAKE_BINARY_DIR}/SoakMedia"
  SOAK_CONTENT_DIR="${CMAKE_SOURCE_DIR}/Content")
