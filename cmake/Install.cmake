# The program with its template, sound and sample years in one folder, as it expects them; on Linux a
# link in bin/, a menu entry and its icons.
include(GNUInstallDirs)
if(WIN32)
  set(program_folder .)
else()
  set(program_folder ${CMAKE_INSTALL_LIBDIR}/kalvira)
endif()

install(TARGETS kalvira RUNTIME DESTINATION ${program_folder})
if(WIN32)
  install(TARGETS kalvira_console RUNTIME DESTINATION ${program_folder})
endif()
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Vorlverbr8.kwx
              ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/click.wav DESTINATION ${program_folder})
install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/beispiel DESTINATION ${program_folder})

if(NOT WIN32)
  install(FILES resources/kalvira.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  foreach(size 16 24 32 48 64 128 256)
    install(FILES ${CMAKE_BINARY_DIR}/resources/kalvira-${size}.png RENAME kalvira.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
  install(CODE "
    set(bin \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    file(MAKE_DIRECTORY \"\${bin}\")
    file(CREATE_LINK \"../${program_folder}/kalvira\" \"\${bin}/kalvira\" SYMBOLIC)
    # The folder that holds the data folder; a package leaves it to the program.
    if(NOT \"\$ENV{HOME}\" STREQUAL \"\" AND \"\$ENV{DESTDIR}\" STREQUAL \"\")
      file(MAKE_DIRECTORY \"\$ENV{HOME}/Larvando\")
    endif()")
endif()
