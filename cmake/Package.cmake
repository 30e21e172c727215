# The database engine as a package for other programs: find_package(Kalvira) gives Kalvira::jet. It is
# installed with the program, or alone by cmake --install BUILD --component engine.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Kalvira)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/kalvira)

# What the engine's headers speak of; the rest of base is the program's own.
set(base_headers Bytes.h File.h Money.h Result.h)
list(TRANSFORM base_headers PREPEND src/base/)
file(GLOB jet_headers CONFIGURE_DEPENDS src/jet/*.h)
foreach(library base jet)
  set_target_properties(${library} PROPERTIES OUTPUT_NAME kalvira_${library})
  target_compile_features(${library} PUBLIC cxx_std_20)
  target_include_directories(${library} INTERFACE $<INSTALL_INTERFACE:${header_folder}>)
  install(FILES ${${library}_headers} DESTINATION ${header_folder}/${library} COMPONENT engine)
endforeach()
install(TARGETS base jet EXPORT Kalvira ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        COMPONENT engine)
install(EXPORT Kalvira NAMESPACE Kalvira:: FILE KalviraTargets.cmake
        DESTINATION ${package_folder} COMPONENT engine)

configure_package_config_file(cmake/KalviraConfig.cmake.in ${CMAKE_BINARY_DIR}/KalviraConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/KalviraConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/KalviraConfig.cmake ${CMAKE_BINARY_DIR}/KalviraConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT engine)
