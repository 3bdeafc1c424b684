# Helpers that turn a folder with Public/ and Private/ into a module, as the engine's build tool
# does for a *.Build.cs: one shared library, <NAME>_API export macro, reflection code generated
# from the U-macros by PlainHeaderTool before the module compiles.

# Warnings as errors on our own code. Unused parameters are normal in overrides of engine virtuals.
# GCC 12's flow-based -Wrestrict, -Wnonnull and -Warray-bounds misfire inside libstdc++ once -O3
# inlines std::string and memmove (GCC bugs 105329, 104475), so optimised builds turn them off
# rather than fail, or drown real warnings, on code that is not ours.
function(plain_enable_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror -Wno-unused-parameter
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<NOT:$<CONFIG:Debug>>>:-Wno-restrict -Wno-nonnull -Wno-array-bounds -Wno-stringop-overflow>)
endfunction()

# True for a header that the header tool must read: one that uses a reflection macro at the start
# of a line (the headers that *define* those macros do so behind #define and are not matched).
function(plain_header_is_reflected header out_var)
  file(STRINGS "${header}" hits REGEX "^[ \t]*(UCLASS|USTRUCT|UENUM|UINTERFACE|DECLARE_DYNAMIC_[A-Z_]+)[ \t]*\\(")
  if(hits)
    set(${out_var} TRUE PARENT_SCOPE)
  else()
    set(${out_var} FALSE PARENT_SCOPE)
  endif()
endfunction()

# Runs the header tool over every reflected header in HEADERS and adds the generated sources to
# the target. The generated headers land in one folder per target that is put on its include path.
function(plain_reflect target)
  cmake_parse_arguments(ARG "" "PACKAGE" "HEADERS" ${ARGN})
  if(NOT ARG_PACKAGE)
    set(ARG_PACKAGE "/Script/${target}")
  endif()
  set(out_dir "${CMAKE_BINARY_DIR}/Intermediate/${target}")
  file(MAKE_DIRECTORY "${out_dir}")
  set(generated)
  foreach(header IN LISTS ARG_HEADERS)
    plain_header_is_reflected("${header}" reflected)
    if(NOT reflected)
      continue()
    endif()
    get_filename_component(stem "${header}" NAME_WE)
    set(gen_h "${out_dir}/${stem}.generated.h")
    set(gen_cpp "${out_dir}/${stem}.gen.cpp")
    add_custom_command(
      OUTPUT "${gen_h}" "${gen_cpp}"
      COMMAND PlainHeaderTool --package "${ARG_PACKAGE}" --output "${out_dir}" "${header}"
      DEPENDS "${header}" PlainHeaderTool
      COMMENT "Reflecting ${stem}.h"
      VERBATIM)
    list(APPEND generated "${gen_cpp}")
  endforeach()
  target_sources(${target} PRIVATE ${generated})
  target_include_directories(${target} PUBLIC "${out_dir}")
endfunction()

# plain_add_module(<Name> [DEPENDS <public modules>...] [PRIVATE_DEPENDS <modules or libraries>...])
# Sources: <current dir>/Public/**.h and <current dir>/Private/**.{h,cpp}.
function(plain_add_module name)
  cmake_parse_arguments(ARG "" "" "DEPENDS;PRIVATE_DEPENDS" ${ARGN})
  set(dir "${CMAKE_CURRENT_SOURCE_DIR}")
  file(GLOB_RECURSE public_headers CONFIGURE_DEPENDS "${dir}/Public/*.h")
  file(GLOB_RECURSE private_files CONFIGURE_DEPENDS "${dir}/Private/*.h" "${dir}/Private/*.cpp")
  add_library(${name} SHARED ${public_headers} ${private_files})
  target_include_directories(${name} PUBLIC "${dir}/Public" PRIVATE "${dir}/Private")
  string(TOUPPER "${name}" upper)
  target_compile_definitions(${name} PRIVATE ${upper}_API=DLLEXPORT INTERFACE ${upper}_API=DLLIMPORT)
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE ${ARG_PRIVATE_DEPENDS})
  plain_enable_warnings(${name})
  file(GLOB_RECURSE private_headers CONFIGURE_DEPENDS "${dir}/Private/*.h")
  plain_reflect(${name} PACKAGE "/Script/${name}" HEADERS ${public_headers} ${private_headers})
  set_property(GLOBAL APPEND PROPERTY PLAIN_ALL_MODULES ${name})
endfunction()

# plain_add_plugin_module(<Name>): a module of the plug-in, built from Source/<Name>/ with the
# engine modules its <Name>.Build.cs names in PublicDependencyModuleNames and
# PrivateDependencyModuleNames, so the dependency list is written once, where the engine reads it.
function(plain_add_plugin_module name)
  set(build_cs "${CMAKE_CURRENT_SOURCE_DIR}/${name}.Build.cs")
  file(READ "${build_cs}" rules)
  set(public_deps "")
  set(private_deps "")
  foreach(kind Public Private)
    string(REGEX MATCH "${kind}DependencyModuleNames[^;]*;" list_text "${rules}")
    string(REGEX MATCHALL "\"[A-Za-z0-9_]+\"" quoted "${list_text}")
    foreach(entry IN LISTS quoted)
      string(REPLACE "\"" "" dep "${entry}")
      if(kind STREQUAL "Public")
        list(APPEND public_deps ${dep})
      else()
        list(APPEND private_deps ${dep})
      endif()
    endforeach()
  endforeach()
  # While the tree grows, a module may name one that has no source yet; leave it out and say so.
  foreach(list_name public_deps private_deps)
    foreach(dep IN LISTS ${list_name})
      if(NOT TARGET ${dep})
        message(STATUS "${name}: ${dep} is not built yet, left out")
        list(REMOVE_ITEM ${list_name} ${dep})
      endif()
    endforeach()
  endforeach()
  plain_add_module(${name} DEPENDS ${public_deps} PRIVATE_DEPENDS ${private_deps})
  set_property(TARGET ${name} PROPERTY PLAIN_BUILD_CS "${build_cs}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${build_cs}")
endfunction()
