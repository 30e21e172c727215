# The package of the host names /usr/include, where the host's C headers lie as well. Only its own
# folder is taken over.
find_path(tl_expected_headers tl/expected.hpp PATHS /usr/include NO_DEFAULT_PATH
          NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(COPY ${tl_expected_headers}/tl DESTINATION ${CMAKE_BINARY_DIR}/host-headers)
add_library(tl::expected INTERFACE IMPORTED)
set_target_properties(tl::expected PROPERTIES
  INTERFACE_INCLUDE_DIRECTORIES ${CMAKE_BINARY_DIR}/host-headers)
