# Extra links of JsonBenchmarks, included by Benchmarks/CMakeLists.txt. simdjson is compared with
# RapidJSON there only (Debian: libsimdjson-dev); without it those benchmarks are left out.
find_package(simdjson QUIET)
if(simdjson_FOUND)
  target_link_libraries(JsonBenchmarks PRIVATE simdjson::simdjson)
  target_compile_definitions(JsonBenchmarks PRIVATE PLAIN_HAVE_SIMDJSON=1)
else()
  target_compile_definitions(JsonBenchmarks PRIVATE PLAIN_HAVE_SIMDJSON=0)
endif()
