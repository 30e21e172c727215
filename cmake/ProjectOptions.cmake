# One place for language level and warnings. Every target of ours links project_options;
# -Werror is a matter of the presets, so that a stranger's newer compiler does not break the build.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)
if(MSVC)
  target_compile_options(project_options INTERFACE /W4 /utf-8 /permissive-)
else()
  target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
    -Wcast-align -Wimplicit-fallthrough -Wextra-semi)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 takes the empty state of std::optional<QString> for an uninitialised one, and text + text
  # for overlapping copies. Comparing and appending vectors of bytes it takes for endless copies.
  target_compile_options(project_options INTERFACE -Wno-maybe-uninitialized -Wno-restrict
    -Wno-stringop-overread -Wno-stringop-overflow)
endif()

set(KALVIRA_SANITIZERS "" CACHE STRING "Sanitizers for every target, for instance address,undefined")
if(KALVIRA_SANITIZERS)
  add_compile_options(-fsanitize=${KALVIRA_SANITIZERS} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KALVIRA_SANITIZERS})
endif()
