# One folder, one static library, one level of the stack. A layer sees its own headers and those of the layers it
# links, and no others: each folder is reached through a directory of its own that holds nothing but a link to it.

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(sonvire_options INTERFACE)
target_compile_features(sonvire_options INTERFACE cxx_std_20)
target_compile_options(sonvire_options INTERFACE
  -Wall -Wextra -Wconversion -Werror
  $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion> # which -Wconversion does not mean to GCC in C++
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> # false alarms about std::string in GCC 12
  -ffp-contract=off # double expressions are evaluated as they are written, on every processor
  )
if(SONVIRE_SANITIZE)
  target_compile_options(sonvire_options INTERFACE
    -fsanitize=${SONVIRE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(sonvire_options INTERFACE -fsanitize=${SONVIRE_SANITIZE})
endif()

# sonvire_layer(NAME SOURCES file... [LINKS layer...]): the static library of the folder this is called in.
function(sonvire_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;LINKS" ${ARGN})
  add_library(sonvire_${name} STATIC ${LAYER_SOURCES})
  set(root ${CMAKE_BINARY_DIR}/layers/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)
  # For #include "..." only, so that sys/ does not stand before the system's <sys/...>.
  target_compile_options(sonvire_${name} PUBLIC "SHELL:-iquote ${root}")
  list(TRANSFORM LAYER_LINKS PREPEND sonvire_)
  target_link_libraries(sonvire_${name} PUBLIC sonvire_options ${LAYER_LINKS})
endfunction()

# sonvire_kernels(NAME file): builds one file of inner loops into the layer once for every instruction set, each time
# in a namespace of its own (KERNEL_ISA); the code picks one when it runs.
function(sonvire_kernels name file)
  set(sets baseline)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    list(APPEND sets avx2)
    set(flags_avx2 -mavx2)
    target_compile_definitions(sonvire_${name} PRIVATE SONVIRE_HAS_AVX2)
  endif()
  foreach(set ${sets})
    add_library(sonvire_${name}_${set} OBJECT ${file})
    target_compile_definitions(sonvire_${name}_${set} PRIVATE KERNEL_ISA=${set} SONVIRE_ISA_NAME="${set}")
    target_compile_options(sonvire_${name}_${set} PRIVATE ${flags_${set}})
    target_link_libraries(sonvire_${name}_${set} PRIVATE sonvire_options)
    target_compile_options(sonvire_${name}_${set} PRIVATE "SHELL:-iquote ${CMAKE_BINARY_DIR}/layers/${name}")
    target_sources(sonvire_${name} PRIVATE $<TARGET_OBJECTS:sonvire_${name}_${set}>)
  endforeach()
endfunction()
