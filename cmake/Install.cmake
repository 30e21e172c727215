# The program with its template, sound and sample years in one folder, as it expects them; on Linux a
# link in bin/, what the desktop wants to know of it, man page and completion.
include(GNUInstallDirs)
if(WIN32)
  set(program_folder .)
else()
  set(program_folder ${CMAKE_INSTALL_LIBDIR}/kalvira)
endif()

# The version stands in the project() line, its day in the change log; a log that speaks of another
# version is found here and not by a user.
file(STRINGS CHANGELOG.md release LIMIT_COUNT 1 REGEX "^## ")
if(NOT release MATCHES "^## ([0-9.]+) \\(([0-9-]+)\\)$" OR NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
  message(FATAL_ERROR "CHANGELOG.md: '${release}' is not of version ${PROJECT_VERSION}")
endif()
set(release_date ${CMAKE_MATCH_2})

install(TARGETS kalvira RUNTIME DESTINATION ${program_folder} COMPONENT program)
if(WIN32)
  install(TARGETS kalvira_console RUNTIME DESTINATION ${program_folder} COMPONENT program)
endif()
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Vorlverbr8.kwx
              ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/click.wav DESTINATION ${program_folder} COMPONENT program)
install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/beispiel DESTINATION ${program_folder}
        COMPONENT program)

if(NOT WIN32)
  set(installed_program_folder /usr/${program_folder})
  set(described ${CMAKE_BINARY_DIR}/linux)
  foreach(file kalvira.1 de.kalvira.kalvira.metainfo.xml)
    configure_file(resources/linux/${file} ${described}/${file} @ONLY)
  endforeach()
  set(share ${CMAKE_INSTALL_DATADIR})
  install(FILES resources/linux/kalvira.desktop DESTINATION ${share}/applications COMPONENT program)
  install(FILES resources/linux/kalvira.xml DESTINATION ${share}/mime/packages COMPONENT program)
  install(FILES ${described}/de.kalvira.kalvira.metainfo.xml DESTINATION ${share}/metainfo COMPONENT program)
  install(FILES ${described}/kalvira.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/de/man1 COMPONENT program)
  install(FILES resources/linux/kalvira.bash RENAME kalvira
          DESTINATION ${share}/bash-completion/completions COMPONENT program)
  set(theme ${share}/icons/hicolor)
  foreach(size 16 24 32 48 64 128 256)
    install(FILES ${CMAKE_BINARY_DIR}/resources/kalvira-${size}.png RENAME kalvira.png
            DESTINATION ${theme}/${size}x${size}/apps COMPONENT program)
    install(FILES ${CMAKE_BINARY_DIR}/resources/jahresdatei-${size}.png RENAME application-x-kalvira.png
            DESTINATION ${theme}/${size}x${size}/mimetypes COMPONENT program)
  endforeach()
  install(FILES resources/icons/kalvira.svg DESTINATION ${theme}/scalable/apps COMPONENT program)
  install(FILES resources/linux/jahresdatei.svg RENAME application-x-kalvira.svg
          DESTINATION ${theme}/scalable/mimetypes COMPONENT program)
  install(CODE "
    set(bin \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    file(MAKE_DIRECTORY \"\${bin}\")
    file(CREATE_LINK \"../${program_folder}/kalvira\" \"\${bin}/kalvira\" SYMBOLIC)
    # The folder that holds the data folder; a package leaves it to the program.
    if(NOT \"\$ENV{HOME}\" STREQUAL \"\" AND \"\$ENV{DESTDIR}\" STREQUAL \"\")
      file(MAKE_DIRECTORY \"\$ENV{HOME}/Larvando\")
    endif()" COMPONENT program)
endif()
