# The program and its data stand side by side in one folder; a link and a desktop entry lead to it.
include(GNUInstallDirs)
set(program_folder ${CMAKE_INSTALL_LIBDIR}/morlenekvt)
install(TARGETS morlenekvt DESTINATION ${program_folder})
install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/lngmorlene
    ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/giocatori ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/swf
    ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/immagini ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/suoni
    DESTINATION ${program_folder} PATTERN "LangSetting.ini" EXCLUDE)
install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/animazioni DESTINATION ${program_folder} OPTIONAL)
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/morlenekvt.pdf
    ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/documento.pdf DESTINATION ${program_folder})
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/indis1.ttf DESTINATION ${program_folder})
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/indis1-LICENSE.txt DESTINATION ${program_folder}
    OPTIONAL)
install(FILES data/morlenekvt.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/images/icona.svg RENAME morlenekvt.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(PROGRAMS tools/make_drive_root.sh DESTINATION ${program_folder})
# The chosen language belongs to the installation and is written by all: a link leads to the drive.
install(CODE "
    file(MAKE_DIRECTORY \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR})
    file(CREATE_LINK ../${program_folder}/morlenekvt
        \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/morlenekvt SYMBOLIC)
    file(CREATE_LINK ${MORLENE_DRIVE_ROOT}LangSetting.ini
        \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${program_folder}/lngmorlene/LangSetting.ini SYMBOLIC)
    if(NOT \"\$ENV{DESTDIR}\")
        execute_process(COMMAND ${CMAKE_SOURCE_DIR}/tools/make_drive_root.sh ${MORLENE_DRIVE_ROOT}
            \${CMAKE_INSTALL_PREFIX}/${program_folder})
    endif()
")
