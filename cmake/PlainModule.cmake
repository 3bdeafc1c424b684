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
  # The stand-in adds declarations of its own to engine classes, for its renderer, tests and host.
  # They sit behind PLAIN_PLATFORM_INTERNALS, which the stand-in and all that links it see, and
  # plug-in modules do not (plain_add_plugin_module), so a plug-in call of one fails to compile
  # here as in the engine. Only what leaves a class's layout alone is hidden: non-virtual
  # functions, free functions and types.
  target_compile_definitions(${name} PUBLIC PLAIN_PLATFORM_INTERNALS=1)
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE ${ARG_PRIVATE_DEPENDS})
  plain_enable_warnings(${name})
  file(GLOB_RECURSE private_headers CONFIGURE_DEPENDS "${dir}/Private/*.h")
  plain_reflect(${name} PACKAGE "/Script/${name}" HEADERS ${public_headers} ${private_headers})
  plain_record_module_interface(${name} "${dir}/Public")
  set_property(GLOBAL APPEND PROPERTY PLAIN_ALL_MODULES ${name})
endfunction()

# What a module offers the modules that name it, and nothing of what it depends on itself: its
# public and generated headers and its export macro. (A TARGET_PROPERTY expression of
# INTERFACE_INCLUDE_DIRECTORIES would follow the module's own links, which the engine does not.)
function(plain_record_module_interface name public_dir)
  string(TOUPPER "${name}" upper)
  set_target_properties(${name} PROPERTIES
    PLAIN_MODULE_INCLUDE_DIRS "${public_dir};${CMAKE_BINARY_DIR}/Intermediate/${name}"
    PLAIN_MODULE_IMPORT_DEFINITION "${upper}_API=DLLIMPORT")
endfunction()

# plain_add_plugin_module(<Name>): a module of the plug-in, built from Source/<Name>/ as the
# engine's build tool builds it in a modular (editor) build: compiled against, and linked with,
# exactly the modules its <Name>.Build.cs names in PublicDependencyModuleNames and
# PrivateDependencyModuleNames. Nothing is passed on from those modules' own dependencies, and an
# undefined symbol fails the link, so a module whose API the plug-in calls without naming it fails
# here as it would in the engine. The dependency list is written once, where the engine reads it.
#
# EXCLUDE_FROM_ALL builds the module only on request and keeps it out of the modules every test and
# program links: the build-rule tests use it for modules that must fail to build.
function(plain_add_plugin_module name)
  cmake_parse_arguments(ARG "EXCLUDE_FROM_ALL" "DIR" "" ${ARGN})
  set(dir "${CMAKE_CURRENT_SOURCE_DIR}")
  if(ARG_DIR)
    set(dir "${ARG_DIR}")
  endif()
  set(build_cs "${dir}/${name}.Build.cs")
  plain_read_build_cs("${build_cs}" public_deps private_deps)
  file(GLOB_RECURSE public_headers CONFIGURE_DEPENDS "${dir}/Public/*.h")
  file(GLOB_RECURSE private_files CONFIGURE_DEPENDS "${dir}/Private/*.h" "${dir}/Private/*.cpp")
  if(ARG_EXCLUDE_FROM_ALL)
    add_library(${name} SHARED EXCLUDE_FROM_ALL ${public_headers} ${private_files})
  else()
    add_library(${name} SHARED ${public_headers} ${private_files})
  endif()
  target_include_directories(${name} PUBLIC "${dir}/Public" PRIVATE "${dir}/Private")
  string(TOUPPER "${name}" upper)
  target_compile_definitions(${name} PRIVATE ${upper}_API=DLLEXPORT INTERFACE ${upper}_API=DLLIMPORT)
  # The engine's API only: the stand-in's own declarations are hidden from plug-in code.
  target_compile_definitions(${name} PRIVATE PLAIN_PLATFORM_INTERNALS=0)
  foreach(dep IN LISTS public_deps private_deps)
    if(TARGET ${dep})
      get_target_property(standin_only ${dep} PLAIN_STANDIN_ONLY)
    endif()
    if(NOT TARGET ${dep} OR standin_only)
      message(FATAL_ERROR "${build_cs}: names ${dep}, which is not an engine module the stand-in provides")
    endif()
    get_target_property(dep_includes ${dep} PLAIN_MODULE_INCLUDE_DIRS)
    get_target_property(dep_definition ${dep} PLAIN_MODULE_IMPORT_DEFINITION)
    target_include_directories(${name} PRIVATE ${dep_includes})
    target_compile_definitions(${name} PRIVATE ${dep_definition})
    # Linked by file, so CMake adds none of the dependency's own link libraries.
    target_link_libraries(${name} PRIVATE $<TARGET_FILE:${dep}>)
    add_dependencies(${name} ${dep})
  endforeach()
  target_link_options(${name} PRIVATE LINKER:--no-undefined)
  set_target_properties(${name} PROPERTIES BUILD_RPATH "$ORIGIN")
  plain_enable_warnings(${name})
  file(GLOB_RECURSE private_headers CONFIGURE_DEPENDS "${dir}/Private/*.h")
  plain_reflect(${name} PACKAGE "/Script/${name}" HEADERS ${public_headers} ${private_headers})
  plain_record_module_interface(${name} "${dir}/Public")
  if(NOT ARG_EXCLUDE_FROM_ALL)
    set_property(GLOBAL APPEND PROPERTY PLAIN_ALL_MODULES ${name})
  endif()
  set_property(TARGET ${name} PROPERTY PLAIN_BUILD_CS "${build_cs}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${build_cs}")
endfunction()

# plain_read_build_cs(<file> <public out> <private out>): the module names a *.Build.cs adds to
# PublicDependencyModuleNames and PrivateDependencyModuleNames.
function(plain_read_build_cs build_cs public_out private_out)
  file(READ "${build_cs}" rules)
  foreach(kind Public Private)
    set(names "")
    string(REGEX MATCH "${kind}DependencyModuleNames[^;]*;" list_text "${rules}")
    string(REGEX MATCHALL "\"[A-Za-z0-9_]+\"" quoted "${list_text}")
    foreach(entry IN LISTS quoted)
      string(REPLACE "\"" "" dep "${entry}")
      list(APPEND names ${dep})
    endforeach()
    string(TOLOWER "${kind}" lower)
    set(${lower}_names ${names})
  endforeach()
  set(${public_out} ${public_names} PARENT_SCOPE)
  set(${private_out} ${private_names} PARENT_SCOPE)
endfunction()
