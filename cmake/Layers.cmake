# One folder, one static library, one level of the stack. A layer sees its own headers and those of the layers it
# links, and no others: each folder is reached through a directory of its own that holds nothing but links to its
# headers.

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_EXTENSIONS OFF)

find_program(SONVIRE_CCACHE ccache)
mark_as_advanced(SONVIRE_CCACHE)
if(SONVIRE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # A precompiled header is told apart by its content, which ccache looks at only if it may.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${SONVIRE_CCACHE})
endif()

add_library(sonvire_options INTERFACE)
target_compile_features(sonvire_options INTERFACE cxx_std_20)
target_compile_options(sonvire_options INTERFACE
  -Wall -Wextra -Wconversion # errors in the developers' presets
  $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion> # which -Wconversion does not mean to GCC in C++
  "$<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-stringop-overflow>" # false alarms about std::string in GCC 12
  $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess> # so that ccache sees which precompiled header is used
  -Wno-unknown-warning-option # for tools that read these flags with another compiler
  -ffp-contract=off # double expressions are evaluated as they are written, on every processor
  )
if(NOT SONVIRE_SANITIZE)
  # What a crafted file might still overwrite is checked, or can't be written to.
  target_compile_options(sonvire_options INTERFACE
    "$<$<CONFIG:Release,RelWithDebInfo>:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>")
  target_link_options(sonvire_options INTERFACE -Wl,-z,relro,-z,now)
endif()
if(SONVIRE_SANITIZE)
  target_compile_options(sonvire_options INTERFACE
    -fsanitize=${SONVIRE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(sonvire_options INTERFACE -fsanitize=${SONVIRE_SANITIZE})
endif()

# sonvire_layer(FOLDER [PARTS subfolder...] [WITHOUT file...] [LINKS layer...]): the static library of FOLDER, which
# is called sonvire_FOLDER, from all sources that stand in it and in those of its subfolders that are a part of it.
function(sonvire_layer folder)
  cmake_parse_arguments(LAYER "" "" "PARTS;WITHOUT;LINKS" ${ARGN})
  string(REPLACE / _ name ${folder})
  set(sources)
  set(root ${CMAKE_BINARY_DIR}/layers/${name})
  foreach(part "" ${LAYER_PARTS})
    file(GLOB found CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/${part}/*.cpp)
    list(APPEND sources ${found})
    file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${part}/*.h)
    file(REMOVE_RECURSE ${root}/${folder}/${part})
    file(MAKE_DIRECTORY ${root}/${folder}/${part})
    foreach(header ${headers})
      get_filename_component(file ${header} NAME)
      file(CREATE_LINK ${header} ${root}/${folder}/${part}/${file} SYMBOLIC)
    endforeach()
  endforeach()
  if(LAYER_WITHOUT)
    list(REMOVE_ITEM sources ${LAYER_WITHOUT})
  endif()
  add_library(sonvire_${name} STATIC ${sources})
  # For #include "..." only, so that sys/ does not stand before the system's <sys/...>.
  target_compile_options(sonvire_${name} PUBLIC "SHELL:-iquote ${root}")
  list(TRANSFORM LAYER_LINKS REPLACE "(.+)" "sonvire_\\1")
  list(TRANSFORM LAYER_LINKS REPLACE / _)
  target_link_libraries(sonvire_${name} PUBLIC sonvire_options ${LAYER_LINKS})
endfunction()

# sonvire_precompile(TARGET header...): headers of libraries that most files of the target read, compiled once for all.
function(sonvire_precompile target)
  target_precompile_headers(${target} PRIVATE ${ARGN})
  # GCC gives false alarms about std::string here, which it knows to keep to itself where it reads the text of <string>.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds>)
endfunction()

# sonvire_kernels(NAME subfolder): builds the inner loops that stand there into the layer once for every instruction set,
# each time in a namespace of its own (KERNEL_ISA); the code picks one when it runs.
function(sonvire_kernels name subfolder)
  file(GLOB loops CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${subfolder}/*.cpp)
  set(sets baseline)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    list(APPEND sets avx2)
    set(flags_avx2 -mavx2)
    target_compile_definitions(sonvire_${name} PRIVATE SONVIRE_HAS_AVX2)
  endif()
  foreach(set ${sets})
    add_library(sonvire_${name}_${set} OBJECT ${loops})
    target_compile_definitions(sonvire_${name}_${set} PRIVATE KERNEL_ISA=${set} SONVIRE_ISA_NAME="${set}")
    target_compile_options(sonvire_${name}_${set} PRIVATE ${flags_${set}})
    target_link_libraries(sonvire_${name}_${set} PRIVATE sonvire_options)
    target_compile_options(sonvire_${name}_${set} PRIVATE "SHELL:-iquote ${CMAKE_BINARY_DIR}/layers/${name}")
    target_sources(sonvire_${name} PRIVATE $<TARGET_OBJECTS:sonvire_${name}_${set}>)
  endforeach()
endfunction()
